// The foot of the sidebar: a hairline, the manual address row, the Discover
// button, the client's status line with the networks discovery goes out on
// and the number of known units, and the switch of the activity pane.
// Ctrl+L takes the keyboard to the address field, F5 presses Discover.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

Rectangle {
    id: root

    required property VornClient client
    required property color statusColor
    // Whether the activity pane is open; the toggle at the foot flips it.
    property bool activityShown: false
    property alias manualIP: addressField.text
    readonly property alias addressField: addressField
    // For the window's Tab order: the parts before the editor (address row,
    // Discover) and those after it (networks, activity switch).
    readonly property var leadingFocusGroups: [addressRow, discoverButton]
    readonly property var trailingFocusGroups: [statusRow, activityToggle]

    signal queryRequested()
    signal discoverRequested()
    signal activityToggled()

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
            id: addressRow

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
                ToolTip.visible: addressField.hovered
                ToolTip.delay: Theme.toolTipDelay
                ToolTip.text: qsTr("%1 (%2)").arg(addressField.placeholderText).arg(addressShortcut.nativeText)
                Accessible.description: qsTr("Return queries this address")

                Shortcut {
                    id: addressShortcut

                    sequence: "Ctrl+L"
                    onActivated: {
                        addressField.forceActiveFocus(Qt.ShortcutFocusReason);
                        addressField.selectAll();
                    }
                }
            }

            GhostButton {
                objectName: "queryButton"
                text: "Query"
                tint: Theme.inkMuted
                Accessible.description: qsTr("Asks the unit at the address in the field to answer")
                onClicked: root.queryRequested()
            }
        }

        AccentButton {
            id: discoverButton

            objectName: "discoverButton"
            Layout.fillWidth: true
            text: "Discover"
            systemImage: Glyphs.broadcast
            tint: Theme.cyan
            onClicked: root.discoverRequested()
            ToolTip.visible: discoverButton.hovered
            ToolTip.delay: Theme.toolTipDelay
            ToolTip.text: qsTr("%1 (%2)").arg(discoverButton.text).arg(discoverShortcut.nativeText)
            Accessible.description: qsTr("Asks every unit on the networks to answer")

            Shortcut {
                id: discoverShortcut

                sequence: "F5"
                onActivated: discoverButton.clicked()
            }
        }

        RowLayout {
            id: statusRow

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
                id: statusText

                objectName: "statusText"
                Layout.fillWidth: true
                text: root.client.status
                textFormat: Text.PlainText
                Accessible.role: Accessible.StatusBar
                Accessible.name: statusText.text
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
                Accessible.name: root.client.deviceCount === 1 ? qsTr("1 unit known")
                                                               : qsTr("%1 units known").arg(root.client.deviceCount)
                color: Theme.inkMuted
                font.pixelSize: 11
                font.weight: Font.DemiBold
            }
        }

        ActivityToggle {
            id: activityToggle

            objectName: "activityToggle"
            shown: root.activityShown
            onToggleRequested: root.activityToggled()
        }
    }
}
