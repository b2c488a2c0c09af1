// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// The verdict under "Save changes", clicked through against vorn-sim on
// loopback: a unit that stores the write, one that ignores writes, one that
// keeps one key, and one that never answers.
TestCase {
    id: testCase

    name: "SaveVerdictClickThrough"
    when: windowShown
    visible: true
    width: 1040
    height: 680

    readonly property string unitIp: "127.0.0.3"
    readonly property var unitConfig: ({
        IPAddress: "127.0.0.3", Netmask: "255.0.0.0", Gateway: "127.0.0.1", ManagerIp: "127.0.0.1",
        AtemIp: "192.168.10.240", AtemPort: "9910", SwitcherBand: "7", SwitcherModel: "0",
        AtemExtTally: "0", TallyType: "2", TallyGpioType: "1", Channel: "3", CallMagic: "studio-b",
        ScenarioType: "1", SilenceSuppress: "0", Wire2Enable: "0", Serial: "KT4-0002C9", Version: "2.4.1"
    })

    property VornClient client
    property SimulatedUnits sim
    property var view

    Component {
        id: viewComponent

        ContentView {
            width: 1040
            height: 680
        }
    }

    function cleanup() {
        if (sim)
            sim.stop();
        sim = null;
    }

    // The window on one simulated unit with `faults` (the simulator's unit
    // fields), selected by a click. A silent unit is filed by hand, as if
    // it had answered before it fell silent.
    function openUnit(faults) {
        client = TestKit.makeClient();
        sim = TestKit.startSimulator(client, [Object.assign({ ip: unitIp, config: unitConfig }, faults)]);
        verify(sim.isListening());
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        TestKit.startWithoutRepeats(client);
        if (faults.silent)
            TestKit.ingest(client, unitIp, unitConfig);
        tryCompare(client, "deviceCount", 1, 5000);
        const list = child("deviceList");
        waitForRendering(list);
        mouseClick(list.itemAtIndex(0));
        compare(view.unitSelection.current, unitIp);
    }

    function child(name) {
        return findChild(view, name);
    }

    function typeInto(name, text) {
        const field = child(name).field;
        mouseClick(field);
        verify(field.activeFocus);
        keyClick(Qt.Key_A, Qt.ControlModifier);
        for (const character of text)
            keyClick(character);
        compare(field.text, text);
    }

    // Channel and password edited on the Communication tab, then saved.
    function editAndSave() {
        mouseClick(child("segment1"));
        typeInto("channelField", "5");
        typeInto("passwordField", "cue-7");
        verify(!child("saveVerdict").visible);
        mouseClick(child("saveButton"));
        tryVerify(() => sim.writes().length >= 2, 5000);
    }

    function verdictText() {
        return findChild(child("saveVerdict"), "verdictChip").text;
    }

    function test_a_unit_that_stores_the_write_is_confirmed() {
        openUnit({});
        editAndSave();
        tryVerify(() => child("saveVerdict").visible, 6000);
        compare(verdictText(), "Saved \u00b7 confirmed");
        compare(findChild(child("saveVerdict"), "verdictChip").tint, Theme.online);
        verify(!child("unsavedMark").visible);
        verify(!child("showMovedButton").visible);
        // The next edit ends the verdict.
        typeInto("channelField", "6");
        verify(!child("saveVerdict").visible);
    }

    function test_the_verdict_stays_readable_with_the_pointer_left_on_save() {
        openUnit({});
        mouseClick(child("segment1"));
        typeInto("channelField", "5");
        const save = child("saveButton");
        mouseMove(save);
        mouseClick(save);
        // The pointer stays on the button past the tooltip delay and the unit's answer.
        tryVerify(() => child("saveVerdict").visible && verdictText() === "Saved \u00b7 confirmed", 6000);
        wait(Theme.toolTipDelay + 200);
        const chip = findChild(child("saveVerdict"), "verdictChip");
        compare(Covering.popupsOver(chip), []);
        compare(Covering.popupsOver(child("saveVerdict")), []);
        // While the button is still enabled its hint shows, beside it, over neither mark nor verdict.
        typeInto("channelField", "6");
        const hint = findChild(save, "saveHint");
        // The pointer comes from the field to the button again.
        mouseMove(child("channelField"));
        mouseMove(save);
        mouseClick(save);
        tryVerify(() => hint.visible, 3000);
        compare(hint.text, "Save changes (" + (Qt.platform.os === "osx" ? "\u2318S" : "Ctrl+S") + ")");
        compare(Covering.popupsOver(child("unsavedMark")), []);
        compare(Covering.popupsOver(child("saveVerdict")), []);
        shoot("editor-save-hint.png");
        tryVerify(() => verdictText() === "Saved \u00b7 confirmed", 6000);
        compare(Covering.popupsOver(chip), []);
    }

    function shoot(name) {
        waitForRendering(view);
        grabImage(view).save(TestKit.shotPath(name));
    }

    function test_a_unit_that_ignores_writes_is_not_confirmed_with_the_keys() {
        openUnit({ ignoreWrites: true });
        editAndSave();
        tryVerify(() => child("saveVerdict").visible, 6000);
        compare(verdictText(), "Not confirmed: CallMagic, Channel");
        compare(findChild(child("saveVerdict"), "verdictChip").tint, Theme.amber);
        const verdict = findChild(view, "detailLoader").item.editor.verdict;
        compare(verdict.details, ["CallMagic: wrote cue-7, unit reports studio-b", "Channel: wrote 5, unit reports 3"]);
        // The chip's tooltip holds the same lines.
        const tip = findChild(findChild(child("saveVerdict"), "verdictChip"), "verdictToolTip");
        compare(tip.contentItem.text, "CallMagic: wrote cue-7, unit reports studio-b\nChannel: wrote 5, unit reports 3");
        compare(tip.contentItem.textFormat, Text.PlainText);
        // The Details tab shows written against reported.
        mouseClick(child("segment3"));
        verify(child("lastSave").visible);
        compare(child("lastSaveLines").text,
                "CallMagic: wrote cue-7, unit reports studio-b\nChannel: wrote 5, unit reports 3");
        // Reload ends the verdict.
        mouseClick(child("reloadButton"));
        verify(!child("saveVerdict").visible);
        verify(!child("lastSave").visible);
    }

    function test_a_unit_that_keeps_a_key_is_not_confirmed_naming_it() {
        openUnit({ keepKey: "Channel" });
        editAndSave();
        tryVerify(() => child("saveVerdict").visible, 6000);
        compare(verdictText(), "Not confirmed: Channel");
        compare(client.deviceData(unitIp).config.CallMagic, "cue-7");
    }

    function test_a_silent_unit_gets_no_answer_after_saving() {
        openUnit({ silent: true });
        editAndSave();
        tryVerify(() => child("saveVerdict").visible, 6000);
        compare(verdictText(), "No answer after saving");
        compare(findChild(child("saveVerdict"), "verdictChip").tint, Theme.amber);
    }
}
