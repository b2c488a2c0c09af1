// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// Work on several units in the window: selecting them with the mouse and the
// keys, exporting all of them and restoring from a backup file, clicked
// through against vorn-sim on loopback addresses.
TestCase {
    id: testCase

    name: "FleetClickThrough"
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

    function unitConfig(ip, serial, channel) {
        return {
            IPAddress: ip, Netmask: "255.0.0.0", Gateway: "127.0.0.1", ManagerIp: "127.0.0.1",
            AtemIp: "192.168.10.240", AtemPort: "9910", SwitcherBand: "7", SwitcherModel: "0",
            AtemExtTally: "0", TallyType: "2", TallyGpioType: "1", Channel: channel, CallMagic: "studio",
            ScenarioType: "1", SilenceSuppress: "0", Wire2Enable: "0", Serial: serial, Version: "2.4.1"
        };
    }

    function init() {
        client = TestKit.makeClient();
        view = createTemporaryObject(viewComponent, testCase, { client: client });
    }

    function cleanup() {
        for (const sim of sims)
            sim.stop();
        sims = [];
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003;
    }

    function child(name) {
        return findChild(view, name);
    }

    function row(index) {
        const list = child("deviceList");
        list.forceLayout();
        return list.itemAtIndex(index);
    }

    // Units filed by hand, without a network.
    function fileUnits(count) {
        for (let i = 0; i < count; ++i) {
            const ip = "10.232.1." + (i + 1);
            TestKit.ingest(client, ip, unitConfig(ip, "KT4-00000" + (i + 1), "1"));
        }
        compare(child("deviceList").count, count);
        waitForRendering(child("deviceList"));
    }

    // One simulator per unit, each at its own loopback address; every unit is
    // found by a unicast discover.
    function simulate(units) {
        const started = [];
        for (const unit of units) {
            const sim = TestKit.startSimulatorAt(client, unit.ip, [unit]);
            verify(sim.isListening());
            started.push(sim);
        }
        sims = started;
        TestKit.startWithoutRepeats(client);
        for (const unit of units)
            client.sendDiscover(unit.ip);
        tryCompare(client, "deviceCount", units.length, 5000);
        waitForRendering(child("deviceList"));
    }

    // The window as it is now, kept as a PNG for a look.
    function shoot(name) {
        waitForRendering(view);
        grabImage(view).save(TestKit.shotPath(name));
    }

    // A backup file of `units` ({ip, config}), as the window of another
    // client that knew them would export it.
    function backupFile(name, units) {
        const other = TestKit.makeClient();
        for (const unit of units)
            TestKit.ingest(other, unit.ip, unit.config);
        const exporter = Qt.createQmlObject("import VornLink; BackupExport {}", testCase);
        exporter.client = other;
        const file = TestKit.scratchFile(name);
        verify(exporter.exportAll(file));
        exporter.destroy();
        return file;
    }

    function writesTo(index) {
        return sims[index].writes();
    }

    // ---- selecting several units ------------------------------------------

    function test_plain_click_selects_one_unit_and_shows_its_editor() {
        fileUnits(3);
        mouseClick(row(1));
        compare(view.unitSelection.current, "10.232.1.2");
        compare(view.unitSelection.count, 1);
        verify(!child("selectedUnitsLoader").active);
        verify(child("detailLoader").active);
        verify(row(1).selected);
        verify(!row(0).selected);
    }

    function test_ctrl_click_toggles_and_two_units_show_the_selected_view() {
        fileUnits(4);
        mouseClick(row(0));
        mouseClick(row(2), undefined, undefined, Qt.LeftButton, Qt.ControlModifier);
        compare(view.unitSelection.addresses, ["10.232.1.1", "10.232.1.3"]);
        verify(child("selectedUnitsLoader").active);
        compare(child("selectedCount").text, "2 unit(s) selected");
        compare(child("selectedUnitsView").editor.addresses.length, 2);
        verify(!child("detailLoader").active);
        verify(!child("emptyState").visible);
        verify(row(0).selected && row(2).selected && !row(1).selected);
        // A third unit, then the last clicked one out again: that row is not shown selected.
        mouseClick(row(3), undefined, undefined, Qt.LeftButton, Qt.ControlModifier);
        mouseClick(row(3), undefined, undefined, Qt.LeftButton, Qt.ControlModifier);
        compare(view.unitSelection.addresses, ["10.232.1.1", "10.232.1.3"]);
        verify(!row(3).selected);
        verify(view.unitSelection.current !== "10.232.1.4");
        // Ctrl+click on a selected unit takes it out again: one unit, its editor.
        mouseClick(row(0), undefined, undefined, Qt.LeftButton, Qt.ControlModifier);
        compare(view.unitSelection.addresses, ["10.232.1.3"]);
        compare(view.unitSelection.current, "10.232.1.3");
        verify(!child("selectedUnitsLoader").active);
        verify(child("detailLoader").active);
    }

    function test_shift_click_selects_the_range_from_the_last_clicked_unit() {
        fileUnits(5);
        mouseClick(row(3));
        mouseClick(row(1), undefined, undefined, Qt.LeftButton, Qt.ShiftModifier);
        compare(view.unitSelection.addresses, ["10.232.1.2", "10.232.1.3", "10.232.1.4"]);
        compare(child("selectedCount").text, "3 unit(s) selected");
        // The range keeps its start: Shift+click further down replaces it.
        mouseClick(row(4), undefined, undefined, Qt.LeftButton, Qt.ShiftModifier);
        compare(view.unitSelection.addresses, ["10.232.1.4", "10.232.1.5"]);
        // A plain click goes back to one unit.
        mouseClick(row(0));
        compare(view.unitSelection.addresses, ["10.232.1.1"]);
        verify(child("detailLoader").active);
    }

    function test_ctrl_a_selects_every_listed_unit() {
        fileUnits(4);
        mouseClick(row(0));
        verify(child("deviceList").activeFocus);
        keyClick(Qt.Key_A, Qt.ControlModifier);
        compare(view.unitSelection.count, 4);
        compare(child("selectedCount").text, "4 unit(s) selected");
        shoot("fleet-selected-units.png");
        for (let i = 0; i < 4; ++i)
            verify(row(i).selected);
    }

    function test_shift_up_and_down_extend_the_range() {
        fileUnits(5);
        mouseClick(row(1));
        keyClick(Qt.Key_Down, Qt.ShiftModifier);
        keyClick(Qt.Key_Down, Qt.ShiftModifier);
        compare(view.unitSelection.addresses, ["10.232.1.2", "10.232.1.3", "10.232.1.4"]);
        keyClick(Qt.Key_Up, Qt.ShiftModifier);
        compare(view.unitSelection.addresses, ["10.232.1.2", "10.232.1.3"]);
        keyClick(Qt.Key_Up, Qt.ShiftModifier);
        keyClick(Qt.Key_Up, Qt.ShiftModifier);
        compare(view.unitSelection.addresses, ["10.232.1.1", "10.232.1.2"]);
    }

    function test_selection_keys_do_nothing_while_a_text_field_has_the_focus() {
        fileUnits(3);
        mouseClick(row(0));
        const field = child("addressField");
        mouseClick(field);
        verify(field.activeFocus);
        keyClick(Qt.Key_A, Qt.ControlModifier);
        compare(view.unitSelection.count, 1);
    }

    function test_selection_follows_units_when_a_new_one_is_listed_before_them() {
        fileUnits(3);
        mouseClick(row(1));
        mouseClick(row(2), undefined, undefined, Qt.LeftButton, Qt.ControlModifier);
        TestKit.ingest(client, "10.232.1.0", unitConfig("10.232.1.0", "KT4-000000", "1"));
        compare(view.unitSelection.addresses, ["10.232.1.2", "10.232.1.3"]);
    }

    function test_query_ends_a_multiple_selection() {
        fileUnits(3);
        mouseClick(row(0));
        mouseClick(row(1), undefined, undefined, Qt.LeftButton, Qt.ControlModifier);
        view.manualIP = "10.232.1.9";
        view.query();
        compare(view.unitSelection.count, 0);
        compare(view.unitSelection.current, "10.232.1.9");
        verify(!child("selectedUnitsLoader").active);
    }

    // ---- export and restore -------------------------------------------------

    function test_footer_menu_offers_export_and_restore() {
        fileUnits(2);
        mouseClick(child("fleetMenuButton"));
        const menu = child("fleetMenuButton").menu;
        tryVerify(() => menu.opened);
        compare(menu.itemAt(0).text, "Export all units\u2026");
        compare(menu.itemAt(1).text, "Restore from backup\u2026");
        compare(menu.itemAt(2).text, "Scan addresses\u2026");
        shoot("fleet-footer-menu.png");
        menu.close();
    }

    function test_export_all_then_restore_round_trip() {
        simulate([{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000A1", "3") },
                  { ip: "127.0.0.4", config: unitConfig("127.0.0.4", "KT4-0000A2", "4") }]);
        const file = TestKit.scratchFile("rig.json");
        verify(view.fleet.exportTo(file));
        compare(child("fleetMessage").text, "2 unit(s) exported to " + file.toString().replace("file://", ""));
        const text = TestKit.readTextFile(file);
        verify(text.indexOf("\"format\": \"vornlink-backup\"") >= 0);

        // Both units change their channel after the export.
        client.write("127.0.0.3", { Channel: "9" });
        client.write("127.0.0.4", { Channel: "8" });
        tryVerify(() => client.deviceData("127.0.0.3").config.Channel === "9"
                  && client.deviceData("127.0.0.4").config.Channel === "8", 5000);
        const before = [writesTo(0).length, writesTo(1).length];

        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        const rows = findChild(dialog.contentItem, "restoreRows");
        compare(rows.count, 2);
        rows.forceLayout();
        compare(findChild(rows.itemAtIndex(0), "matchText").text, "matched by serial");
        compare(findChild(rows.itemAtIndex(0), "differenceLines").text, "Channel: 9 \u2192 3");
        compare(findChild(rows.itemAtIndex(1), "differenceLines").text, "Channel: 8 \u2192 4");
        compare(findChild(dialog, "restoreButton").text, "Restore 2 unit(s)");
        shoot("fleet-restore-review.png");

        mouseClick(findChild(dialog, "restoreButton"));
        const verdicts = findChild(dialog.contentItem, "verdictRows");
        tryVerify(() => verdicts.visible && verdicts.count === 2);
        tryVerify(() => view.fleet.writer.confirmed === 2, 6000);
        verdicts.forceLayout();
        compare(findChild(verdicts.itemAtIndex(0), "verdictText").text, "Saved \u00b7 confirmed");
        compare(findChild(verdicts.itemAtIndex(1), "verdictText").text, "Saved \u00b7 confirmed");
        shoot("fleet-verdicts.png");
        // One write per unit, carrying its own configuration with the channel put back.
        const after = [writesTo(0), writesTo(1)];
        compare(after[0].length - before[0], 2); // a write goes out twice
        compare(after[1].length - before[1], 2);
        const written = after[0][after[0].length - 1].config;
        compare(written.Channel, "3");
        compare(written.Serial, "KT4-0000A1");
        compare(written.IPAddress, "127.0.0.3");
        compare(after[1][after[1].length - 1].config.Channel, "4");
        compare(client.deviceData("127.0.0.3").config.Channel, "3");
    }

    function test_restore_by_serial_after_a_unit_moved_address() {
        // The file knows the unit at 127.0.0.9; it answers at 127.0.0.5 now.
        const other = TestKit.makeClient();
        TestKit.ingest(other, "127.0.0.9", unitConfig("127.0.0.9", "KT4-0000B7", "6"));
        const exporter = Qt.createQmlObject("import VornLink; BackupExport {}", testCase);
        exporter.client = other;
        const file = TestKit.scratchFile("moved.json");
        verify(exporter.exportAll(file));
        exporter.destroy();

        simulate([{ ip: "127.0.0.5", config: unitConfig("127.0.0.5", "KT4-0000B7", "2") }]);
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        const rows = findChild(dialog.contentItem, "restoreRows");
        compare(rows.count, 1);
        rows.forceLayout();
        compare(findChild(rows.itemAtIndex(0), "matchText").text, "matched by serial, now at 127.0.0.5");
        // The network keys differ too, but are left out.
        compare(findChild(rows.itemAtIndex(0), "differenceLines").text, "Channel: 2 \u2192 6");
        verify(findChild(rows.itemAtIndex(0), "heldBackLines").visible);
        mouseClick(findChild(dialog, "restoreButton"));
        tryVerify(() => view.fleet.writer.confirmed === 1, 6000);
        const writes = writesTo(0);
        const last = writes[writes.length - 1].config;
        compare(last.Channel, "6");
        compare(last.IPAddress, "127.0.0.5");
    }

    function test_another_serial_at_the_files_address_is_restored_only_when_ticked() {
        // The file's unit KT4-0000Z9 is gone; KT4-0000D1 answers at its address.
        const file = backupFile("replaced.json", [{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000Z9", "6") }]);
        simulate([{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000D1", "2") }]);
        const before = writesTo(0).length;
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        const rows = findChild(dialog.contentItem, "restoreRows");
        compare(rows.count, 1);
        rows.forceLayout();
        const item = rows.itemAtIndex(0);
        compare(findChild(item, "matchText").text, "Another unit answers at 127.0.0.3 (serial KT4-0000D1)");
        compare(findChild(item, "differenceLines").text, "Channel: 2 \u2192 6");
        const box = findChild(item, "restoreCheck");
        const allow = findChild(item, "allowOtherUnit");
        verify(allow.visible);
        compare(allow.text, "Restore onto this other unit");
        verify(!allow.checked);
        verify(!box.checked);
        verify(!box.enabled);
        verify(!findChild(dialog, "restoreButton").enabled);
        compare(dialog.review.checkedCount, 0);
        shoot("fleet-restore-other-unit.png");
        // Nothing goes out while the row is not allowed.
        mouseClick(findChild(dialog, "restoreButton"));
        wait(300);
        compare(writesTo(0).length, before);

        mouseClick(allow);
        verify(allow.checked);
        verify(box.checked);
        verify(box.enabled);
        compare(dialog.review.checkedCount, 1);
        verify(findChild(dialog, "restoreButton").enabled);
        mouseClick(findChild(dialog, "restoreButton"));
        tryVerify(() => view.fleet.writer.confirmed === 1, 6000);
        const writes = writesTo(0);
        compare(writes.length - before, 2);
        compare(writes[writes.length - 1].config.Channel, "6");
        compare(writes[writes.length - 1].config.Serial, "KT4-0000D1");
    }

    function test_a_unit_at_the_address_without_a_serial_matches_by_address() {
        const file = backupFile("anonymous.json", [{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000Z9", "6") }]);
        const live = unitConfig("127.0.0.3", "", "2");
        delete live.Serial;
        simulate([{ ip: "127.0.0.3", config: live }]);
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        const rows = findChild(dialog.contentItem, "restoreRows");
        rows.forceLayout();
        compare(findChild(rows.itemAtIndex(0), "matchText").text, "matched by address");
        verify(!findChild(rows.itemAtIndex(0), "allowOtherUnit").visible);
        verify(findChild(rows.itemAtIndex(0), "restoreCheck").checked);
        compare(dialog.review.checkedCount, 1);
    }

    function test_including_network_settings_asks_once_before_writing() {
        const other = TestKit.makeClient();
        TestKit.ingest(other, "127.0.0.9", Object.assign(unitConfig("127.0.0.9", "KT4-0000C1", "2"),
                                                          { Gateway: "127.0.0.254" }));
        const exporter = Qt.createQmlObject("import VornLink; BackupExport {}", testCase);
        exporter.client = other;
        const file = TestKit.scratchFile("network.json");
        verify(exporter.exportAll(file));
        exporter.destroy();

        simulate([{ ip: "127.0.0.6", config: unitConfig("127.0.0.6", "KT4-0000C1", "2") }]);
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        // Without network settings nothing differs.
        compare(findChild(dialog, "restoreButton").text, "Restore 0 unit(s)");
        verify(!findChild(dialog, "restoreButton").enabled);
        mouseClick(findChild(dialog, "includeNetwork"));
        compare(findChild(dialog, "restoreButton").text, "Restore 1 unit(s)");
        const rows = findChild(dialog.contentItem, "restoreRows");
        rows.forceLayout();
        compare(findChild(rows.itemAtIndex(0), "differenceLines").text,
                "IPAddress: 127.0.0.6 \u2192 127.0.0.9\nGateway: 127.0.0.1 \u2192 127.0.0.254");
        const sent = writesTo(0).length;
        mouseClick(findChild(dialog, "restoreButton"));
        const confirm = findChild(dialog, "restoreNetworkConfirm");
        tryVerify(() => confirm.opened);
        compare(confirm.title, "Apply network settings to 1 unit(s)?");
        shoot("fleet-network-confirm.png");
        compare(confirm.message, "127.0.0.6 \u2014 New: IP 127.0.0.9, mask 255.0.0.0, gateway 127.0.0.254.\n\n"
                + "If the IP changes, the unit reappears in the list under its new address. "
                + "A wrong value can strip it off-network (serial DB9 recovery).");
        // Cancel writes nothing.
        mouseClick(findChild(confirm, "networkCancelButton"));
        tryVerify(() => !confirm.visible);
        wait(300);
        compare(writesTo(0).length, sent);
        // Apply writes, and the unit answers from its new address.
        mouseClick(findChild(dialog, "restoreButton"));
        tryVerify(() => confirm.opened);
        mouseClick(findChild(confirm, "networkApplyButton"));
        tryVerify(() => writesTo(0).length === sent + 2, 3000);
        const verdicts = findChild(dialog.contentItem, "verdictRows");
        tryVerify(() => verdicts.count === 1 && view.fleet.writer.waiting === 0, 6000);
        verdicts.forceLayout();
        compare(findChild(verdicts.itemAtIndex(0), "verdictText").text, "Moved to 127.0.0.9");
    }

    function test_a_malformed_file_is_refused_and_nothing_is_sent() {
        simulate([{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000D1", "3") }]);
        const file = TestKit.scratchFile("broken.json");
        verify(TestKit.writeTextFile(file, "{\"format\": \"vornlink-backup\", \"version\": 1, \"units\": ["));
        const sent = sims[0].datagrams().length;
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        const error = findChild(dialog.contentItem, "restoreError");
        verify(error.visible);
        verify(error.text.indexOf("broken.json: file: not valid JSON") >= 0, error.text);
        verify(!findChild(dialog.contentItem, "restoreRows").visible);
        shoot("fleet-refused-file.png");
        const button = findChild(dialog, "restoreButton");
        verify(!button.enabled);
        mouseClick(button);
        view.fleet.review.restore(view.fleet.writer);
        wait(500);
        compare(sims[0].datagrams().length, sent);
        compare(view.fleet.writer.count, 0);
        compare(client.deviceData("127.0.0.3").config.Channel, "3");
    }

    function test_a_missing_file_is_named_as_unreadable() {
        fileUnits(1);
        const file = TestKit.scratchFile("nowhere/rig.json");
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        verify(findChild(dialog.contentItem, "restoreError").text.endsWith("rig.json: cannot be read"));
    }

    function test_an_export_that_cannot_be_written_says_so() {
        fileUnits(1);
        verify(!view.fleet.exportTo(TestKit.scratchFile("nowhere/rig.json")));
        verify(child("fleetMessage").text.endsWith("rig.json cannot be written"));
        verify(sameColour(child("fleetMessage").color, Theme.tally));
    }

    function test_units_of_the_file_that_do_not_answer_are_listed_not_found() {
        const other = TestKit.makeClient();
        TestKit.ingest(other, "127.0.0.3", unitConfig("127.0.0.3", "KT4-0000E1", "5"));
        TestKit.ingest(other, "127.0.0.8", unitConfig("127.0.0.8", "KT4-0000E2", "5"));
        const exporter = Qt.createQmlObject("import VornLink; BackupExport {}", testCase);
        exporter.client = other;
        const file = TestKit.scratchFile("partial.json");
        verify(exporter.exportAll(file));
        exporter.destroy();

        simulate([{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000E1", "3") }]);
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        const rows = findChild(dialog.contentItem, "restoreRows");
        compare(rows.count, 2);
        rows.forceLayout();
        compare(findChild(rows.itemAtIndex(1), "matchText").text, "not found");
        verify(!findChild(rows.itemAtIndex(1), "restoreCheck").visible);
        compare(findChild(dialog, "restoreButton").text, "Restore 1 unit(s)");
        // Unticking the found unit leaves nothing to restore.
        const box = findChild(rows.itemAtIndex(0), "restoreCheck");
        mouseClick(box);
        compare(findChild(dialog, "restoreButton").text, "Restore 0 unit(s)");
        verify(!findChild(dialog, "restoreButton").enabled);
    }

    // data/vornctl-backup.json was written by "vornctl backup" against vorn-sim
    // on the LAN harness (units 10.232.1.1 and 10.232.1.2).
    function test_a_file_from_vornctl_backup_opens_in_the_review() {
        simulate([{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000F1", "7") },
                  { ip: "127.0.0.4", config: unitConfig("127.0.0.4", "KT4-0000F2", "4") }]);
        view.fleet.reviewFile(Qt.resolvedUrl("data/vornctl-backup.json"));
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        compare(findChild(dialog.contentItem, "restoreError").visible, false);
        const rows = findChild(dialog.contentItem, "restoreRows");
        compare(rows.count, 2);
        rows.forceLayout();
        compare(findChild(rows.itemAtIndex(0), "unitName").text, "KT4-0000F1  \u00b7  10.232.1.1");
        compare(findChild(rows.itemAtIndex(0), "matchText").text, "matched by serial, now at 127.0.0.3");
        compare(findChild(rows.itemAtIndex(0), "differenceLines").text, "Channel: 7 \u2192 3");
        compare(findChild(rows.itemAtIndex(1), "differenceLines").text, "Equal: nothing to restore");
        verify(!findChild(rows.itemAtIndex(1), "restoreCheck").enabled);
        compare(findChild(dialog, "restoreButton").text, "Restore 1 unit(s)");
        mouseClick(findChild(dialog, "restoreButton"));
        tryVerify(() => view.fleet.writer.confirmed === 1, 6000);
        compare(client.deviceData("127.0.0.3").config.Channel, "3");
        compare(writesTo(1).length, 0);
    }

    // data/window-export.json is what "Export all units" writes for this unit;
    // the vornctl LAN tests restore it with "vornctl restore".
    function test_export_writes_the_file_vornctl_restores() {
        TestKit.ingest(client, "10.232.1.1", { Serial: "KT-AAA111", Version: "2.1.4", IPAddress: "10.232.1.1",
                                               Channel: "9", TallyType: "2", CallMagic: "1234" });
        const file = TestKit.scratchFile("export.json");
        verify(view.fleet.exportTo(file));
        const taken = /"taken": "[^"]*"/;
        const written = TestKit.readTextFile(file);
        verify(taken.test(written));
        compare(written.replace(taken, "\"taken\": \"\""),
                TestKit.readTextFile(Qt.resolvedUrl("data/window-export.json")).replace(taken, "\"taken\": \"\""));
    }

    function test_menu_entries_open_the_file_dialogs() {
        fileUnits(1);
        mouseClick(child("fleetMenuButton"));
        const menu = child("fleetMenuButton").menu;
        tryVerify(() => menu.opened);
        mouseClick(menu.itemAt(0));
        tryVerify(() => view.fleet.exportDialog.shown);
        shoot("fleet-export-dialog.png");
        view.fleet.exportDialog.close();
        tryVerify(() => !view.fleet.exportDialog.shown);
        mouseClick(child("fleetMenuButton"));
        tryVerify(() => menu.opened);
        mouseClick(menu.itemAt(1));
        tryVerify(() => view.fleet.restoreDialog.shown);
        view.fleet.restoreDialog.close();
        // Nothing was exported or opened.
        compare(child("fleetMessage").text, "");
        compare(child("restoreReview"), null);
    }

    function test_each_unit_of_a_restore_gets_its_own_verdict() {
        const file = backupFile("three.json", [
            { ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000G1", "6") },
            { ip: "127.0.0.4", config: unitConfig("127.0.0.4", "KT4-0000G2", "6") },
            { ip: "127.0.0.5", config: unitConfig("127.0.0.5", "KT4-0000G3", "6") }]);
        const units = [{ ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000G1", "1") },
                       { ip: "127.0.0.4", config: unitConfig("127.0.0.4", "KT4-0000G2", "1"), ignoreWrites: true },
                       { ip: "127.0.0.5", config: unitConfig("127.0.0.5", "KT4-0000G3", "1"), silent: true }];
        const started = [];
        for (const unit of units)
            started.push(TestKit.startSimulatorAt(client, unit.ip, [unit]));
        sims = started;
        TestKit.startWithoutRepeats(client);
        // The silent unit is filed by hand, as if it had answered before it fell silent.
        TestKit.ingest(client, "127.0.0.5", units[2].config);
        client.sendDiscover("127.0.0.3");
        client.sendDiscover("127.0.0.4");
        tryCompare(client, "deviceCount", 3, 5000);

        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        compare(findChild(dialog, "restoreButton").text, "Restore 3 unit(s)");
        mouseClick(findChild(dialog, "restoreButton"));
        const verdicts = findChild(dialog.contentItem, "verdictRows");
        tryVerify(() => verdicts.count === 3 && verdicts.itemAtIndex(2) !== null);
        compare(findChild(verdicts.itemAtIndex(2), "verdictText").text, "Waiting for the unit\u2026");
        tryVerify(() => view.fleet.writer.waiting === 0, 8000);
        verdicts.forceLayout();
        compare(findChild(verdicts.itemAtIndex(0), "verdictText").text, "Saved \u00b7 confirmed");
        compare(findChild(verdicts.itemAtIndex(1), "verdictText").text, "Not confirmed: Channel");
        compare(findChild(verdicts.itemAtIndex(2), "verdictText").text, "No answer after saving");
        compare(view.fleet.writer.confirmed, 1);
        compare(findChild(dialog, "reviewTitle").text, "Restored 3 unit(s): 1 confirmed");
        shoot("fleet-verdicts-mixed.png");
        // Every unit got exactly one write (sent twice), the silent one too.
        for (let i = 0; i < 3; ++i) {
            const writes = writesTo(i);
            compare(writes.length, 2);
            compare(writes[0].config.Channel, "6");
            compare(writes[0].config.Serial, units[i].config.Serial);
        }
    }

    function test_a_unit_whose_own_values_cannot_be_written_is_listed_not_written() {
        const file = backupFile("refused.json", [{ ip: "127.0.0.7", config: unitConfig("127.0.0.7", "KT4-0000H1", "6") }]);
        // The unit reports a manager address with a line break, which every
        // write would carry unchanged (a restore does not touch ManagerIp).
        const probe = TestKit.makeProbe(client, "127.0.0.7");
        TestKit.ingest(client, "127.0.0.7", Object.assign(unitConfig("127.0.0.7", "KT4-0000H1", "1"),
                                                          { ManagerIp: "a\nIPAddress:10.9.9.9" }));
        view.fleet.reviewFile(file);
        const dialog = child("restoreReview");
        tryVerify(() => dialog.opened);
        const rows = findChild(dialog.contentItem, "restoreRows");
        tryVerify(() => rows.itemAtIndex(0) !== null);
        compare(findChild(rows.itemAtIndex(0), "differenceLines").text,
                "Channel: 1 \u2192 6");
        mouseClick(findChild(dialog, "restoreButton"));
        const verdicts = findChild(dialog.contentItem, "verdictRows");
        tryVerify(() => verdicts.count === 1 && verdicts.itemAtIndex(0) !== null);
        verify(findChild(verdicts.itemAtIndex(0), "verdictText").text.startsWith("Not written: "));
        compare(probe.totalAfter(500), 0);
    }
}
