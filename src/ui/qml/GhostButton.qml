// SPDX-License-Identifier: Apache-2.0
// The secondary button: tinted label on surface2 with a hairline; dims while
// down. While disabled the label is muted and the hairline fainter.
import QtQuick
import QtQuick.Controls.Basic

Button {
    id: root

    required property color tint

    leftPadding: Theme.ghostButtonPadding
    rightPadding: Theme.ghostButtonPadding
    topPadding: Theme.buttonPaddingVertical
    bottomPadding: Theme.buttonPaddingVertical
    font.pixelSize: Theme.fontBody
    font.weight: Font.Medium
    opacity: root.down ? 0.8 : 1
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

    contentItem: Text {
        text: root.text
        textFormat: Text.PlainText
        font: root.font
        color: root.enabled ? root.tint : Theme.alpha(Theme.inkMuted, 0.55)
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    FocusRing {
        shown: root.visualFocus
        targetRadius: Theme.radiusButton
    }

    background: Rectangle {
        radius: Theme.radiusButton
        color: Theme.surface2
        border.width: Theme.hairline
        border.color: root.visualFocus ? root.tint : root.enabled ? Theme.stroke : Theme.alpha(Theme.stroke, 0.5)
    }
}
