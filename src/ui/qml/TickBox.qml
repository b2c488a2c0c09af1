// SPDX-License-Identifier: Apache-2.0
// A check box drawn from the theme: a rounded square, cyan with a tick when
// checked; its label is plain text.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

CheckBox {
    id: root

    spacing: Theme.gap
    padding: 0

    // A screen reader's Toggle or Press flips it as a click does, toggled()
    // included: Qt's own Toggle only sets `checked`, which the owner never
    // hears of (and which breaks the binding to its value). Like a click, it
    // does nothing while disabled.
    function accessibleToggleAction() {
        if (!root.enabled)
            return;
        root.toggle();
        root.toggled();
    }
    function accessiblePressAction() {
        root.accessibleToggleAction();
    }

    indicator: Rectangle {
        implicitWidth: Theme.fleetBoxSize
        implicitHeight: Theme.fleetBoxSize
        x: root.leftPadding
        y: (root.height - height) / 2
        radius: Theme.fleetBoxSize / 4
        color: root.checked ? Theme.cyan : Theme.surface2
        border.width: root.checked ? 0 : Theme.hairline
        border.color: root.visualFocus ? Theme.cyan : Theme.stroke
        opacity: root.enabled ? 1 : 0.4

        Icon {
            anchors.centerIn: parent
            visible: root.checked
            glyph: Glyphs.save
            points: Theme.fontSmall
            color: Theme.bg
        }
    }

    contentItem: Text {
        leftPadding: root.indicator.width + (root.text === "" ? 0 : root.spacing)
        text: root.text
        textFormat: Text.PlainText
        color: root.enabled ? Theme.ink : Theme.inkMuted
        font.pixelSize: Theme.fontBody
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
    }
}
