// The Details tab: what the unit last reported, read-only, two keys a row,
// only the keys it reports; it follows every new reply by itself.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    required property DeviceEditor editor

    title: "Device details"
    systemImage: Glyphs.details
    tint: Theme.cyan

    GridLayout {
        objectName: "detailsGrid"
        Layout.fillWidth: true
        columns: 2
        columnSpacing: 10
        rowSpacing: 10

        Repeater {
            model: root.editor.details

            ColumnLayout {
                id: cell

                required property var modelData

                objectName: "detail_" + cell.modelData.key
                Layout.fillWidth: true
                Layout.minimumWidth: 10
                Layout.preferredWidth: 10
                Layout.alignment: Qt.AlignLeft | Qt.AlignTop
                spacing: 2

                Text {
                    objectName: "detailKey"
                    text: cell.modelData.key
                    textFormat: Text.PlainText
                    color: Theme.inkMuted
                    font.pixelSize: 10
                }
                Text {
                    objectName: "detailValue"
                    Layout.fillWidth: true
                    text: cell.modelData.value
                    textFormat: Text.PlainText
                    wrapMode: Text.WrapAnywhere
                    color: Theme.ink
                    font.family: "monospace"
                    font.pixelSize: 12
                }
            }
        }
    }
}
