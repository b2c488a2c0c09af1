// SPDX-License-Identifier: Apache-2.0
// The confirmation before a unit is forgotten: it names the unit and says
// what goes (its row, its remembered configurations and the writes recorded
// for it) and that a unit which still answers comes back. "Forget" forgets
// it, "Cancel" (the default, also Escape and Return) does nothing.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T

Dialog {
    id: root

    required property VornClient client
    // The unit asked about.
    property string ip: ""
    property string unitTitle: ""

    // Asks about the unit at `ip`.
    function ask(ip) {
        const unit = root.client.deviceData(ip);
        root.ip = ip;
        root.unitTitle = unit.title !== undefined ? unit.title : ip;
        root.open();
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Theme.dialogWidth, parent ? parent.width - 2 * Theme.dialogMinimumMargin : Theme.dialogWidth)
    modal: true
    padding: Theme.dialogPadding
    topPadding: Theme.dialogTopPadding
    onOpened: cancelButton.forceActiveFocus(Qt.TabFocusReason)
    title: qsTr("Forget %1?").arg(root.unitTitle)

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
        spacing: Theme.gapMedium

        Icon {
            Layout.leftMargin: Theme.dialogPadding
            Layout.topMargin: Theme.dialogPadding
            glyph: Glyphs.forget
            color: Theme.tally
            points: Theme.iconDialog
        }
        Text {
            objectName: "forgetTitle"
            Layout.fillWidth: true
            Layout.topMargin: Theme.dialogPadding
            Layout.rightMargin: Theme.dialogPadding
            text: root.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.ink
            font.pixelSize: Theme.fontDialogTitle
            font.weight: Font.DemiBold
        }
    }

    contentItem: Text {
        objectName: "forgetMessage"
        text: qsTr("The unit at %1 leaves the list, with the configuration history and the writes VornLink remembers of it. Nothing is sent to the unit. A unit that is online comes back as soon as it answers again.").arg(root.ip)
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.inkMuted
        font.pixelSize: Theme.fontBody
        lineHeight: Theme.dialogLineHeight
    }

    footer: RowLayout {
        spacing: Theme.gapMedium

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            id: cancelButton

            objectName: "forgetCancelButton"
            Accessible.defaultButton: true
            Layout.bottomMargin: Theme.dialogTopPadding
            text: qsTr("Cancel")
            tint: Theme.ink
            onClicked: root.close()
        }
        AccentButton {
            objectName: "forgetButton"
            Layout.bottomMargin: Theme.dialogTopPadding
            Layout.rightMargin: Theme.dialogPadding
            text: qsTr("Forget")
            tint: Theme.tally
            onClicked: {
                const ip = root.ip;
                root.close();
                root.client.forget(ip);
            }
        }
    }
}
