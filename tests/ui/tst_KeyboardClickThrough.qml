// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// The window's content driven by the keyboard alone against vorn-sim on
// loopback: select a unit, edit, save, switch tabs, open and cancel the
// network confirmation. What leaves the program is what the simulator logged.
TestCase {
    id: testCase

    name: "KeyboardClickThrough"
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
        waitForRendering(child("deviceList"));
    }

    function child(name) {
        return findChild(view, name);
    }

    function detailView() {
        return findChild(view, "detailLoader").item;
    }

    function focused() {
        return testCase.Window.window.activeFocusItem;
    }

    // True when the keyboard is on `item` or inside it.
    function hasKeyboard(item) {
        for (let at = focused(); at; at = at.parent)
            if (at === item)
                return true;
        return false;
    }

    // Presses Tab until `item` has the keyboard; fails after a full round.
    function tabTo(item) {
        for (let presses = 0; presses < 40 && !hasKeyboard(item); ++presses)
            keyClick(Qt.Key_Tab);
        verify(hasKeyboard(item), "Tab never reached " + item.objectName);
    }

    // Tab from wherever the focus is to the list, Down selects the first
    // (only) unit, Return takes the keyboard to its editor.
    function selectTheUnitByKeys() {
        tabTo(child("deviceList"));
        keyClick(Qt.Key_Down);
        compare(view.unitSelection.current, unitIp);
        tryVerify(() => child("segmentBar") !== null);
        keyClick(Qt.Key_Return);
        verify(hasKeyboard(child("segmentBar")));
    }

    // Selects the whole text of the focused field and types `text`.
    function typeText(text) {
        keyClick(Qt.Key_A, Qt.ControlModifier);
        for (const character of text)
            keyClick(character);
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

    function test_tab_walks_list_address_query_discover_tabs_fields_header() {
        selectTheUnitByKeys();
        tabTo(child("deviceList"));
        const expected = ["deviceList", "addressField", "queryButton", "fleetMenuButton", "discoverButton",
                          "segment0", "segment1", "segment2", "segment3", "segment4",
                          "atemIpField", "atemPortField", "switcherPicker", "tallyBankPicker",
                          "tallyTypeStepper", "tallyTypeStepper", "gpioTypeStepper", "gpioTypeStepper",
                          "editorMenuButton", "reloadButton", "networksButton", "activityToggle", "deviceList"];
        const visited = [];
        for (const name of expected) {
            const item = child(name);
            verify(item !== null, name);
            visited.push(hasKeyboard(item) ? name : "not " + name + " but " + focused());
            keyClick(Qt.Key_Tab);
        }
        compare(visited, expected);
        // Shift+Tab walks back the same way.
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        verify(hasKeyboard(child("activityToggle")));
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        verify(hasKeyboard(child("reloadButton")));
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        verify(hasKeyboard(child("editorMenuButton")));
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        verify(hasKeyboard(child("gpioTypeStepper")));
    }

    function test_up_and_down_move_the_selection_and_return_opens_the_editor() {
        TestKit.ingest(client, "127.0.0.4", { Serial: "KT4-000004" });
        TestKit.ingest(client, "127.0.0.5", { Serial: "KT4-000005" });
        tabTo(child("deviceList"));
        compare(view.unitSelection.current, "");
        keyClick(Qt.Key_Down);
        compare(view.unitSelection.current, "127.0.0.3");
        keyClick(Qt.Key_Down);
        compare(view.unitSelection.current, "127.0.0.4");
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        compare(view.unitSelection.current, "127.0.0.5");
        keyClick(Qt.Key_Up);
        compare(view.unitSelection.current, "127.0.0.4");
        tryCompare(child("detailAddress"), "text", "127.0.0.4");
        keyClick(Qt.Key_Return);
        verify(hasKeyboard(child("segment0")));
    }

    function test_keys_change_the_channel_and_ctrl_s_saves_it() {
        selectTheUnitByKeys();
        keyClick(Qt.Key_2, Qt.ControlModifier);
        compare(detailView().tab, 1);
        tabTo(child("channelField"));
        // Ctrl+S does nothing while nothing has changed.
        keyClick(Qt.Key_S, Qt.ControlModifier);
        wait(300);
        compare(sim.writes().length, 0);
        typeText("7");
        compare(child("channelField").text, "7");
        verify(child("unsavedMark").visible);
        keyClick(Qt.Key_S, Qt.ControlModifier);

        const write = theWrite();
        compare(write.config.Channel, "7");
        compare(write.config.CallMagic, "studio-b");
        tryVerify(() => !child("unsavedMark").visible, 5000);
        compare(client.deviceData(unitIp).config.Channel, "7");
    }

    function test_wire2_and_a_stepper_by_keys() {
        selectTheUnitByKeys();
        tabTo(findChild(child("tallyTypeStepper"), "increase"));
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Up);
        compare(findChild(child("tallyTypeStepper"), "stepperTitle").text, "type 4");
        keyClick(Qt.Key_4, Qt.ControlModifier);
        keyClick(Qt.Key_2, Qt.ControlModifier);
        tabTo(child("wire2Toggle"));
        keyClick(Qt.Key_Space);
        verify(child("wire2Toggle").checked);
        keyClick(Qt.Key_S, Qt.ControlModifier);

        const write = theWrite();
        compare(write.config.TallyType, "4");
        compare(write.config.Wire2Enable, "1");
    }

    function test_ctrl_1_to_5_switch_tabs_and_ctrl_r_reloads() {
        selectTheUnitByKeys();
        const panels = ["tallyPanel", "communicationPanel", "networkPanel", "detailsPanel", "historyPanel"];
        for (const index of [3, 1, 4, 0, 2]) {
            keyClick(Qt.Key_1 + index, Qt.ControlModifier);
            compare(detailView().tab, index);
            for (let other = 0; other < panels.length; ++other)
                compare(child(panels[other]).visible, other === index, panels[other]);
        }
        tabTo(child("gatewayField"));
        typeText("127.0.0.9");
        verify(child("applyNetworkButton").enabled);
        keyClick(Qt.Key_R, Qt.ControlModifier);
        compare(child("gatewayField").text, "127.0.0.1");
        verify(!child("applyNetworkButton").enabled);
        wait(300);
        compare(sim.writes().length, 0);
    }

    function test_a_tab_switch_that_hides_the_focused_field_gives_the_keyboard_to_the_new_tab() {
        selectTheUnitByKeys();
        tabTo(child("atemPortField"));
        keyClick(Qt.Key_3, Qt.ControlModifier);
        verify(hasKeyboard(child("segment2")));
        keyClick(Qt.Key_Tab);
        verify(hasKeyboard(child("segment3")));
        keyClick(Qt.Key_Tab);
        verify(hasKeyboard(child("segment4")));
        keyClick(Qt.Key_Tab);
        verify(hasKeyboard(child("ipAddrField")));
        // Where the keyboard stays visible, a switch leaves it there.
        keyClick(Qt.Key_L, Qt.ControlModifier);
        keyClick(Qt.Key_1, Qt.ControlModifier);
        verify(hasKeyboard(child("addressField")));
    }

    function test_a_field_that_takes_the_keyboard_is_scrolled_into_view() {
        view.height = 420;
        selectTheUnitByKeys();
        const scroller = child("panelScroller");
        compare(scroller.contentY, 0);
        const stepper = child("gpioTypeStepper");
        tabTo(stepper);
        const top = stepper.mapToItem(scroller, 0, 0).y;
        verify(scroller.contentY > 0);
        verify(top >= 0 && top + stepper.height <= scroller.height, "stepper at " + top);
        // Shift+Tab back to the first field scrolls up again.
        for (let presses = 0; presses < 10 && !hasKeyboard(child("atemIpField")); ++presses)
            keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        verify(hasKeyboard(child("atemIpField")));
        const fieldTop = child("atemIpField").mapToItem(scroller, 0, 0).y;
        verify(fieldTop >= 0, "field at " + fieldTop);
    }

    function test_network_confirmation_cancelled_with_return_and_with_escape() {
        const before = sim.datagrams().length;
        selectTheUnitByKeys();
        keyClick(Qt.Key_3, Qt.ControlModifier);
        tabTo(child("gatewayField"));
        typeText("127.0.0.254");
        const dialog = child("networkConfirm");
        for (const dismiss of [Qt.Key_Return, Qt.Key_Escape]) {
            tabTo(child("applyNetworkButton"));
            keyClick(Qt.Key_Return);
            tryVerify(() => dialog.opened);
            verify(detailView().networkConfirmOpen);
            // Cancel is the default button: it has the keyboard.
            verify(hasKeyboard(findChild(dialog.footer, "cancelButton")));
            keyClick(dismiss);
            tryVerify(() => !dialog.visible);
            verify(!detailView().networkConfirmOpen);
        }
        compare(child("gatewayField").text, "127.0.0.254");
        wait(600);
        compare(sim.datagrams().length, before);
    }

    function test_return_on_apply_in_the_confirmation_sends_the_gateway() {
        selectTheUnitByKeys();
        keyClick(Qt.Key_3, Qt.ControlModifier);
        tabTo(child("gatewayField"));
        typeText("127.0.0.254");
        tabTo(child("applyNetworkButton"));
        keyClick(Qt.Key_Space);
        const dialog = child("networkConfirm");
        tryVerify(() => dialog.opened);
        keyClick(Qt.Key_Tab);
        verify(hasKeyboard(findChild(dialog.footer, "applyButton")));
        keyClick(Qt.Key_Return);
        tryVerify(() => !dialog.visible);

        const write = theWrite();
        compare(write.config.Gateway, "127.0.0.254");
        compare(write.config.IPAddress, "127.0.0.3");
    }

    function test_f5_discovers_and_ctrl_l_takes_the_keyboard_to_the_address_field() {
        const before = sim.datagrams().length;
        keyClick(Qt.Key_F5);
        tryVerify(() => sim.datagrams().length === before + 1, 5000);
        compare(sim.datagrams()[before].cmd, 0xA3);
        compare(sim.datagrams()[before].dst, client.broadcastAddress);

        keyClick(Qt.Key_L, Qt.ControlModifier);
        const field = child("addressField");
        verify(field.activeFocus);
        for (const character of unitIp)
            keyClick(character);
        keyClick(Qt.Key_Return);
        compare(view.unitSelection.current, unitIp);
        tryVerify(() => sim.datagrams().length === before + 2, 5000);
        compare(sim.datagrams()[before + 1].dst, unitIp);
    }

    function test_escape_closes_the_networks_popup_and_a_picker() {
        tabTo(child("networksButton"));
        keyClick(Qt.Key_Return);
        const popup = child("networksPopup");
        tryVerify(() => popup.opened);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !popup.visible);

        selectTheUnitByKeys();
        const picker = child("scenePicker");
        keyClick(Qt.Key_2, Qt.ControlModifier);
        tabTo(picker);
        keyClick(Qt.Key_Space);
        tryVerify(() => picker.popup.opened);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !picker.popup.visible);
        compare(picker.displayText, "1 \u00b7 Most scenes (speak loudly)");
    }
}
