// SPDX-License-Identifier: Apache-2.0
// A form row: the label in the fixed 116-wide column, then the control at its
// natural width, then free space.
import QtQuick
import QtQuick.Layouts

RowLayout {
    id: root

    required property string label
    default property alias control: slot.data

    spacing: Theme.labelGap

    Text {
        Layout.preferredWidth: Theme.labelColumn
        Layout.maximumWidth: Theme.labelColumn
        text: root.label
        textFormat: Text.PlainText
        // A label longer than the column wraps instead of being cut.
        wrapMode: Text.Wrap
        color: Theme.inkMuted
        font.pixelSize: Theme.fontBody
    }

    Row {
        id: slot

        objectName: "controlSlot"
    }

    // A screen reader names the control by the row's label.
    Binding {
        target: slot.children.length === 1 ? slot.children[0] : null
        property: "Accessible.name"
        value: root.label
    }

    Item {
        Layout.fillWidth: true
    }
}
