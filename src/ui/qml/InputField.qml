// SPDX-License-Identifier: Apache-2.0
// The text field of the window: no platform bezel, ink on surface2 in a
// rounded frame with a hairline. Users set the font size and the paddings.
import QtQuick
import QtQuick.Controls.Basic

TextField {
    id: root

    property bool mono: false

    font.family: root.mono ? "monospace" : Qt.application.font.family
    color: Theme.ink
    placeholderTextColor: Theme.alpha(Theme.inkMuted, 0.7)
    selectionColor: Theme.alpha(Theme.cyan, 0.35)
    selectedTextColor: Theme.ink
    selectByMouse: true
    Accessible.name: root.placeholderText

    FocusRing {
        shown: root.activeFocus
        targetRadius: Theme.radiusControl
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.surface2
        border.width: Theme.hairline
        border.color: root.activeFocus ? Theme.alpha(Theme.cyan, 0.55) : Theme.stroke
    }
}
