// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// The editor in the window's content view, driven by clicks and keys against
// vorn-sim on loopback: what leaves the program is what the simulator logged.
TestCase {
    id: testCase

    name: "EditorClickThrough"
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

    function init() {
        client = TestKit.makeClient();
        sim = TestKit.startSimulator(client, [{ ip: unitIp, config: unitConfig }]);
        verify(sim.isListening());
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        TestKit.startWithoutRepeats(client);
        tryCompare(client, "deviceCount", 1, 5000);
        const list = child("deviceList");
        waitForRendering(list);
        mouseClick(list.itemAtIndex(0));
        compare(view.unitSelection.current, unitIp);
        verify(child("segmentBar") !== null);
    }

    function cleanup() {
        sim.stop();
    }

    function child(name) {
        return findChild(view, name);
    }

    function editor() {
        return findChild(view, "detailLoader").item.editor;
    }

    function openTab(index) {
        mouseClick(child("segment" + index));
        compare(findChild(view, "detailLoader").item.tab, index);
    }

    // Clicks into the field, selects all and types `text`, key by key.
    function typeInto(name, text) {
        const field = child(name).field;
        mouseClick(field);
        verify(field.activeFocus);
        keyClick(Qt.Key_A, Qt.ControlModifier);
        for (const character of text)
            keyClick(character);
        compare(field.text, text);
    }

    // Opens a picker with a click and clicks the entry at `index` in its list.
    function pick(name, index) {
        const picker = child(name);
        mouseClick(picker);
        tryVerify(() => picker.popup.opened);
        const list = picker.popup.contentItem;
        waitForRendering(list);
        mouseClick(list.itemAtIndex(index));
        tryVerify(() => !picker.popup.visible);
    }

    // The keys whose values differ between two configurations.
    function changedKeys(before, after) {
        const keys = new Set(Object.keys(before).concat(Object.keys(after)));
        return Array.from(keys).filter(key => before[key] !== after[key]).sort();
    }

    // What a write carries: the unit's configuration overlaid with `changes`,
    // limited to the keys a write datagram holds.
    function withChanges(changes) {
        const full = Object.assign({}, unitConfig, changes);
        const carried = {};
        for (const key of TestKit.writeKeys().filter(key => key in full))
            carried[key] = full[key];
        return carried;
    }

    // Both copies of the one write, once they have arrived.
    function theWrite() {
        tryVerify(() => sim.writes().length >= 2, 5000);
        const writes = sim.writes();
        compare(writes.length, 2);
        compare(writes[0].hex, writes[1].hex);
        compare(writes[0].dst, unitIp);
        return writes[0];
    }

    // The re-query that follows a write: the next datagram, a discover to the
    // unit's address with the next sequence number.
    function verifyRequeryAfter(write) {
        tryVerify(() => sim.datagrams().filter(d => d.cmd === 0xA3 && d.seq === write.seq + 1).length === 1, 5000);
        const all = sim.datagrams();
        const at = all.findIndex(d => d.hex === write.hex);
        compare(all.length, at + 3);
        compare(all[at + 2].cmd, 0xA3);
        compare(all[at + 2].dst, unitIp);
    }

    function test_password_only_save_sends_one_changed_key_and_clears_by_the_reply() {
        openTab(1);
        verify(!child("unsavedMark").visible);
        verify(!child("saveButton").enabled);
        typeInto("passwordField", "cue-7");
        verify(child("unsavedMark").visible);
        verify(child("saveButton").enabled);
        mouseClick(child("saveButton"));

        const write = theWrite();
        compare(changedKeys(withChanges({}), write.config), ["CallMagic"]);
        compare(write.config, withChanges({ CallMagic: "cue-7" }));
        // Until the unit answers, the mark stays; its reply to the re-query clears it.
        verify(child("unsavedMark").visible);
        verifyRequeryAfter(write);
        tryVerify(() => !child("unsavedMark").visible, 5000);
        compare(client.deviceData(unitIp).config.CallMagic, "cue-7");
        compare(child("passwordField").text, "cue-7");
        verify(!child("saveButton").enabled);
    }

    function test_switcher_preset_and_tally_bank_are_saved() {
        openTab(0);
        compare(child("switcherPicker").displayText, "Blackmagic ATEM");
        pick("switcherPicker", 6);
        compare(child("switcherPicker").displayText, "Roland V-60HD");
        compare(child("switcherChip").text, "Roland V-60HD");
        compare(child("switcherPicker").count, 12);
        pick("tallyBankPicker", 2);
        compare(child("tallyBankPicker").displayText, "Cameras 25\u201336");
        verify(child("unsavedMark").visible);
        mouseClick(child("saveButton"));

        const write = theWrite();
        compare(changedKeys(withChanges({}), write.config), ["AtemExtTally", "SwitcherBand", "SwitcherModel"]);
        compare(write.config, withChanges({ SwitcherBand: "5", SwitcherModel: "1", AtemExtTally: "2" }));
        verifyRequeryAfter(write);
        tryVerify(() => !child("unsavedMark").visible, 5000);
        compare(child("switcherPicker").displayText, "Roland V-60HD");
    }

    function test_steppers_change_the_types() {
        openTab(0);
        const tally = child("tallyTypeStepper");
        const gpio = child("gpioTypeStepper");
        mouseClick(findChild(tally, "increase"));
        mouseClick(findChild(gpio, "decrease"));
        compare(findChild(tally, "stepperTitle").text, "type 3");
        compare(findChild(gpio, "stepperTitle").text, "gpio 0");
        verify(!findChild(gpio, "decrease").enabled);
        mouseClick(child("saveButton"));

        const write = theWrite();
        compare(changedKeys(withChanges({}), write.config), ["TallyGpioType", "TallyType"]);
        compare(write.config, withChanges({ TallyType: "3", TallyGpioType: "0" }));
    }

    function test_scene_level_and_wire2_are_saved() {
        openTab(1);
        compare(child("scenePicker").displayText, "1 \u00b7 Most scenes (speak loudly)");
        pick("scenePicker", 4);
        compare(child("scenePicker").displayText, "4 \u00b7 Deafening (extreme)");
        verify(!child("wire2Toggle").checked);
        mouseClick(child("wire2Toggle"));
        verify(child("wire2Toggle").checked);
        mouseClick(child("saveButton"));

        const write = theWrite();
        compare(changedKeys(withChanges({}), write.config), ["ScenarioType", "Wire2Enable"]);
        compare(write.config, withChanges({ ScenarioType: "4", Wire2Enable: "1" }));
        verifyRequeryAfter(write);
        tryVerify(() => !child("unsavedMark").visible, 5000);
    }

    function test_reload_discards_every_edit_including_the_network_fields() {
        openTab(0);
        typeInto("atemIpField", "10.0.0.9");
        pick("switcherPicker", 10);
        openTab(1);
        typeInto("passwordField", "x");
        openTab(2);
        typeInto("gatewayField", "127.0.0.9");
        typeInto("ipAddrField", "127.0.0.8");
        verify(child("applyNetworkButton").enabled);
        verify(child("unsavedMark").visible);

        mouseClick(child("reloadButton"));
        compare(child("gatewayField").text, "127.0.0.1");
        compare(child("ipAddrField").text, "127.0.0.3");
        verify(!child("applyNetworkButton").enabled);
        verify(!child("unsavedMark").visible);
        openTab(1);
        compare(child("passwordField").text, "studio-b");
        openTab(0);
        compare(child("atemIpField").text, "192.168.10.240");
        compare(child("switcherPicker").displayText, "Blackmagic ATEM");
        compare(child("switcherChip").text, "Blackmagic ATEM");
        wait(300);
        compare(sim.writes().length, 0);
    }

    function test_invalid_gateway_warns_and_disables_apply() {
        openTab(2);
        verify(!child("invalidIpv4").visible);
        typeInto("gatewayField", "127.0.0.300");
        verify(child("invalidIpv4").visible);
        compare(child("invalidIpv4").text, "invalid IPv4");
        verify(!child("applyNetworkButton").enabled);
        mouseClick(child("applyNetworkButton"));
        verify(!findChild(view, "detailLoader").item.networkConfirmOpen);
        verify(!child("networkConfirm").visible);
        // A network edit is not an unsaved change of the tabs that Save sends.
        verify(!child("unsavedMark").visible);
        typeInto("gatewayField", "127.0.0.254");
        verify(!child("invalidIpv4").visible);
        verify(child("applyNetworkButton").enabled);
        wait(300);
        compare(sim.writes().length, 0);
    }

    function test_switcher_address_must_be_empty_or_a_dotted_quad() {
        verify(!child("atemIpInvalid").visible);
        typeInto("atemIpField", "300.1.1.1");
        verify(child("atemIpInvalid").visible);
        compare(child("atemIpInvalid").text, "invalid IPv4");
        verify(child("unsavedMark").visible);
        verify(!child("saveButton").enabled);
        mouseClick(child("saveButton"));
        keyClick(Qt.Key_S, Qt.ControlModifier);
        typeInto("atemIpField", "atem.local");
        verify(child("atemIpInvalid").visible);
        verify(!child("saveButton").enabled);
        wait(300);
        compare(sim.writes().length, 0);
        // Empty means no switcher address: allowed.
        const field = child("atemIpField").field;
        mouseClick(field);
        keyClick(Qt.Key_A, Qt.ControlModifier);
        keyClick(Qt.Key_Delete);
        compare(field.text, "");
        verify(!child("atemIpInvalid").visible);
        verify(child("saveButton").enabled);
        typeInto("atemIpField", "192.168.10.241");
        verify(!child("atemIpInvalid").visible);
        mouseClick(child("saveButton"));
        const write = theWrite();
        compare(changedKeys(withChanges({}), write.config), ["AtemIp"]);
        compare(write.config, withChanges({ AtemIp: "192.168.10.241" }));
    }

    function test_confirmed_gateway_change_sends_exactly_the_gateway() {
        openTab(2);
        typeInto("gatewayField", "127.0.0.254");
        mouseClick(child("applyNetworkButton"));
        const dialog = child("networkConfirm");
        tryVerify(() => dialog.opened);
        compare(findChild(dialog.header, "confirmTitle").text, "Apply network settings to 127.0.0.3?");
        compare(dialog.contentItem.text, "New: IP 127.0.0.3, mask 255.0.0.0, gateway 127.0.0.254.\n\n"
                + "If the IP changes, the unit reappears in the list under its new address. "
                + "A wrong value can strip it off-network (serial DB9 recovery).");
        compare(findChild(dialog.footer, "applyButton").text, "Apply");
        compare(findChild(dialog.footer, "cancelButton").text, "Cancel");
        wait(100);
        compare(sim.writes().length, 0);
        mouseClick(findChild(dialog.footer, "applyButton"));
        tryVerify(() => !dialog.visible);
        verify(!findChild(view, "detailLoader").item.networkConfirmOpen);

        const write = theWrite();
        compare(changedKeys(withChanges({}), write.config), ["Gateway"]);
        compare(write.config, withChanges({ Gateway: "127.0.0.254" }));
        verifyRequeryAfter(write);
        tryVerify(() => !child("applyNetworkButton").enabled, 5000);
    }

    function test_cancel_sends_nothing() {
        const before = sim.datagrams().length;
        openTab(2);
        typeInto("gatewayField", "127.0.0.254");
        mouseClick(child("applyNetworkButton"));
        const dialog = child("networkConfirm");
        tryVerify(() => dialog.opened);
        mouseClick(findChild(dialog.footer, "cancelButton"));
        tryVerify(() => !dialog.visible);
        verify(!findChild(view, "detailLoader").item.networkConfirmOpen);
        compare(child("gatewayField").text, "127.0.0.254");
        verify(child("applyNetworkButton").enabled);
        wait(600);
        compare(sim.datagrams().length, before);
    }

    function test_address_change_shows_the_unit_under_its_new_address_and_keeps_the_old_entry() {
        openTab(2);
        typeInto("ipAddrField", "127.0.0.7");
        mouseClick(child("applyNetworkButton"));
        const dialog = child("networkConfirm");
        tryVerify(() => dialog.opened);
        compare(findChild(dialog.header, "confirmTitle").text, "Apply network settings to 127.0.0.3?");
        mouseClick(findChild(dialog.footer, "applyButton"));

        const write = theWrite();
        compare(changedKeys(withChanges({}), write.config), ["IPAddress"]);
        tryCompare(client, "deviceCount", 2, 5000);
        compare(client.deviceData("127.0.0.7").config.IPAddress, "127.0.0.7");
        compare(client.deviceData(unitIp).config.IPAddress, "127.0.0.3");
        const list = child("deviceList");
        waitForRendering(list);
        compare([0, 1].map(i => list.itemAtIndex(i).ip), ["127.0.0.3", "127.0.0.7"]);
        compare(view.unitSelection.current, unitIp);
        compare(child("detailAddress").text, unitIp);
    }
}
