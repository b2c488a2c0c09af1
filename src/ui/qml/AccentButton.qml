// SPDX-License-Identifier: Apache-2.0
// The primary button: dark label on the tint; while disabled, muted text on
// surface2. Dims and shrinks a little while down, in either look.
import QtQuick
import QtQuick.Controls.Basic

Button {
    id: root

    required property color tint
    property string systemImage: ""

    leftPadding: Theme.accentButtonPadding
    rightPadding: Theme.accentButtonPadding
    topPadding: Theme.buttonPaddingVertical
    bottomPadding: Theme.buttonPaddingVertical
    font.pixelSize: Theme.fontBody
    font.weight: Font.DemiBold
    opacity: root.down ? 0.82 : 1
    scale: root.down ? 0.98 : 1
    // Return and Enter press the focused button, as Space does.
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    // A screen reader's Press clicks it, as Space does; Qt's own Press
    // action does nothing on a button here.
    function accessiblePressAction() {
        if (root.enabled)
            root.clicked();
    }

    Behavior on opacity {
        NumberAnimation { duration: 120; easing.type: Easing.BezierSpline; easing.bezierCurve: [0, 0, 0.58, 1, 1, 1] }
    }
    Behavior on scale {
        NumberAnimation { duration: 120; easing.type: Easing.BezierSpline; easing.bezierCurve: [0, 0, 0.58, 1, 1, 1] }
    }

    contentItem: Item {
        implicitWidth: label.implicitWidth
        implicitHeight: label.implicitHeight

        Row {
            id: label

            anchors.centerIn: parent
            spacing: Theme.gapIcon

            Icon {
                visible: root.systemImage !== ""
                anchors.verticalCenter: parent.verticalCenter
                glyph: root.systemImage
                color: labelText.color
                points: root.font.pixelSize
            }
            Text {
                id: labelText

                objectName: "accentLabel"
                anchors.verticalCenter: parent.verticalCenter
                text: root.text
                textFormat: Text.PlainText
                font: root.font
                color: root.enabled ? Theme.bg : Theme.inkMuted
            }
        }
    }

    FocusRing {
        shown: root.visualFocus
        targetRadius: Theme.radiusButton
    }

    background: Rectangle {
        objectName: "accentFill"
        radius: Theme.radiusButton
        color: root.enabled ? root.tint : Theme.surface2
        border.width: root.visualFocus ? Theme.focusStroke : 0
        border.color: Theme.ink
    }
}
