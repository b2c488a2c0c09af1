// SPDX-License-Identifier: Apache-2.0
// The sidebar's switch for the activity pane: a small labelled button that
// stays lit while the pane is open, and its keyboard shortcut.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

Button {
    id: root

    required property bool shown
    readonly property string shortcutText: "Ctrl+Shift+A"

    signal toggleRequested()

    text: qsTr("Activity")
    leftPadding: Theme.pillPaddingLeft
    rightPadding: Theme.pillPaddingRight
    topPadding: Theme.pillPaddingVertical
    bottomPadding: Theme.pillPaddingVertical
    font.pixelSize: Theme.fontSmall
    font.weight: Font.DemiBold
    opacity: root.down ? 0.8 : 1
    ToolTip.visible: root.hovered
    ToolTip.delay: Theme.toolTipDelay
    ToolTip.text: qsTr("Show or hide the activity log (%1)").arg(activityShortcut.nativeText)
    Accessible.description: root.ToolTip.text
    onClicked: root.toggleRequested()
    // Return and Enter press the focused button, as Space does.
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    // A screen reader's Press clicks it, as Space does; Qt's own Press
    // action does nothing on a button here.
    function accessiblePressAction() {
        if (root.enabled)
            root.clicked();
    }

    FocusRing {
        shown: root.visualFocus
        targetRadius: root.height / 2
    }

    Shortcut {
        id: activityShortcut

        sequence: root.shortcutText
        onActivated: root.toggleRequested()
    }

    contentItem: Row {
        spacing: Theme.gapChip

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            glyph: Glyphs.activity
            color: label.color
            points: Theme.iconToggle
        }
        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            textFormat: Text.PlainText
            font: root.font
            color: root.shown ? Theme.cyan : Theme.inkMuted
        }
    }

    background: Rectangle {
        radius: height / 2
        color: root.shown ? Theme.alpha(Theme.cyan, 0.14) : root.hovered ? Theme.surface2 : "transparent"
        border.width: Theme.hairline
        border.color: root.visualFocus ? Theme.cyan : Theme.stroke
    }
}
