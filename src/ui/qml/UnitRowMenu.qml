// SPDX-License-Identifier: Apache-2.0
// The context menu of a unit's row in the sidebar, opened by a right click
// or the Menu key: "Forget this unit…", which asks before it forgets.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

Menu {
    id: root

    // The unit whose row the menu belongs to.
    property string ip: ""

    signal forgetRequested(string ip)

    // Opens the menu for the unit at `ip` at the point (x, y) of `row`.
    function openFor(row, ip, x, y) {
        root.ip = ip;
        root.popup(row, x, y);
    }

    width: Theme.fleetMenuWidth
    padding: Theme.gapSmall

    background: Rectangle {
        radius: Theme.radiusRow
        color: Theme.surface
        border.width: Theme.hairline
        border.color: Theme.stroke
    }

    FleetMenuEntry {
        objectName: "forgetUnitItem"
        text: qsTr("Forget this unit\u2026")
        glyph: Glyphs.forget
        Accessible.name: qsTr("Forget this unit")
        onTriggered: root.forgetRequested(root.ip)
    }
}
