// The networks discovery goes out on: each interface address with its prefix
// and how many listed units were last heard on it. Escape or a click outside
// closes it.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

Popup {
    id: root

    required property var networks

    padding: 14
    width: 240
    // Takes the keyboard while open, so that Escape closes it.
    focus: true

    background: Rectangle {
        radius: 12
        color: Theme.surface
        border.width: 1
        border.color: Theme.stroke
    }

    contentItem: ColumnLayout {
        spacing: 10

        Text {
            objectName: "networksTitle"
            Layout.fillWidth: true
            text: qsTr("Discovery goes out on")
            textFormat: Text.PlainText
            color: Theme.inkMuted
            font.pixelSize: 11
        }

        Text {
            objectName: "noNetwork"
            Layout.fillWidth: true
            visible: root.networks.length === 0
            text: qsTr("No network: connect a cable or bring a link up. Until then discovery goes where the system routes it.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.amber
            font.pixelSize: 12
        }

        Repeater {
            model: root.networks

            RowLayout {
                id: entry

                required property var modelData

                objectName: "network_" + entry.modelData.name + "_" + entry.modelData.address
                Layout.fillWidth: true
                spacing: 10

                Icon {
                    Layout.alignment: Qt.AlignTop
                    glyph: Glyphs.network
                    color: Theme.cyan
                    points: 12
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2

                    Text {
                        objectName: "networkName"
                        Layout.fillWidth: true
                        text: entry.modelData.name
                        textFormat: Text.PlainText
                        elide: Text.ElideRight
                        color: Theme.ink
                        font.pixelSize: 12
                        font.weight: Font.DemiBold
                    }
                    Text {
                        objectName: "networkAddress"
                        Layout.fillWidth: true
                        text: entry.modelData.address + "/" + entry.modelData.prefixLength
                        textFormat: Text.PlainText
                        color: Theme.inkMuted
                        font.family: "monospace"
                        font.pixelSize: 11
                    }
                }
                Text {
                    objectName: "networkUnits"
                    Layout.alignment: Qt.AlignTop
                    text: entry.modelData.units === 1 ? qsTr("1 unit") : qsTr("%1 units").arg(entry.modelData.units)
                    textFormat: Text.PlainText
                    color: Theme.inkMuted
                    font.pixelSize: 11
                    font.weight: Font.DemiBold
                }
            }
        }
    }
}
