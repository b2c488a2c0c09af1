// SPDX-License-Identifier: Apache-2.0
// "Scan addresses…": a CIDR block or a range of addresses, asked one by one
// by unicast, for units behind a router that broadcasts never reach. Shows
// why a text cannot be scanned, the progress with Cancel, and at the end how
// many units answered.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T

Dialog {
    id: root

    required property AddressScan scan

    function startScan() {
        root.scan.start(blockField.text);
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Theme.scanDialogWidth, parent ? parent.width - 2 * Theme.dialogMinimumMargin : Theme.scanDialogWidth)
    modal: true
    padding: Theme.fleetDialogPadding
    title: qsTr("Scan addresses")
    onOpened: {
        blockField.forceActiveFocus(Qt.PopupFocusReason);
        blockField.selectAll();
    }
    onClosed: root.scan.cancel()

    T.Overlay.modal: Rectangle {
        color: Theme.alpha(Theme.bg, 0.72)
    }

    background: Rectangle {
        radius: Theme.radiusPanel
        color: Theme.surface
        border.width: Theme.hairline
        border.color: Theme.stroke
    }

    header: Text {
        objectName: "scanTitle"
        leftPadding: Theme.fleetDialogPadding
        rightPadding: Theme.fleetDialogPadding
        topPadding: Theme.fleetDialogPadding
        text: root.title
        textFormat: Text.PlainText
        color: Theme.ink
        font.pixelSize: Theme.fontDialogTitle
        font.weight: Font.DemiBold
    }

    contentItem: ColumnLayout {
        spacing: Theme.gapMedium

        Text {
            Layout.fillWidth: true
            text: qsTr("Units on a subnet behind a router do not hear a broadcast. Each address is asked by itself (at most %1).")
                .arg(root.scan.limit)
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.inkMuted
            font.pixelSize: Theme.fontNote
        }
        InputField {
            id: blockField

            objectName: "scanBlockField"
            Layout.fillWidth: true
            enabled: !root.scan.running
            mono: true
            placeholderText: qsTr("10.78.5.0/24 or 10.78.5.10-10.78.5.99")
            font.pixelSize: Theme.fontBody
            leftPadding: Theme.fieldPaddingHorizontal
            rightPadding: Theme.fieldPaddingHorizontal
            topPadding: Theme.fieldPaddingVertical
            bottomPadding: Theme.fieldPaddingVertical
            Accessible.name: qsTr("Addresses to scan")
            onAccepted: root.startScan()
        }
        ProgressBar {
            id: progress

            objectName: "scanProgress"
            Layout.fillWidth: true
            visible: root.scan.running
            from: 0
            to: Math.max(1, root.scan.total)
            value: root.scan.sent
            Accessible.name: qsTr("Scan progress")

            background: Rectangle {
                implicitHeight: Theme.progressBarHeight
                radius: Theme.radiusScrollBar
                color: Theme.surface2
            }
            contentItem: Item {
                implicitHeight: Theme.progressBarHeight

                Rectangle {
                    width: progress.visualPosition * parent.width
                    height: parent.height
                    radius: Theme.radiusScrollBar
                    color: Theme.cyan
                }
            }
        }
        Text {
            objectName: "scanMessage"
            Layout.fillWidth: true
            visible: text !== ""
            text: root.scan.problem !== "" ? root.scan.problem
                : root.scan.running ? qsTr("Asked %1 of %2 addresses\u2026").arg(root.scan.sent).arg(root.scan.total)
                : root.scan.found >= 0 ? qsTr("Found %n unit(s)", "", root.scan.found)
                : ""
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: root.scan.problem !== "" ? Theme.tally : Theme.ink
            font.pixelSize: Theme.fontBody
        }
    }

    footer: RowLayout {
        spacing: Theme.gapSmall * 2

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            objectName: "scanCancelButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            Layout.rightMargin: root.scan.running ? Theme.fleetDialogPadding : 0
            text: root.scan.running ? qsTr("Cancel") : qsTr("Close")
            tint: Theme.ink
            onClicked: root.scan.running ? root.scan.cancel() : root.close()
        }
        AccentButton {
            objectName: "scanStartButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            Layout.rightMargin: Theme.fleetDialogPadding
            visible: !root.scan.running
            enabled: blockField.text.trim() !== ""
            text: qsTr("Scan")
            systemImage: Glyphs.scan
            tint: Theme.cyan
            onClicked: root.startScan()
        }
    }
}
