// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// The editor of several units and one unit's export and import, clicked
// through against vorn-sim on loopback addresses: "Mixed" where the units
// differ, a batch save that writes each unit its own configuration with only
// the changed keys over it, the verdict of each, and a file round trip.
TestCase {
    id: testCase

    name: "MultiEditorClickThrough"
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

    // Three units on channels 1, 2 and 3; the third also at scene level 3,
    // tally type 5 and with Wire2 on.
    function threeUnits() {
        return [
            { ip: "127.0.0.3", config: unitConfig("127.0.0.3", "KT4-0000M1", "1") },
            { ip: "127.0.0.4", config: unitConfig("127.0.0.4", "KT4-0000M2", "2") },
            { ip: "127.0.0.5", config: Object.assign(unitConfig("127.0.0.5", "KT4-0000M3", "3"),
                                                     { ScenarioType: "3", TallyType: "5", Wire2Enable: "1" }) }
        ];
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

    function child(name) {
        return findChild(view, name);
    }

    function row(index) {
        const list = child("deviceList");
        list.forceLayout();
        return list.itemAtIndex(index);
    }

    function multi(name) {
        return findChild(child("selectedUnitsView"), name);
    }

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

    function shoot(name) {
        waitForRendering(view);
        grabImage(view).save(TestKit.shotPath(name));
    }

    function selectAll(count) {
        mouseClick(row(0));
        for (let i = 1; i < count; ++i)
            mouseClick(row(i), undefined, undefined, Qt.LeftButton, Qt.ControlModifier);
        verify(child("selectedUnitsLoader").active);
        compare(child("selectedCount").text, count + " unit(s) selected");
    }

    // Clicks into the form row `name` and types `text` over what it holds.
    function typeInto(name, text) {
        const field = multi(name).field;
        mouseClick(field);
        verify(field.activeFocus);
        field.selectAll();
        keyClick(Qt.Key_Delete);
        for (const character of text)
            keyClick(character);
    }

    // The last write a unit received (a write goes out twice, both copies alike).
    function lastWrite(index) {
        const writes = sims[index].writes();
        return writes.length > 0 ? writes[writes.length - 1].config : null;
    }

    function test_fields_the_units_differ_on_show_mixed() {
        simulate(threeUnits());
        selectAll(3);
        const channel = multi("channelField");
        compare(channel.text, "");
        compare(channel.field.placeholderText, "Mixed");
        compare(multi("passwordField").text, "studio");
        compare(multi("atemIpField").text, "192.168.10.240");
        compare(findChild(multi("scenePicker"), "pickerText").text, "Mixed");
        compare(findChild(multi("suppressPicker"), "pickerText").text, "0 \u00b7 Off");
        compare(findChild(multi("tallyTypeStepper"), "stepperTitle").text, "Mixed");
        compare(findChild(multi("gpioTypeStepper"), "stepperTitle").text, "gpio 1");
        verify(multi("wire2Toggle").mixed);
        // Not the network: addresses are per unit.
        compare(findChild(child("selectedUnitsView"), "networkPanel"), null);
        verify(!multi("multiSaveButton").enabled);
        verify(!multi("multiReloadButton").enabled);
        compare(multi("multiSaveButton").text, "Save to 3 unit(s)");
        shoot("multi-editor-mixed.png");
    }

    function test_first_step_of_a_mixed_stepper_starts_from_the_first_selected_unit() {
        // Tally types 2, 2 and 5: the first unit in list order holds 2.
        simulate(threeUnits());
        selectAll(3);
        const stepper = multi("tallyTypeStepper");
        compare(findChild(stepper, "stepperTitle").text, "Mixed");
        const before = sims.map(sim => sim.writes().length);
        mouseClick(findChild(stepper, "increase"));
        compare(findChild(stepper, "stepperTitle").text, "type 3");
        verify(multi("multiSaveButton").enabled);
        shoot("multi-editor-mixed-stepped.png");
        mouseClick(multi("multiSaveButton"));
        for (let i = 0; i < 3; ++i)
            tryVerify(() => sims[i].writes().length > before[i], 3000);
        for (let i = 0; i < 3; ++i)
            compare(lastWrite(i).TallyType, "3", "unit " + i);
    }

    function test_a_missing_level_and_its_default_are_not_mixed() {
        const units = threeUnits();
        delete units[0].config.ScenarioType;
        units.pop();
        simulate(units);
        selectAll(2);
        compare(findChild(multi("scenePicker"), "pickerText").text, "1 \u00b7 Most scenes (speak loudly)");
    }

    function test_batch_save_writes_only_the_changed_keys_to_each_unit() {
        const units = threeUnits();
        simulate(units);
        selectAll(3);
        const before = sims.map(sim => sim.writes().length);
        typeInto("channelField", "7");
        typeInto("passwordField", "show");
        verify(multi("multiSaveButton").enabled);
        mouseClick(multi("multiSaveButton"));
        for (let i = 0; i < 3; ++i)
            tryVerify(() => sims[i].writes().length > before[i], 3000);
        // Each unit its own configuration, with only Channel and CallMagic changed.
        for (let i = 0; i < 3; ++i) {
            const written = lastWrite(i);
            const expected = Object.assign({}, units[i].config, { Channel: "7", CallMagic: "show" });
            for (const key of TestKit.writeKeys())
                compare(written[key], expected[key], units[i].ip + " " + key);
        }
        const verdicts = multi("batchVerdicts");
        tryVerify(() => verdicts.count === 3 && child("selectedUnitsView").editor.writer.waiting === 0, 6000);
        verdicts.forceLayout();
        for (let i = 0; i < 3; ++i)
            compare(findChild(verdicts.itemAtIndex(i), "verdictText").text, "Saved \u00b7 confirmed");
        compare(multi("batchProgress").text, "3 of 3 unit(s) confirmed");
        // The replies carry the new values: nothing left to save.
        tryVerify(() => !multi("multiSaveButton").enabled);
        shoot("multi-editor-verdicts.png");
    }

    function test_the_verdicts_stay_readable_with_the_pointer_left_on_save_to_n_units() {
        simulate(threeUnits());
        selectAll(3);
        typeInto("channelField", "7");
        const save = multi("multiSaveButton");
        mouseMove(save);
        mouseClick(save);
        const verdicts = multi("batchVerdicts");
        tryVerify(() => verdicts.count === 3 && child("selectedUnitsView").editor.writer.waiting === 0, 6000);
        wait(Theme.toolTipDelay + 200);
        verify(multi("batchProgress").visible);
        compare(multi("batchProgress").text, "3 of 3 unit(s) confirmed");
        compare(Covering.popupsOver(multi("batchProgress")), []);
        compare(Covering.popupsOver(verdicts), []);
    }

    function test_a_unit_that_already_holds_the_value_is_not_written() {
        simulate(threeUnits());
        selectAll(3);
        const before = sims.map(sim => sim.writes().length);
        typeInto("channelField", "2");
        mouseClick(multi("multiSaveButton"));
        tryVerify(() => sims[0].writes().length > before[0] && sims[2].writes().length > before[2], 3000);
        wait(300);
        compare(sims[1].writes().length, before[1]);
        const verdicts = multi("batchVerdicts");
        tryVerify(() => child("selectedUnitsView").editor.writer.waiting === 0, 6000);
        verdicts.forceLayout();
        compare(findChild(verdicts.itemAtIndex(1), "verdictText").text, "Nothing to change");
    }

    function test_save_is_disabled_while_a_changed_field_is_invalid() {
        simulate(threeUnits());
        selectAll(3);
        typeInto("channelField", "7");
        verify(multi("multiSaveButton").enabled);
        // A line break cannot travel in a unit's value.
        child("selectedUnitsView").editor.communication.textField("CallMagic").text = "two\nlines";
        verify(!multi("multiSaveButton").enabled);
        const before = sims.map(sim => sim.writes().length);
        mouseClick(multi("multiSaveButton"));
        wait(300);
        compare(sims.map(sim => sim.writes().length), before);
        typeInto("passwordField", "one");
        verify(multi("multiSaveButton").enabled);
        verify(multi("multiReloadButton").enabled);
        // Reload drops the changes: the units' values again, Mixed where they differ.
        mouseClick(multi("multiReloadButton"));
        compare(multi("channelField").text, "");
        compare(multi("channelField").field.placeholderText, "Mixed");
        compare(multi("passwordField").text, "studio");
        verify(!multi("multiSaveButton").enabled);
        verify(!multi("multiReloadButton").enabled);
    }

    function test_export_then_import_round_trip() {
        simulate([{ ip: "127.0.0.6", config: unitConfig("127.0.0.6", "KT4-0000X1", "4") }]);
        mouseClick(row(0));
        const detail = child("detailLoader");
        tryVerify(() => detail.item !== null);
        const menuButton = findChild(detail.item, "editorMenuButton");
        mouseClick(menuButton);
        tryVerify(() => menuButton.menu.opened);
        shoot("editor-file-menu.png");
        menuButton.menu.close();
        tryVerify(() => !menuButton.menu.visible);
        const file = TestKit.scratchFile("one-unit.json");
        verify(menuButton.exportTo(file));
        verify(TestKit.readTextFile(file).indexOf("\"KT4-0000X1\"") >= 0);

        // The unit is changed, then the file puts the old values back in the editor.
        const editor = detail.item.editor;
        editor.communication.textField("Channel").text = "9";
        mouseClick(findChild(detail.item, "saveButton"));
        tryVerify(() => client.deviceData("127.0.0.6").config.Channel === "9", 5000);
        verify(menuButton.importFrom(file));
        compare(findChild(detail.item, "channelField").text, "4");
        verify(findChild(detail.item, "unsavedMark").visible);
        verify(findChild(detail.item, "transferMessage").visible);
        const sent = sims[0].writes().length;
        wait(200);
        compare(sims[0].writes().length, sent);
        mouseClick(findChild(detail.item, "saveButton"));
        tryVerify(() => sims[0].writes().length > sent, 3000);
        compare(lastWrite(0).Channel, "4");
        tryVerify(() => client.deviceData("127.0.0.6").config.Channel === "4", 5000);
    }

    // data/vornctl-backup.json was written by "vornctl backup" (units
    // KT4-0000F1 on channel 3 and KT4-0000F2 on channel 4): the editor takes
    // the unit with its own serial from it.
    function test_import_takes_this_units_serial_from_a_vornctl_backup() {
        simulate([{ ip: "127.0.0.8", config: unitConfig("127.0.0.8", "KT4-0000F2", "9") }]);
        mouseClick(row(0));
        const detail = child("detailLoader");
        tryVerify(() => detail.item !== null);
        verify(findChild(detail.item, "editorMenuButton").importFrom(Qt.resolvedUrl("data/vornctl-backup.json")));
        compare(findChild(detail.item, "channelField").text, "4");
        verify(findChild(detail.item, "unsavedMark").visible);
        // The file's address is another one: the network fields take it, for Apply only.
        compare(findChild(detail.item, "ipAddrField").text, "10.232.1.2");
        verify(findChild(detail.item, "applyNetworkButton").enabled);
        verify(findChild(detail.item, "saveButton").enabled);
    }

    function test_import_of_another_units_file_waits_for_the_users_word_and_lists_skipped_keys() {
        simulate([{ ip: "127.0.0.7", config: unitConfig("127.0.0.7", "KT4-0000Y1", "4") }]);
        const other = TestKit.makeClient();
        TestKit.ingest(other, "10.1.1.1", Object.assign(unitConfig("10.1.1.1", "KT4-0000Z1", "8"),
                                                        { ManagerIp: "10.1.1.250", SilenceThreshold: "30" }));
        const exporter = Qt.createQmlObject("import VornLink; BackupExport {}", testCase);
        exporter.client = other;
        const file = TestKit.scratchFile("another-unit.json");
        verify(exporter.exportAll(file));
        exporter.destroy();

        mouseClick(row(0));
        const detail = child("detailLoader");
        tryVerify(() => detail.item !== null);
        const menuButton = findChild(detail.item, "editorMenuButton");
        const message = findChild(detail.item, "transferMessage");
        const anyway = findChild(detail.item, "importOtherUnitButton");
        verify(!anyway.visible);
        verify(!menuButton.importFrom(file));
        const path = file.toString().replace("file://", "");
        compare(message.text, path + " holds the settings of another unit (serial KT4-0000Z1); this unit reports "
                + "serial KT4-0000Y1");
        verify(anyway.visible);
        compare(anyway.text, "Import onto this other unit");
        compare(findChild(detail.item, "channelField").text, "4");
        verify(!findChild(detail.item, "unsavedMark").visible);
        shoot("editor-import-other-unit.png");

        mouseClick(anyway);
        verify(!anyway.visible);
        compare(findChild(detail.item, "channelField").text, "8");
        verify(findChild(detail.item, "unsavedMark").visible);
        compare(message.text, "Settings of KT4-0000Z1 loaded from " + path + ": review them, then save\n"
                + "Not imported (no field here): ManagerIp, SilenceThreshold");
        shoot("editor-import-skipped-keys.png");
        const sent = sims[0].writes().length;
        wait(200);
        compare(sims[0].writes().length, sent);
    }

    function test_import_of_a_file_without_this_unit_changes_nothing() {
        simulate([{ ip: "127.0.0.7", config: unitConfig("127.0.0.7", "KT4-0000Y1", "4") }]);
        const other = TestKit.makeClient();
        TestKit.ingest(other, "10.1.1.1", unitConfig("10.1.1.1", "KT4-0000Z1", "8"));
        TestKit.ingest(other, "10.1.1.2", unitConfig("10.1.1.2", "KT4-0000Z2", "9"));
        const exporter = Qt.createQmlObject("import VornLink; BackupExport {}", testCase);
        exporter.client = other;
        const file = TestKit.scratchFile("others.json");
        verify(exporter.exportAll(file));
        exporter.destroy();

        mouseClick(row(0));
        const detail = child("detailLoader");
        tryVerify(() => detail.item !== null);
        const menuButton = findChild(detail.item, "editorMenuButton");
        verify(!menuButton.importFrom(file));
        const message = findChild(detail.item, "transferMessage");
        verify(message.visible);
        verify(message.text.indexOf("KT4-0000Y1") >= 0, message.text);
        shoot("editor-import-refused.png");
        compare(detail.item.editor.communication.textField("Channel").text, "4");
        verify(!findChild(detail.item, "unsavedMark").visible);

        const broken = TestKit.scratchFile("broken.json");
        verify(TestKit.writeTextFile(broken, "{\"format\": \"vornlink-backup\""));
        verify(!menuButton.importFrom(broken));
        verify(message.text.indexOf("broken.json") >= 0, message.text);
        verify(!findChild(detail.item, "unsavedMark").visible);
    }
}
