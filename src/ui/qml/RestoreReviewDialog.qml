// SPDX-License-Identifier: Apache-2.0
// The review of a backup file against the units that answer now: one row per
// unit of the file, "Include network settings", and "Restore <N> units",
// which writes the ticked rows (after the network confirmation when network
// keys go out) and then lists each unit's verdict. A file that cannot be read
// shows why, and nothing can be sent.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T

Dialog {
    id: root

    required property RestoreReview review
    required property BatchWriter writer
    // After "Restore": the verdicts instead of the review.
    property bool writing: false

    // Writes the ticked rows and shows their verdicts.
    function restoreNow() {
        root.review.restore(root.writer);
        root.writing = true;
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Theme.fleetDialogWidth, parent ? parent.width - 2 * Theme.dialogMinimumMargin : Theme.fleetDialogWidth)
    height: parent ? parent.height - 2 * Theme.dialogMinimumMargin : implicitHeight
    modal: true
    padding: Theme.fleetDialogPadding
    onOpened: root.writing = false

    T.Overlay.modal: Rectangle {
        color: Theme.alpha(Theme.bg, 0.72)
    }

    background: Rectangle {
        radius: Theme.radiusPanel
        color: Theme.surface
        border.width: Theme.hairline
        border.color: Theme.stroke
    }

    header: ColumnLayout {
        spacing: Theme.gapHair

        Text {
            objectName: "reviewTitle"
            Layout.fillWidth: true
            Layout.leftMargin: Theme.fleetDialogPadding
            Layout.rightMargin: Theme.fleetDialogPadding
            Layout.topMargin: Theme.fleetDialogPadding
            text: !root.writing ? qsTr("Restore from backup")
                : root.writer.waiting > 0 ? qsTr("Restoring %n unit(s): %1 answered", "", root.writer.count)
                                                .arg(root.writer.count - root.writer.waiting)
                : qsTr("Restored %n unit(s): %1 confirmed", "", root.writer.count).arg(root.writer.confirmed)
            textFormat: Text.PlainText
            color: Theme.ink
            font.pixelSize: Theme.fontDialogTitle
            font.weight: Font.DemiBold
        }
        Text {
            objectName: "reviewFile"
            Layout.fillWidth: true
            Layout.leftMargin: Theme.fleetDialogPadding
            Layout.rightMargin: Theme.fleetDialogPadding
            text: root.review.fileName
            textFormat: Text.PlainText
            elide: Text.ElideMiddle
            color: Theme.inkMuted
            font.pixelSize: Theme.fontSmall
        }
    }

    contentItem: ColumnLayout {
        spacing: Theme.gapSmall * 2

        Text {
            objectName: "restoreError"
            Layout.fillWidth: true
            visible: root.review.error !== ""
            text: qsTr("This file cannot be restored: %1").arg(root.review.error)
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.tally
            font.pixelSize: Theme.fontBody
        }

        ListView {
            objectName: "restoreRows"
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !root.writing && root.review.error === ""
            clip: true
            spacing: Theme.gapSmall
            model: root.review
            delegate: RestoreRow {
                width: ListView.view.width
                onToggled: (row, checked) => root.review.setChecked(row, checked)
                onOtherAllowedToggled: (row, allowed) => root.review.setOtherAllowed(row, allowed)
            }
        }

        ListView {
            objectName: "verdictRows"
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: root.writing
            clip: true
            spacing: Theme.gapSmall
            model: root.writer
            delegate: BatchVerdictRow {
                width: ListView.view.width
            }
        }

        Item {
            // Keeps the buttons at the foot while a refused file shows no rows.
            Layout.fillHeight: true
            visible: root.review.error !== ""
        }

        TickBox {
            objectName: "includeNetwork"
            visible: !root.writing && root.review.error === ""
            text: qsTr("Include network settings")
            checked: root.review.includeNetwork
            onToggled: root.review.includeNetwork = checked
        }
    }

    footer: RowLayout {
        spacing: Theme.gapSmall * 2

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            objectName: "closeReviewButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            Layout.rightMargin: root.writing ? Theme.fleetDialogPadding : 0
            text: root.writing ? qsTr("Close") : qsTr("Cancel")
            tint: Theme.ink
            onClicked: root.close()
        }
        AccentButton {
            objectName: "restoreButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            Layout.rightMargin: Theme.fleetDialogPadding
            visible: !root.writing
            enabled: root.review.error === "" && root.review.checkedCount > 0
            text: qsTr("Restore %n unit(s)", "", root.review.checkedCount)
            systemImage: Glyphs.restore
            tint: Theme.cyan
            onClicked: root.review.writesNetwork ? networkConfirm.open() : root.restoreNow()
        }
    }

    RestoreNetworkConfirm {
        id: networkConfirm

        objectName: "restoreNetworkConfirm"
        title: root.review.networkTitle
        message: root.review.networkMessage
        onApplied: root.restoreNow()
    }
}
