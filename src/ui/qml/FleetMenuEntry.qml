// SPDX-License-Identifier: Apache-2.0
// One entry of the fleet menu: a glyph and a label, highlighted under the
// pointer or the keyboard.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

MenuItem {
    id: root

    required property string glyph

    padding: Theme.gapMedium
    spacing: Theme.gapMedium

    // A menu entry has no press action of its own: a screen reader's Press
    // clicks it, as Space does (not while disabled).
    Accessible.onPressAction: if (root.enabled) root.clicked()

    contentItem: Row {
        spacing: root.spacing

        Icon {
            glyph: root.glyph
            color: Theme.cyan
            points: Theme.fontBody
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            text: root.text
            textFormat: Text.PlainText
            color: Theme.ink
            font.pixelSize: Theme.fontBody
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: root.highlighted ? Theme.alpha(Theme.cyan, 0.14) : "transparent"
    }
}
