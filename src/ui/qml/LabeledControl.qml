// SPDX-License-Identifier: Apache-2.0
// A form row: the label in the label column (as wide as `labelWidth`, which
// a panel sets to its widest label), then the control at its natural width,
// then free space.
import QtQuick
import QtQuick.Layouts

RowLayout {
    id: root

    required property string label
    default property alias control: slot.data

    // The label's own width at the current font, for the panel to measure.
    readonly property real labelImplicitWidth: labelText.implicitWidth
    property real labelWidth: Math.ceil(labelText.implicitWidth)

    spacing: Theme.labelGap

    Text {
        id: labelText

        objectName: "rowLabel"
        Layout.preferredWidth: root.labelWidth
        Layout.maximumWidth: root.labelWidth
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
