// SPDX-License-Identifier: Apache-2.0
// The foot of the sidebar: a hairline, the manual address row, the Discover
// button, the client's status line with the networks discovery goes out on
// and the number of known units, what the site memory has to say, and the
// switch of the activity pane.
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
    readonly property alias fleetMenuButton: fleetMenuButton
    // What the last export or restore said, under the address row; "" for nothing.
    property string fleetMessage: ""
    property bool fleetMessageFailed: false
    // The last query was refused: the field held no address. Editing clears it.
    property bool addressRefused: false

    signal queryRequested()
    signal discoverRequested()
    signal activityToggled()
    signal exportAllRequested()
    signal scanRequested()
    signal restoreRequested()

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
            id: addressRow

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
                onTextEdited: root.addressRefused = false
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
                text: qsTr("Query")
                tint: Theme.inkMuted
                Accessible.description: qsTr("Asks the unit at the address in the field to answer")
                onClicked: root.queryRequested()
            }

            FleetMenuButton {
                id: fleetMenuButton

                objectName: "fleetMenuButton"
                onExportAllRequested: root.exportAllRequested()
                onRestoreRequested: root.restoreRequested()
                onScanRequested: root.scanRequested()
            }
        }

        Text {
            objectName: "addressRefusal"
            Layout.fillWidth: true
            visible: root.addressRefused
            text: qsTr("not an IPv4 address")
            textFormat: Text.PlainText
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            color: Theme.tally
            font.pixelSize: Theme.fontSmall
        }

        Text {
            objectName: "fleetMessage"
            Layout.fillWidth: true
            visible: root.fleetMessage !== ""
            text: root.fleetMessage
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: root.fleetMessageFailed ? Theme.tally : Theme.inkMuted
            font.pixelSize: Theme.fontSmall
        }

        AccentButton {
            id: discoverButton

            objectName: "discoverButton"
            Layout.fillWidth: true
            text: qsTr("Discover")
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
            spacing: Theme.gapSmall

            Rectangle {
                objectName: "statusDot"
                Layout.preferredWidth: Theme.statusDotSize
                Layout.preferredHeight: Theme.statusDotSize
                radius: Theme.statusDotSize / 2
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
                Accessible.name: qsTr("%n unit(s) known", "", root.client.deviceCount)
                color: Theme.inkMuted
                font.pixelSize: Theme.fontSmall
                font.weight: Font.DemiBold
            }
        }

        // Under the status line: why the site is not remembered, that its
        // server is unreachable, or that its damaged file was moved aside.
        Text {
            objectName: "siteNotice"
            Layout.fillWidth: true
            visible: root.client.siteNotice !== ""
            text: root.client.siteNotice
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            color: Theme.amber
            font.pixelSize: Theme.fontSmall
        }

        ActivityToggle {
            id: activityToggle

            objectName: "activityToggle"
            shown: root.activityShown
            onToggleRequested: root.activityToggled()
        }
    }
}
