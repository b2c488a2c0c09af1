// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// The History tab, clicked through against vorn-sim on loopback with a site
// store in a scratch file: the unit as first seen, a save from the window with
// its verdict, a change the window did not make, and restoring a version.
TestCase {
    id: testCase

    name: "HistoryClickThrough"
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
    property int sites: 0

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
        TestKit.closeSite();
    }

    function child(name) {
        return findChild(view, name);
    }

    function detail() {
        return child("detailLoader").item;
    }

    function history() {
        return child("historyPanel").history;
    }

    // The row at `index` of the History tab (0 is the newest).
    function row(index) {
        return child("historyRows").itemAt(index);
    }

    function cause(index) {
        return findChild(row(index), "historyCause").text;
    }

    function changes(index) {
        return history().data(history().index(index, 0), Qt.UserRole + 3);
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

    // The window on one simulated unit, remembered in a new store, selected by a click.
    function openUnit() {
        client = TestKit.makeClient();
        sim = TestKit.startSimulator(client, [{ ip: unitIp, config: unitConfig }]);
        verify(sim.isListening());
        TestKit.rememberSite(client, TestKit.scratchFile("history-" + (++sites) + ".sqlite"));
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        TestKit.startWithoutRepeats(client);
        tryCompare(client, "deviceCount", 1, 5000);
        const list = child("deviceList");
        waitForRendering(list);
        mouseClick(list.itemAtIndex(0));
        compare(view.unitSelection.current, unitIp);
    }

    function saveFromWindow(channel, password) {
        mouseClick(child("segment1"));
        typeInto("channelField", channel);
        if (password !== "")
            typeInto("passwordField", password);
        mouseClick(child("saveButton"));
        tryVerify(() => child("saveVerdict").visible, 6000);
    }

    function test_a_new_unit_is_first_seen() {
        openUnit();
        mouseClick(child("segment4"));
        compare(detail().tab, DeviceDetailView.History);
        verify(child("historyPanel").visible);
        tryCompare(history(), "count", 1, 5000);
        // With the computer that heard it, as every version is stored.
        verify(/^First seen on \S+$/.test(cause(0)), cause(0));
        compare(changes(0), []);
        // The Details tab says when the store first and last heard the unit.
        mouseClick(child("segment3"));
        const firstSeen = child("detail_First seen");
        verify(firstSeen !== null);
        compare(findChild(firstSeen, "detailValue").text, findChild(row(0), "historyTime").text);
        verify(findChild(child("detail_Last seen"), "detailValue").text !== "");
        // Ctrl+5 is the History tab's key.
        mouseClick(child("segment0"));
        keyClick(Qt.Key_5, Qt.ControlModifier);
        compare(detail().tab, DeviceDetailView.History);
    }

    function test_a_save_from_the_window_and_an_outside_change() {
        openUnit();
        saveFromWindow("5", "cue-7");
        compare(findChild(child("saveVerdict"), "verdictChip").text, "Saved \u00b7 confirmed");
        mouseClick(child("segment4"));
        tryVerify(() => history().count === 2 && cause(0).startsWith("Saved from VornLink by "), 5000);
        verify(cause(0).endsWith(" \u00b7 confirmed"), cause(0));
        verify(cause(0).indexOf(" on ") > 0, cause(0));
        verify(/^First seen on \S+$/.test(cause(1)), cause(1));
        verify(changes(0).indexOf("Channel: 3 \u2192 5") >= 0, changes(0));
        verify(changes(0).indexOf("CallMagic: \u2022\u2022\u2022\u2022 \u2192 \u2022\u2022\u2022\u2022") >= 0, changes(0));
        compare(changes(0).length, 2);
        // The change lines as shown.
        const shown = findChild(row(0), "historyChanges");
        compare(shown.text, changes(0).join("\n"));
        compare(shown.textFormat, Text.PlainText);
        mouseClick(child("showPasswords"));
        verify(changes(0).indexOf("CallMagic: studio-b \u2192 cue-7") >= 0, changes(0));
        compare(shown.text, changes(0).join("\n"));
        waitForRendering(child("historyPanel"));
        grabImage(view).save(TestKit.shotPath("history-tab.png"));

        // A write the window's editor did not make: nothing records it.
        client.write(unitIp, { Channel: "8" });
        tryVerify(() => history().count === 3, 6000);
        verify(/^Changed outside VornLink \u00b7 heard on \S+$/.test(cause(0)), cause(0));
        compare(changes(0), ["Channel: 5 \u2192 8"]);
        verify(cause(1).startsWith("Saved from VornLink by "));
    }

    function test_restore_this_version_loads_it_as_unsaved_changes() {
        openUnit();
        saveFromWindow("6", "");
        mouseClick(child("segment4"));
        tryVerify(() => history().count === 2 && cause(0).startsWith("Saved from VornLink"), 5000);
        const writes = sim.writes().length;
        // The version first seen, with channel 3.
        mouseClick(findChild(row(1), "restoreVersion"));
        compare(detail().tab, DeviceDetailView.Tally);
        verify(detail().editor.dirty);
        verify(child("unsavedMark").visible);
        mouseClick(child("segment1"));
        compare(child("channelField").field.text, "3");
        // Nothing is sent before Save changes.
        compare(sim.writes().length, writes);
        mouseClick(child("saveButton"));
        tryVerify(() => child("saveVerdict").visible, 6000);
        compare(client.deviceData(unitIp).config.Channel, "3");
        mouseClick(child("segment4"));
        tryVerify(() => history().count === 3 && cause(0).startsWith("Saved from VornLink"), 5000);
        compare(changes(0), ["Channel: 6 \u2192 3"]);
    }
}
