// SPDX-License-Identifier: Apache-2.0
// The "…" button of the sidebar footer and its menu of work on all units:
// export every listed unit into one backup file, restore from one, scan
// a block of addresses for units behind a router, or choose the site store.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

GhostButton {
    id: root

    readonly property alias menu: menu
    // The "Site store…" dialog once it was opened, else null.
    readonly property var siteStoreDialog: siteStoreLoader.item

    signal exportAllRequested()
    signal restoreRequested()
    signal scanRequested()

    text: Glyphs.more
    tint: Theme.inkMuted
    font.family: Glyphs.family
    font.pixelSize: Theme.fontDialogTitle
    Accessible.name: qsTr("More actions")
    onClicked: menu.open()

    Menu {
        id: menu

        objectName: "fleetMenu"
        y: -menu.height - Theme.gapSmall
        width: Theme.fleetMenuWidth
        padding: Theme.gapSmall

        background: Rectangle {
            radius: Theme.radiusRow
            color: Theme.surface
            border.width: Theme.hairline
            border.color: Theme.stroke
        }

        FleetMenuEntry {
            objectName: "exportAllItem"
            text: qsTr("Export all units\u2026")
            glyph: Glyphs.exportAll
            onTriggered: root.exportAllRequested()
        }
        FleetMenuEntry {
            objectName: "restoreItem"
            text: qsTr("Restore from backup\u2026")
            glyph: Glyphs.restore
            onTriggered: root.restoreRequested()
        }
        FleetMenuEntry {
            objectName: "scanItem"
            text: qsTr("Scan addresses\u2026")
            glyph: Glyphs.scan
            onTriggered: root.scanRequested()
        }
        FleetMenuEntry {
            objectName: "siteStoreItem"
            text: qsTr("Site store\u2026")
            glyph: Glyphs.siteStore
            onTriggered: {
                siteStoreLoader.active = true;
                siteStoreLoader.item.open();
            }
        }
    }

    // Made on first use: nothing of it at start.
    Loader {
        id: siteStoreLoader

        active: false
        sourceComponent: SiteStoreDialog {
            objectName: "siteStoreDialog"
        }
    }
}
