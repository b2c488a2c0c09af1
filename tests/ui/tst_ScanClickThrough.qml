// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// "Scan addresses…" from the sidebar footer's menu, clicked through against
// vorn-sim on loopback addresses: a block is asked address by address, with a
// progress bar and Cancel, and ends with how many units answered.
TestCase {
    id: testCase

    name: "ScanClickThrough"
    when: windowShown
    visible: true
    width: 1040
    height: 680

    property VornClient client
    property var sims: []
    property var view

    Component {
        id: viewComponent

        ContentView {
            width: 1040
            height: 680
        }
    }

    function unitConfig(ip, serial) {
        return {
            IPAddress: ip, Netmask: "255.0.0.0", Gateway: "127.0.0.1", ManagerIp: "127.0.0.1",
            AtemIp: "192.168.10.240", AtemPort: "9910", SwitcherBand: "7", SwitcherModel: "0",
            AtemExtTally: "0", TallyType: "2", TallyGpioType: "1", Channel: "3", CallMagic: "studio",
            ScenarioType: "1", SilenceSuppress: "0", Wire2Enable: "0", Serial: serial, Version: "2.4.1"
        };
    }

    function init() {
        client = TestKit.makeClient();
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        TestKit.startWithoutRepeats(client);
    }

    function cleanup() {
        for (const sim of sims)
            sim.stop();
        sims = [];
    }

    function child(name) {
        return findChild(view, name);
    }

    function shoot(name) {
        waitForRendering(view);
        grabImage(view).save(TestKit.shotPath(name));
    }

    // Units at loopback addresses that no broadcast of the client reaches:
    // only a unicast to their own address finds them.
    function simulate(addresses) {
        const started = [];
        for (let i = 0; i < addresses.length; ++i) {
            const sim = TestKit.startSimulatorAt(client, addresses[i], [
                { ip: addresses[i], config: unitConfig(addresses[i], "KT4-SCAN0" + (i + 1)) }
            ]);
            verify(sim.isListening());
            started.push(sim);
        }
        sims = started;
    }

    // Opens the dialog from the footer's menu, as a user does.
    function openScanDialog() {
        mouseClick(child("fleetMenuButton"));
        const menu = child("fleetMenuButton").menu;
        tryVerify(() => menu.opened);
        mouseClick(findChild(menu.contentItem, "scanItem") || menu.itemAt(2));
        tryVerify(() => view.fleet.scanDialog !== null && view.fleet.scanDialog.opened);
        return view.fleet.scanDialog;
    }

    function typeBlock(dialog, text) {
        const field = findChild(dialog.contentItem, "scanBlockField");
        if (!field.activeFocus)
            mouseClick(field);
        verify(field.activeFocus);
        field.selectAll();
        for (const character of text)
            keyClick(character);
        compare(field.text, text);
    }

    function scanButton(dialog) {
        return findChild(dialog.footer, "scanStartButton");
    }

    function message(dialog) {
        return findChild(dialog.contentItem, "scanMessage");
    }

    function test_the_dialog_is_made_on_first_use() {
        compare(view.fleet.scanDialog, null);
        const dialog = openScanDialog();
        compare(dialog.header.text, "Scan addresses");
        verify(findChild(dialog.contentItem, "scanBlockField").activeFocus);
        verify(!scanButton(dialog).enabled);
        verify(!message(dialog).visible);
        shoot("scan-dialog-empty.png");
    }

    function test_a_scan_finds_the_units_of_the_block_and_says_how_many() {
        simulate(["127.0.5.10", "127.0.5.20"]);
        const dialog = openScanDialog();
        typeBlock(dialog, "127.0.5.0/24");
        mouseClick(scanButton(dialog));
        verify(view.fleet.scanner.running);
        compare(view.fleet.scanner.total, 254);
        verify(findChild(dialog.contentItem, "scanProgress").visible);
        compare(findChild(dialog.footer, "scanCancelButton").text, "Cancel");
        tryCompare(view.fleet.scanner, "running", false, 10000);
        compare(view.fleet.scanner.sent, 254);
        compare(message(dialog).text, "Found 2 unit(s)");
        verify(!findChild(dialog.contentItem, "scanProgress").visible);
        compare(client.deviceCount, 2);
        verify(client.contains("127.0.5.10"));
        verify(client.contains("127.0.5.20"));
        shoot("scan-dialog-found.png");
    }

    // The count goes through qsTr's plural form; without a translation
    // loaded it reads "unit(s)" as every count of units in the window does.
    function test_one_unit_found_is_counted_and_return_starts_the_scan() {
        simulate(["127.0.5.40"]);
        const dialog = openScanDialog();
        typeBlock(dialog, "127.0.5.30-127.0.5.50");
        keyClick(Qt.Key_Return);
        tryCompare(view.fleet.scanner, "running", false, 10000);
        compare(message(dialog).text, "Found 1 unit(s)");
    }

    function test_a_block_larger_than_the_limit_is_refused_with_why() {
        const dialog = openScanDialog();
        typeBlock(dialog, "10.78.0.0/16");
        mouseClick(scanButton(dialog));
        verify(!view.fleet.scanner.running);
        compare(message(dialog).text, "That is 65536 addresses; at most 4096 can be scanned at once");
        verify(!findChild(dialog.contentItem, "scanProgress").visible);
        shoot("scan-dialog-too-large.png");
    }

    function test_a_reversed_range_and_text_that_is_no_block_are_refused() {
        const dialog = openScanDialog();
        typeBlock(dialog, "10.78.5.99-10.78.5.10");
        mouseClick(scanButton(dialog));
        compare(message(dialog).text, "The range ends before it starts");
        typeBlock(dialog, "studio");
        mouseClick(scanButton(dialog));
        compare(message(dialog).text, "Type a block such as 10.78.5.0/24 or a range such as 10.78.5.10-10.78.5.99");
    }

    function test_cancel_stops_the_scan_before_its_end() {
        const dialog = openScanDialog();
        typeBlock(dialog, "127.0.16.0-127.0.31.255");
        mouseClick(scanButton(dialog));
        verify(view.fleet.scanner.running);
        compare(view.fleet.scanner.total, 4096);
        shoot("scan-dialog-running.png");
        mouseClick(findChild(dialog.footer, "scanCancelButton"));
        verify(!view.fleet.scanner.running);
        const sentAtCancel = view.fleet.scanner.sent;
        verify(sentAtCancel < 4096);
        wait(300);
        compare(view.fleet.scanner.sent, sentAtCancel);
        compare(message(dialog).text, "");
        compare(findChild(dialog.footer, "scanCancelButton").text, "Close");
    }

    function test_closing_the_dialog_cancels_a_running_scan() {
        const dialog = openScanDialog();
        typeBlock(dialog, "127.0.16.0-127.0.31.255");
        mouseClick(scanButton(dialog));
        verify(view.fleet.scanner.running);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !dialog.opened);
        verify(!view.fleet.scanner.running);
    }
}
