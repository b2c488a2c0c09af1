// SPDX-License-Identifier: Apache-2.0
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

    padding: Theme.popupPadding
    width: Theme.networksPopupWidth
    // Takes the keyboard while open, so that Escape closes it.
    focus: true

    background: Rectangle {
        radius: Theme.radiusPopup
        color: Theme.surface
        border.width: Theme.hairline
        border.color: Theme.stroke
    }

    contentItem: ColumnLayout {
        spacing: Theme.gapMedium

        Text {
            objectName: "networksTitle"
            Layout.fillWidth: true
            text: qsTr("Discovery goes out on")
            textFormat: Text.PlainText
            color: Theme.inkMuted
            font.pixelSize: Theme.fontSmall
        }

        Text {
            objectName: "noNetwork"
            Layout.fillWidth: true
            visible: root.networks.length === 0
            text: qsTr("No network: connect a cable or bring a link up. Until then discovery goes where the system routes it.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.amber
            font.pixelSize: Theme.fontNote
        }

        Repeater {
            model: root.networks

            RowLayout {
                id: entry

                required property var modelData

                objectName: "network_" + entry.modelData.name + "_" + entry.modelData.address
                Layout.fillWidth: true
                spacing: Theme.gapMedium

                Icon {
                    Layout.alignment: Qt.AlignTop
                    glyph: Glyphs.network
                    color: Theme.cyan
                    points: Theme.iconList
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: Theme.gapHair

                    Text {
                        objectName: "networkName"
                        Layout.fillWidth: true
                        text: entry.modelData.name
                        textFormat: Text.PlainText
                        elide: Text.ElideRight
                        color: Theme.ink
                        font.pixelSize: Theme.fontNote
                        font.weight: Font.DemiBold
                    }
                    Text {
                        objectName: "networkAddress"
                        Layout.fillWidth: true
                        text: entry.modelData.address + "/" + entry.modelData.prefixLength
                        textFormat: Text.PlainText
                        color: Theme.inkMuted
                        font.family: "monospace"
                        font.pixelSize: Theme.fontSmall
                    }
                }
                Text {
                    objectName: "networkUnits"
                    Layout.alignment: Qt.AlignTop
                    text: qsTr("%n unit(s)", "", entry.modelData.units)
                    textFormat: Text.PlainText
                    color: Theme.inkMuted
                    font.pixelSize: Theme.fontSmall
                    font.weight: Font.DemiBold
                }
            }
        }
    }
}
