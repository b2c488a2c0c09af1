// SPDX-License-Identifier: Apache-2.0
// A form row: the label in the label column (as wide as `labelWidth`, which
// a panel sets to its widest label), then a text field that takes the rest
// of the width.
import QtQuick
import QtQuick.Layouts

RowLayout {
    id: root

    required property string label
    required property bool mono
    required property string placeholder
    property alias text: field.text
    // The units edited together differ here: the field is empty and says so.
    property bool mixed: false
    readonly property alias field: field

    // The user changed the text (not a change made by a binding).
    signal edited(string text)

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

    InputField {
        id: field

        Layout.fillWidth: true
        mono: root.mono
        placeholderText: root.mixed ? qsTr("Mixed") : root.placeholder
        font.pixelSize: Theme.fontBody
        leftPadding: Theme.fieldPaddingHorizontal
        rightPadding: Theme.fieldPaddingHorizontal
        topPadding: Theme.fieldPaddingVertical
        bottomPadding: Theme.fieldPaddingVertical
        onTextEdited: root.edited(field.text)
        Accessible.name: root.label
        Accessible.description: root.placeholder
    }
}
