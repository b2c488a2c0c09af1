// A form row: the label in the fixed 116-wide column, then a text field that
// takes the rest of the width.
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

    spacing: 12

    Text {
        Layout.preferredWidth: 116
        Layout.maximumWidth: 116
        text: root.label
        textFormat: Text.PlainText
        // A label longer than the column wraps instead of being cut.
        wrapMode: Text.Wrap
        color: Theme.inkMuted
        font.pixelSize: 13
    }

    InputField {
        id: field

        Layout.fillWidth: true
        mono: root.mono
        placeholderText: root.mixed ? qsTr("Mixed") : root.placeholder
        font.pixelSize: 13
        leftPadding: 11
        rightPadding: 11
        topPadding: 7
        bottomPadding: 7
        onTextEdited: root.edited(field.text)
    }
}
