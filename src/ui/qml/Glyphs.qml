// SPDX-License-Identifier: Apache-2.0
// The icon font (Material Icons, embedded with its licence) and the glyphs
// the window draws, named by what they stand for.
pragma Singleton
import QtQuick

QtObject {
    id: root

    // Where the system has the icon font, fontconfig draws its copy even
    // when ours is registered, so ours is only loaded where it is missing.
    readonly property string systemFamily: "Material Icons"
    readonly property bool systemHasFont: Qt.fontFamilies().indexOf(root.systemFamily) >= 0
    readonly property FontLoader loader: FontLoader {
        source: root.systemHasFont ? "" : "fonts/MaterialIcons-Regular.ttf"
    }
    readonly property string family: root.systemHasFont ? root.systemFamily : root.loader.name

    readonly property string station: "\ue51e"      // sensors: a base station
    readonly property string broadcast: "\uebba"    // cell_tower: discover on the LAN
    readonly property string tally: "\uf048"        // podcasts: camera tally
    readonly property string intercom: "\uf01f"     // headphones: communication
    readonly property string network: "\ueb2f"      // lan: the unit's own network settings
    readonly property string details: "\ue88e"      // info: what the unit reports
    readonly property string history: "\ue889"      // history: the stored versions of a unit
    readonly property string save: "\ue5ca"         // check: save changes
    readonly property string warning: "\ue002"      // warning: apply network settings
    readonly property string increase: "\ue145"     // add: stepper up
    readonly property string decrease: "\ue15b"     // remove: stepper down
    readonly property string chooser: "\ue5d7"      // unfold_more: a picker's handle
    readonly property string dot: "\ue061"          // fiber_manual_record: presence
    readonly property string switcher: "\ue04b"     // videocam: the video switcher
    readonly property string channel: "\ue311"      // headset_mic: intercom channel
    readonly property string firmware: "\ue322"     // memory: firmware version
    readonly property string activity: "\uef6e"     // receipt_long: the activity log
    readonly property string more: "\ue5d3"         // more_horiz: the sidebar's fleet menu
    readonly property string exportAll: "\ue171"    // save_alt: export all units
    readonly property string restore: "\ue8b3"      // restore: restore from a backup
    readonly property string scan: "\ue8b6"         // search: scan an address block
    readonly property string forget: "\ue92e"       // delete_outline: forget a remembered unit
    readonly property string siteStore: "\ue1db"    // storage: where the site is remembered
}
