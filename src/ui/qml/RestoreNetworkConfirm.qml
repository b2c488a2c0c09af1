// SPDX-License-Identifier: Apache-2.0
// The network confirmation before a restore writes address settings: every
// unit whose address, mask or gateway changes with its new values, and the
// warning once for all. "Apply" goes on with the restore, "Cancel" (or
// Escape) writes nothing.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T

Dialog {
    id: root

    property string message: ""

    signal applied()

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Theme.restoreConfirmWidth, parent ? parent.width - 2 * Theme.dialogMinimumMargin : 0)
    modal: true
    padding: Theme.fleetDialogPadding

    T.Overlay.modal: Rectangle {
        color: Theme.alpha(Theme.bg, 0.72)
    }

    background: Rectangle {
        radius: Theme.radiusPanel
        color: Theme.surface
        border.width: Theme.hairline
        border.color: Theme.stroke
    }

    header: RowLayout {
        spacing: Theme.gapSmall * 2

        Icon {
            Layout.leftMargin: Theme.fleetDialogPadding
            Layout.topMargin: Theme.fleetDialogPadding
            glyph: Glyphs.warning
            color: Theme.tally
            points: Theme.iconDialog
        }
        Text {
            objectName: "networkConfirmTitle"
            Layout.fillWidth: true
            Layout.topMargin: Theme.fleetDialogPadding
            Layout.rightMargin: Theme.fleetDialogPadding
            text: root.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.ink
            font.pixelSize: Theme.fontDialogTitle
            font.weight: Font.DemiBold
        }
    }

    contentItem: Text {
        objectName: "networkConfirmMessage"
        text: root.message
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.inkMuted
        font.pixelSize: Theme.fontBody
    }

    footer: RowLayout {
        spacing: Theme.gapSmall * 2

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            objectName: "networkCancelButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            text: qsTr("Cancel")
            tint: Theme.ink
            onClicked: root.close()
        }
        AccentButton {
            objectName: "networkApplyButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            Layout.rightMargin: Theme.fleetDialogPadding
            text: qsTr("Apply")
            tint: Theme.tally
            onClicked: {
                root.close();
                root.applied();
            }
        }
    }
}
