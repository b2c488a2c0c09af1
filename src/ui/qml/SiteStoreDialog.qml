// SPDX-License-Identifier: Apache-2.0
// "Site store…": the site file or PostgreSQL server URI this window uses
// from its next start, kept in the window's settings. Empty is the user's own
// file; --site and VORNLINK_SITE, when given, go before it.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T

Dialog {
    id: root

    function save() {
        WindowMemory.siteStore = storeField.text.trim();
        root.close();
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Theme.scanDialogWidth, parent ? parent.width - 2 * Theme.dialogMinimumMargin : Theme.scanDialogWidth)
    modal: true
    padding: Theme.fleetDialogPadding
    title: qsTr("Site store")
    onOpened: {
        storeField.text = WindowMemory.siteStore;
        storeField.forceActiveFocus(Qt.PopupFocusReason);
        storeField.selectAll();
    }

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
            text: qsTr("Where this window remembers units and their history, from its next start: a site file, or a PostgreSQL server shared by the site's workstations (the password in ~/.pgpass). Empty: this computer's own file.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.inkMuted
            font.pixelSize: Theme.fontNote
        }
        InputField {
            id: storeField

            objectName: "siteStoreField"
            Layout.fillWidth: true
            mono: true
            placeholderText: qsTr("postgresql://user@host/database")
            font.pixelSize: Theme.fontBody
            leftPadding: Theme.fieldPaddingHorizontal
            rightPadding: Theme.fieldPaddingHorizontal
            topPadding: Theme.fieldPaddingVertical
            bottomPadding: Theme.fieldPaddingVertical
            Accessible.name: qsTr("Site file or server")
            onAccepted: root.save()
        }
    }

    footer: RowLayout {
        spacing: Theme.gapSmall * 2

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            objectName: "siteStoreCancelButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            text: qsTr("Cancel")
            tint: Theme.ink
            onClicked: root.close()
        }
        AccentButton {
            objectName: "siteStoreSaveButton"
            Layout.bottomMargin: Theme.fleetDialogPadding
            Layout.rightMargin: Theme.fleetDialogPadding
            text: qsTr("Save")
            systemImage: Glyphs.save
            tint: Theme.cyan
            onClicked: root.save()
        }
    }
}
