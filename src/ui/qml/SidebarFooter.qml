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

    signal queryRequested()
    signal discoverRequested()
    signal activityToggled()

    implicitHeight: column.implicitHeight + 2 * Theme.gapLarge
    color: Theme.bg

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: Theme.gapLarge
        spacing: Theme.gapMedium

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: Theme.hairline
            color: Theme.stroke
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.gap

            InputField {
                id: addressField

                objectName: "addressField"
                Layout.fillWidth: true
                mono: true
                placeholderText: qsTr("Add by IP")
                font.pixelSize: Theme.fontNote
                leftPadding: Theme.compactPaddingHorizontal
                rightPadding: Theme.compactPaddingHorizontal
                topPadding: Theme.compactPaddingVertical
                bottomPadding: Theme.compactPaddingVertical
                onAccepted: root.queryRequested()
            }

            GhostButton {
                objectName: "queryButton"
                text: qsTr("Query")
                tint: Theme.inkMuted
                onClicked: root.queryRequested()
            }
        }

        AccentButton {
            objectName: "discoverButton"
            Layout.fillWidth: true
            text: qsTr("Discover")
            systemImage: Glyphs.broadcast
            tint: Theme.cyan
            onClicked: root.discoverRequested()
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.gapSmall

            Rectangle {
                objectName: "statusDot"
                Layout.preferredWidth: Theme.statusDotSize
                Layout.preferredHeight: Theme.statusDotSize
                radius: Theme.statusDotSize / 2
                color: root.statusColor
            }
            Text {
                objectName: "statusText"
                Layout.fillWidth: true
                text: root.client.status
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.inkMuted
                font.pixelSize: Theme.fontSmall
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
                font.pixelSize: Theme.fontSmall
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
