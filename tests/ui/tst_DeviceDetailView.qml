// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// The editor pane on a client that is fed replies directly (nothing is sent):
// what each tab shows for a unit's values, and how the pane follows replies,
// the clock and a change of unit.
TestCase {
    id: testCase

    name: "DeviceDetailView"
    when: windowShown
    visible: true
    width: 800
    height: 640

    readonly property string unitIp: "10.232.1.10"
    readonly property var studioUnit: ({
        IPAddress: "10.232.1.10", Netmask: "255.255.0.0", Gateway: "10.232.0.1", AtemIp: "10.232.0.20",
        AtemPort: "9910", SwitcherBand: "7", SwitcherModel: "0", AtemExtTally: "1", TallyType: "2",
        TallyGpioType: "1", Channel: "3", CallMagic: "studio-b", ScenarioType: "3", SilenceSuppress: "2",
        Wire2Enable: "1", Serial: "KT4-0002C9", Version: "2.4.1"
    })

    property VornClient client
    property var view

    Component {
        id: viewComponent

        DeviceDetailView {
            width: 800
            height: 640
        }
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003;
    }

    function show(config) {
        client = TestKit.makeClient();
        TestKit.ingest(client, unitIp, config);
        view = createTemporaryObject(viewComponent, testCase, { client: client, ip: unitIp });
        waitForRendering(view);
    }

    function child(name) {
        return findChild(view, name);
    }

    function openTab(index) {
        mouseClick(child("segment" + index));
        compare(view.tab, index);
    }

    function typeInto(name, text) {
        const field = child(name).field;
        mouseClick(field);
        keyClick(Qt.Key_A, Qt.ControlModifier);
        for (const character of text)
            keyClick(character);
        compare(field.text, text);
    }

    function pickerEntries(name) {
        const picker = child(name);
        return Array.from({ length: picker.count }, (_, i) => picker.textAt(i));
    }

    function test_tab_bar_titles_in_order_tally_first() {
        show(studioUnit);
        compare([0, 1, 2, 3].map(i => findChild(child("segment" + i), "segmentTitle").text),
                ["Tally", "Communication", "Network", "Details"]);
        verify(child("tallyPanel").visible);
        for (const name of ["communicationPanel", "networkPanel", "detailsPanel"])
            verify(!child(name).visible, name);
        openTab(3);
        verify(child("detailsPanel").visible);
        verify(!child("tallyPanel").visible);
    }

    function test_header_chips_for_a_unit_online() {
        show(studioUnit);
        compare(child("detailTitle").text, "KT400 \u00b70002C9");
        compare(child("detailAddress").text, unitIp);
        compare(child("onlineChip").text, "Online");
        verify(sameColour(child("onlineChip").tint, Theme.online));
        compare(child("switcherChip").text, "Blackmagic ATEM");
        compare(child("channelChip").text, "Ch 3");
        verify(sameColour(child("channelChip").tint, Theme.cyan));
        compare(child("firmwareChip").text, "fw 2.4.1");
        verify(child("firmwareChip").visible);
        verify(!child("unsavedMark").visible);
        verify(!child("saveButton").enabled);
        compare(child("reloadButton").text, "Reload");
        compare(child("saveButton").text, "Save changes");
    }

    function test_missing_channel_shows_en_dash_and_no_firmware_chip() {
        show({ SwitcherBand: "7", SwitcherModel: "0" });
        compare(child("channelChip").text, "Ch \u2013");
        verify(!child("firmwareChip").visible);
    }

    function test_placeholders_and_labels_as_written() {
        show({});
        compare(child("atemIpField").field.placeholderText, "192.168.8.219");
        compare(child("atemPortField").field.placeholderText, "9910");
        compare(child("channelField").field.placeholderText, "1\u2013150");
        compare(child("passwordField").field.placeholderText, "call password");
        for (const name of ["ipAddrField", "netmaskField", "gatewayField"])
            compare(child(name).field.placeholderText, "", name);
        compare(child("passwordField").field.echoMode, TextInput.Normal);
        compare([child("atemIpField").label, child("atemPortField").label, child("channelField").label,
                 child("passwordField").label, child("ipAddrField").label, child("netmaskField").label,
                 child("gatewayField").label],
                ["ATEM IP", "ATEM port", "Channel", "Password", "IP address", "Subnet mask", "Gateway"]);
        compare(child("applyNetworkButton").text, "Apply network\u2026");
    }

    function test_option_texts_as_written() {
        show(studioUnit);
        compare(pickerEntries("tallyBankPicker"),
                ["Cameras 1\u201312", "Cameras 13\u201324", "Cameras 25\u201336", "Cameras 37\u201340"]);
        compare(pickerEntries("scenePicker"),
                ["0 \u00b7 Quiet place (whisper)", "1 \u00b7 Most scenes (speak loudly)", "2 \u00b7 Very noisy (roar)",
                 "3 \u00b7 Deafening (loud voice)", "4 \u00b7 Deafening (extreme)"]);
        compare(pickerEntries("suppressPicker"),
                ["0 \u00b7 Off", "1 \u00b7 1%", "2 \u00b7 2%", "3 \u00b7 3%", "4 \u00b7 4%", "5 \u00b7 5%"]);
        compare(pickerEntries("switcherPicker"),
                ["Blackmagic ATEM", "Datavideo HS-1200", "Datavideo SE-2200", "Panasonic AV-HS410",
                 "Panasonic KAIROS", "Sony MCX-500", "Roland V-60HD", "Roland V-160HD", "NewTek TriCaster TC1",
                 "DeviceWell HDS7105", "vMix", "Other"]);
        compare(child("tallyBankPicker").displayText, "Cameras 13\u201324");
        compare(child("scenePicker").displayText, "3 \u00b7 Deafening (loud voice)");
        compare(child("suppressPicker").displayText, "2 \u00b7 2%");
        verify(child("wire2Toggle").checked);
    }

    function test_a_preset_combination_has_no_extra_entry() {
        show({ SwitcherBand: "1", SwitcherModel: "15" });
        compare(child("switcherPicker").count, 12);
        compare(child("switcherPicker").displayText, "Datavideo SE-2200");
    }

    function test_a_combination_without_preset_shows_a_thirteenth_entry_selected() {
        show({ SwitcherBand: "5", SwitcherModel: "2" });
        const picker = child("switcherPicker");
        compare(picker.count, 13);
        compare(picker.textAt(12), "Band 5 / Model 2");
        compare(picker.currentIndex, 12);
        compare(findChild(picker, "pickerText").text, "Band 5 / Model 2");
        compare(child("switcherChip").text, "Band 5 / Model 2");
    }

    function test_out_of_range_type_is_shown_and_steps_down_into_range() {
        show({ TallyType: "12", TallyGpioType: "0" });
        const tally = child("tallyTypeStepper");
        compare(findChild(tally, "stepperTitle").text, "type 12");
        verify(!findChild(tally, "increase").enabled);
        verify(findChild(tally, "decrease").enabled);
        mouseClick(findChild(tally, "decrease"));
        compare(findChild(tally, "stepperTitle").text, "type 9");
        const gpio = child("gpioTypeStepper");
        compare(findChild(gpio, "stepperTitle").text, "gpio 0");
        verify(!findChild(gpio, "decrease").enabled);
    }

    function test_out_of_range_suppression_shows_no_selection_until_picked() {
        show({ SilenceSuppress: "9" });
        const picker = child("suppressPicker");
        compare(picker.currentIndex, -1);
        compare(findChild(picker, "pickerText").text, "\u2014");
        verify(sameColour(findChild(picker, "pickerText").color, Theme.inkMuted));
        openTab(1);
        mouseClick(picker);
        tryVerify(() => picker.popup.opened);
        waitForRendering(picker.popup.contentItem);
        mouseClick(picker.popup.contentItem.itemAtIndex(3));
        compare(picker.currentIndex, 3);
        compare(findChild(picker, "pickerText").text, "3 \u00b7 3%");
        compare(view.editor.communication.choiceField("SilenceSuppress").value, 3);
    }

    function test_a_reply_keeps_what_the_user_types_and_updates_everything_else() {
        show(studioUnit);
        typeInto("atemIpField", "10.232.0.21");
        verify(child("unsavedMark").visible);
        // The unit now holds what was typed: nothing is left to save.
        const stored = Object.assign({}, studioUnit, { AtemIp: "10.232.0.21", Version: "2.5.0" });
        TestKit.ingest(client, unitIp, stored);
        compare(child("atemIpField").text, "10.232.0.21");
        compare(child("firmwareChip").text, "fw 2.5.0");
        verify(!child("unsavedMark").visible);
        // Another channel on the unit: the chip follows, the loaded field stays and differs.
        TestKit.ingest(client, unitIp, Object.assign({}, stored, { Channel: "7" }));
        compare(child("channelChip").text, "Ch 7");
        compare(child("atemIpField").text, "10.232.0.21");
        openTab(1);
        compare(child("channelField").text, "3");
        verify(child("unsavedMark").visible);
        openTab(3);
        const version = findChild(child("detailsGrid"), "detail_Version");
        compare(findChild(version, "detailValue").text, "2.5.0");
        const channel = findChild(child("detailsGrid"), "detail_Channel");
        compare(findChild(channel, "detailValue").text, "7");
    }

    function test_presence_follows_the_clock() {
        show(studioUnit);
        const seen = client.deviceData(unitIp).lastSeen;
        TestKit.setNow(client, new Date(seen.getTime() + 14999));
        compare(child("onlineChip").text, "Online");
        // A date holds whole milliseconds; the reply's time has finer ones.
        TestKit.setNow(client, new Date(seen.getTime() + 15001));
        compare(child("onlineChip").text, "Offline");
        verify(sameColour(child("onlineChip").tint, Theme.tally));
    }

    function test_another_unit_reloads_and_drops_edits() {
        show(studioUnit);
        TestKit.ingest(client, "10.232.1.11", { AtemIp: "10.232.0.30", Serial: "KT4-0002D0" });
        typeInto("atemIpField", "1.2.3.4");
        view.ip = "10.232.1.11";
        compare(child("atemIpField").text, "10.232.0.30");
        compare(child("detailTitle").text, "KT400 \u00b70002D0");
        view.ip = unitIp;
        compare(child("atemIpField").text, "10.232.0.20");
    }

    function test_details_only_reported_keys_two_per_row() {
        show({ Version: "2.4.1", Wire2Enable: "1", Serial: "KT4-0002C9" });
        openTab(3);
        const grid = child("detailsGrid");
        const serial = findChild(grid, "detail_Serial");
        const version = findChild(grid, "detail_Version");
        verify(serial && version);
        verify(findChild(grid, "detail_Wire2Enable") === null);
        compare(serial.y, version.y);
        verify(serial.x < version.x);
        compare(findChild(serial, "detailKey").text, "Serial");
        compare(findChild(serial, "detailValue").text, "KT4-0002C9");
        compare(findChild(serial, "detailValue").textFormat, Text.PlainText);
    }

    function test_details_grid_follows_the_fifteen_keys_in_order() {
        show(Object.assign({ ManagerIp: "10.232.0.50" }, studioUnit));
        openTab(3);
        const grid = child("detailsGrid");
        const keys = ["IPAddress", "Netmask", "Gateway", "ManagerIp", "AtemIp", "AtemPort", "SwitcherBand",
                      "SwitcherModel", "Channel", "CallMagic", "TallyType", "TallyGpioType", "AtemExtTally",
                      "Serial", "Version"];
        const cells = keys.map(key => findChild(grid, "detail_" + key));
        for (let i = 0; i < keys.length; ++i) {
            verify(cells[i] !== null, keys[i]);
            compare(cells[i].y, cells[i - (i % 2)].y, keys[i]);
            if (i >= 2)
                verify(cells[i].y > cells[i - 2].y, keys[i]);
        }
    }

    function test_network_apply_disabled_while_nothing_changed_and_escape_cancels() {
        show(studioUnit);
        openTab(2);
        verify(!child("applyNetworkButton").enabled);
        verify(!child("invalidIpv4").visible);
        typeInto("gatewayField", "10.232.0.254");
        verify(child("applyNetworkButton").enabled);
        verify(!child("unsavedMark").visible);
        mouseClick(child("applyNetworkButton"));
        const dialog = child("networkConfirm");
        tryVerify(() => dialog.opened);
        verify(view.networkConfirmOpen);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !dialog.visible);
        verify(!view.networkConfirmOpen);
    }
}
