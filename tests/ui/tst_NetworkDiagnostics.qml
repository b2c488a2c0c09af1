// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

TestCase {
    id: testCase

    name: "NetworkDiagnostics"
    when: windowShown
    visible: true
    width: 1000
    height: 640

    readonly property var office: ({ name: "office", index: 9001, address: "192.168.50.20", prefixLength: 24 })
    readonly property var studio: ({ name: "studio", index: 9002, address: "10.77.1.5", prefixLength: 24 })
    readonly property date now: new Date(2024, 5, 1, 12, 0, 0)
    property VornClient client
    property var view

    Component {
        id: viewComponent

        ContentView {
            width: 1000
            height: 640
        }
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003 && Math.abs(a.a - b.a) < 0.003;
    }

    function init() {
        client = TestKit.makeClient();
        TestKit.setNow(client, now);
        view = createTemporaryObject(viewComponent, testCase, { client: client });
    }

    function child(name) {
        return findChild(view, name);
    }

    function secondsLater(seconds) {
        return new Date(now.getTime() + seconds * 1000);
    }

    function row(index) {
        const list = child("deviceList");
        waitForRendering(list);
        return list.itemAtIndex(index);
    }

    function heardOnStudio(ip, serial) {
        TestKit.ingestHeardOn(client, ip, { Serial: serial, IPAddress: ip }, studio.index, studio.address);
    }

    function select(ip) {
        view.unitSelection.show(ip);
        tryVerify(() => child("hero") !== null);
    }

    function showTab(index) {
        mouseClick(child("segment" + index));
    }

    function test_networks_button_counts_the_networks_discovery_uses() {
        TestKit.setNetworks(client, [office, studio]);
        compare(child("networksButton").text, "2 network(s)");
        TestKit.setNetworks(client, [studio]);
        compare(child("networksButton").text, "1 network(s)");
        verify(!sameColour(child("networksButton").contentItem.color, Theme.amber));
    }

    function test_no_eligible_network_reads_no_network_in_amber() {
        TestKit.setNetworks(client, []);
        compare(child("networksButton").text, "No network");
        verify(sameColour(child("networksButton").contentItem.color, Theme.amber));
        mouseClick(child("networksButton"));
        tryVerify(() => child("noNetwork") !== null && child("noNetwork").visible);
    }

    function test_popup_lists_each_network_with_its_address_and_units() {
        TestKit.setNetworks(client, [office, studio]);
        heardOnStudio("10.77.1.20", "KT4-000001");
        heardOnStudio("10.77.1.21", "KT4-000002");
        mouseClick(child("networksButton"));
        const popup = findChild(child("networksButton"), "networksPopup");
        tryVerify(() => popup.visible);
        const officeEntry = findChild(popup.contentItem, "network_office_192.168.50.20");
        const studioEntry = findChild(popup.contentItem, "network_studio_10.77.1.5");
        compare(findChild(officeEntry, "networkName").text, "office");
        compare(findChild(officeEntry, "networkAddress").text, "192.168.50.20/24");
        compare(findChild(officeEntry, "networkUnits").text, "0 unit(s)");
        compare(findChild(studioEntry, "networkAddress").text, "10.77.1.5/24");
        compare(findChild(studioEntry, "networkUnits").text, "2 unit(s)");
        keyClick(Qt.Key_Escape);
        tryVerify(() => !popup.visible);
    }

    function test_a_unit_in_its_networks_subnet_has_no_warning() {
        TestKit.setNetworks(client, [studio]);
        heardOnStudio("10.77.1.20", "KT4-000001");
        verify(!findChild(row(0), "rowWarning").visible);
        select("10.77.1.20");
        verify(!child("wrongSubnetChip").visible);
        verify(!child("addressConflictChip").visible);
        showTab(2);
        verify(!child("wrongSubnetNote").visible);
    }

    function test_wrong_subnet_row_chip_network_note_and_heard_on() {
        TestKit.setNetworks(client, [office, studio]);
        heardOnStudio("192.168.0.50", "KT4-00AA50");
        const warning = findChild(row(0), "rowWarning");
        compare(findChild(row(0), "rowAddress").text + warning.text, "192.168.0.50 \u00b7 wrong subnet");
        verify(sameColour(warning.color, Theme.amber));

        select("192.168.0.50");
        const chip = child("wrongSubnetChip");
        verify(chip.visible);
        compare(findChild(chip, "chipText").text, "Wrong subnet");
        verify(sameColour(chip.tint, Theme.amber));

        showTab(2);
        verify(child("wrongSubnetNote").visible);
        compare(child("wrongSubnetText").text,
                "Not in the subnet of studio: saves go out through studio, and the unit needs an address in 10.77.1.0/24.");
        verify(sameColour(child("wrongSubnetText").color, Theme.amber));

        showTab(3);
        const heardOn = child("detail_Heard on");
        verify(heardOn !== null);
        compare(findChild(heardOn, "detailValue").text, "studio \u00b7 10.77.1.5/24");
        compare(child("detail_Serials seen"), null);
    }

    function test_address_conflict_is_flagged_and_clears_after_15_seconds_of_one_serial() {
        TestKit.setNetworks(client, [studio]);
        heardOnStudio("10.77.1.30", "KT4-0000A1");
        heardOnStudio("10.77.1.30", "KT4-0000B2");
        compare(findChild(row(0), "rowAddress").text + findChild(row(0), "rowWarning").text,
                "10.77.1.30 \u00b7 address conflict");
        select("10.77.1.30");
        verify(child("addressConflictChip").visible);
        compare(findChild(child("addressConflictChip"), "chipText").text, "Address conflict");
        showTab(3);
        compare(findChild(child("detail_Serials seen"), "detailValue").text, "KT4-0000A1, KT4-0000B2");

        // Only the second serial answers from now on.
        TestKit.setNow(client, secondsLater(10));
        heardOnStudio("10.77.1.30", "KT4-0000B2");
        TestKit.setNow(client, secondsLater(16));
        verify(child("addressConflictChip").visible);
        TestKit.setNow(client, secondsLater(26));
        tryVerify(() => !child("addressConflictChip").visible);
        verify(!findChild(row(0), "rowWarning").visible);
        compare(child("detail_Serials seen"), null);
    }

    function test_interface_names_are_plain_text() {
        const hostile = { name: "<b>eth</b><img src=\"http://127.0.0.1:9/i.png\">", index: 9003, address: "10.77.2.5", prefixLength: 24 };
        TestKit.setNetworks(client, [hostile]);
        TestKit.ingestHeardOn(client, "10.9.9.9", { Serial: "KT4-000009" }, hostile.index, hostile.address);
        select("10.9.9.9");
        showTab(2);
        compare(child("wrongSubnetText").textFormat, Text.PlainText);
        verify(child("wrongSubnetText").text.indexOf(hostile.name) >= 0);
        mouseClick(child("networksButton"));
        const popup = findChild(child("networksButton"), "networksPopup");
        tryVerify(() => popup.visible);
        const name = findChild(popup.contentItem, "networkName");
        compare(name.text, hostile.name);
        compare(name.textFormat, Text.PlainText);
    }

    function test_a_clock_tick_keeps_the_details_cells() {
        TestKit.setNetworks(client, [studio]);
        heardOnStudio("10.77.1.20", "KT4-000001");
        select("10.77.1.20");
        showTab(3);
        const cell = child("detail_Heard on");
        verify(cell !== null);
        TestKit.setNow(client, secondsLater(1));
        TestKit.setNow(client, secondsLater(2));
        verify(child("detail_Heard on") === cell);
    }
}
