// SPDX-License-Identifier: Apache-2.0
// The "…" button of the editor header and its menu: export this unit's
// settings into a backup file of one unit, import a backup file's values
// for it into the editor as unsaved changes, or forget the unit (asked for by
// a signal: the sidebar holds the confirmation). The files come from the
// native file dialogs; exportTo and importFrom do the same without them.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

GhostButton {
    id: root

    required property DeviceEditor editor
    readonly property alias menu: menu
    readonly property alias transfer: transfer
    readonly property alias exportDialog: exportDialog
    readonly property alias importDialog: importDialog

    signal forgetRequested()

    function exportTo(file) {
        return transfer.exportTo(file);
    }
    function importFrom(file) {
        return transfer.importFrom(file);
    }

    text: Glyphs.more
    tint: Theme.ink
    font.family: Glyphs.family
    font.pixelSize: Theme.fontDialogTitle
    Accessible.name: qsTr("Settings file actions")
    onClicked: menu.open()

    UnitTransfer {
        id: transfer

        editor: root.editor
    }

    Menu {
        id: menu

        objectName: "editorMenu"
        y: root.height + Theme.gapSmall
        width: Theme.fleetMenuWidth
        padding: Theme.gapSmall

        background: Rectangle {
            radius: Theme.radiusRow
            color: Theme.surface
            border.width: Theme.hairline
            border.color: Theme.stroke
        }

        FleetMenuEntry {
            objectName: "exportSettingsItem"
            text: qsTr("Export settings\u2026")
            glyph: Glyphs.exportAll
            Accessible.name: qsTr("Export settings")
            onTriggered: exportDialog.open()
        }
        FleetMenuEntry {
            objectName: "importSettingsItem"
            text: qsTr("Import settings\u2026")
            glyph: Glyphs.restore
            Accessible.name: qsTr("Import settings")
            onTriggered: importDialog.open()
        }
        FleetMenuEntry {
            objectName: "editorForgetItem"
            text: qsTr("Forget this unit\u2026")
            glyph: Glyphs.forget
            Accessible.name: qsTr("Forget this unit")
            onTriggered: root.forgetRequested()
        }
    }

    BackupFileDialog {
        id: exportDialog

        title: qsTr("Export settings")
        acceptLabel: qsTr("Export")
        saving: true
        onChosen: file => root.exportTo(file)
    }
    BackupFileDialog {
        id: importDialog

        title: qsTr("Import settings")
        acceptLabel: qsTr("Import")
        onChosen: file => root.importFrom(file)
    }
}
