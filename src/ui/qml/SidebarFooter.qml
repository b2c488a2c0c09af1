// The foot of the sidebar: a hairline, the manual address row, the Discover
// button, the client's status line with the networks discovery goes out on
// and the number of known units, and the switch of the activity pane.
import QtQuick
import VornLink
import QtQuick.Layouts

Rectangle {
    id: root

    required property VornClient client
    required property color statusColor
    // Whether the activity pane is open; the toggle at the foot flips it.
    property bool activityShown: false
    property alias manualIP: addressField.text
    readonly property alias addressField: addressField
    readonly property alias fleetMenuButton: fleetMenuButton
    // What the last export or restore said, under the address row; "" for nothing.
    property string fleetMessage: ""
    property bool fleetMessageFailed: false

    signal queryRequested()
    signal discoverRequested()
    signal activityToggled()
    signal exportAllRequested()
    signal restoreRequested()

    implicitHeight: column.implicitHeight + 24
    color: Theme.bg

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 12
        spacing: 10

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 1
            color: Theme.stroke
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 8

            InputField {
                id: addressField

                objectName: "addressField"
                Layout.fillWidth: true
                mono: true
                placeholderText: "Add by IP"
                font.pixelSize: 12
                leftPadding: 9
                rightPadding: 9
                topPadding: 6
                bottomPadding: 6
                onAccepted: root.queryRequested()
            }

            GhostButton {
                objectName: "queryButton"
                text: "Query"
                tint: Theme.inkMuted
                onClicked: root.queryRequested()
            }

            FleetMenuButton {
                id: fleetMenuButton

                objectName: "fleetMenuButton"
                onExportAllRequested: root.exportAllRequested()
                onRestoreRequested: root.restoreRequested()
            }
        }

        Text {
            objectName: "fleetMessage"
            Layout.fillWidth: true
            visible: root.fleetMessage !== ""
            text: root.fleetMessage
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: root.fleetMessageFailed ? Theme.tally : Theme.inkMuted
            font.pixelSize: Theme.fleetSmallSize
        }

        AccentButton {
            objectName: "discoverButton"
            Layout.fillWidth: true
            text: "Discover"
            systemImage: Glyphs.broadcast
            tint: Theme.cyan
            onClicked: root.discoverRequested()
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 6

            Rectangle {
                objectName: "statusDot"
                Layout.preferredWidth: 6
                Layout.preferredHeight: 6
                radius: 3
                color: root.statusColor
            }
            Text {
                objectName: "statusText"
                Layout.fillWidth: true
                text: root.client.status
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.inkMuted
                font.pixelSize: 11
            }
            NetworksButton {
                objectName: "networksButton"
                networks: root.client.networks
            }
            Text {
                objectName: "unitCount"
                text: String(root.client.deviceCount)
                textFormat: Text.PlainText
                color: Theme.inkMuted
                font.pixelSize: 11
                font.weight: Font.DemiBold
            }
        }

        ActivityToggle {
            objectName: "activityToggle"
            shown: root.activityShown
            onToggleRequested: root.activityToggled()
        }
    }
}
