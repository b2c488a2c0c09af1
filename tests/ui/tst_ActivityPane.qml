// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

TestCase {
    id: testCase

    name: "ActivityPane"
    when: windowShown
    visible: true
    width: 900
    height: 600

    property VornClient client
    property var view

    Component {
        id: viewComponent

        ContentView {
            width: 900
            height: 600
        }
    }

    function init() {
        client = TestKit.makeClient();
        view = createTemporaryObject(viewComponent, testCase, { client: client });
    }

    function child(name) {
        return findChild(view, name);
    }

    function showPane() {
        mouseClick(child("activityToggle"));
        tryVerify(() => child("activityPane").visible && child("activityPane").height > 0);
        waitForRendering(child("activityPane"));
    }

    function addUnits(first, count) {
        for (let i = first; i < first + count; ++i)
            TestKit.ingest(client, "10.232.3." + i, {});
    }

    function test_hidden_until_the_toggle_is_pressed_and_the_toggle_hides_it_again() {
        verify(!child("activityPane").visible);
        compare(child("activityToggle").text, "Activity");
        showPane();
        verify(child("activityToggle").shown);
        mouseClick(child("activityToggle"));
        verify(!child("activityPane").visible);
        verify(!child("activityToggle").shown);
    }

    function test_keyboard_shortcut_toggles_the_pane() {
        child("addressField").forceActiveFocus();
        keyClick(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier);
        verify(child("activityPane").visible);
        keyClick(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier);
        verify(!child("activityPane").visible);
    }

    function lineItems() {
        const logView = child("logView");
        const items = [];
        for (let i = 0; i < logView.contentItem.children.length; ++i) {
            const item = logView.contentItem.children[i];
            if (item.line !== undefined && item.visible)
                items.push(item);
        }
        return items;
    }

    function test_lines_of_the_client_log_appear_newest_last_and_monospaced() {
        showPane();
        verify(child("emptyLog").visible);
        TestKit.ingest(client, "10.232.1.7", {});
        TestKit.ingest(client, "10.232.1.3", {});
        const logView = child("logView");
        compare(logView.count, 2);
        compare(client.log.length, 2);
        verify(client.log[0].endsWith("  found 10.232.1.7"));
        verify(client.log[1].endsWith("  found 10.232.1.3"));
        tryVerify(() => logView.itemAtIndex(1) !== null);
        for (let i = 0; i < 2; ++i) {
            const line = logView.itemAtIndex(i);
            compare(line.text, client.log[i]);
            compare(line.textFormat, TextEdit.PlainText);
            compare(line.font.family, "monospace");
            verify(line.readOnly);
            verify(line.selectByMouse);
        }
        verify(!child("emptyLog").visible);
    }

    function test_a_hidden_pane_lays_out_no_line() {
        TestKit.ingestBurst(client, "10.233", 2500);
        compare(client.log.length, 200);
        compare(child("logView").count, 0);
        compare(lineItems().length, 0);
    }

    function test_a_burst_reaches_the_open_pane_as_one_change_and_only_lines_in_view_are_laid_out() {
        showPane();
        const logView = child("logView");
        let changes = 0;
        const count = () => ++changes;
        client.activity.changed.connect(count);
        TestKit.ingestBurst(client, "10.233", 2500);
        client.activity.changed.disconnect(count);
        compare(changes, 1);
        compare(logView.count, 200);
        tryVerify(() => logView.atYEnd);
        waitForRendering(logView);
        const shown = lineItems();
        verify(shown.length > 0);
        // The pane shows a few lines; the 200 of the log are not all made.
        verify(shown.length < 60, "lines made: " + shown.length);
        compare(logView.itemAtIndex(199).text, client.log[199]);
    }

    function test_follows_new_lines_unless_scrolled_up() {
        showPane();
        const logView = child("logView");
        addUnits(1, 60);
        tryVerify(() => logView.contentHeight > logView.height * 2);
        tryVerify(() => logView.atYEnd);

        // The user scrolls up with the wheel: new lines leave the view there.
        mouseWheel(logView, logView.width / 2, logView.height / 2, 0, 12000);
        tryVerify(() => logView.atYBeginning && !logView.moving);
        addUnits(100, 5);
        wait(50);
        verify(logView.atYBeginning);

        // Back down to the newest line: the view follows again.
        mouseWheel(logView, logView.width / 2, logView.height / 2, 0, -24000);
        tryVerify(() => logView.atYEnd && !logView.moving);
        addUnits(200, 5);
        tryVerify(() => {
            const newest = logView.itemAtIndex(logView.count - 1);
            return newest !== null && newest.y >= logView.contentY && logView.atYEnd;
        });
        verify(logView.contentY > 0);
    }

    function test_copy_all_puts_every_line_on_the_clipboard() {
        showPane();
        addUnits(1, 3);
        mouseClick(child("copyLogButton"));
        compare(TestKit.clipboardText(), client.log.join("\n"));
    }

    function test_height_is_kept_when_hidden_and_shown_again() {
        showPane();
        const pane = child("activityPane");
        const column = child("detailColumn");
        compare(pane.height, 180);
        // Drag the handle above the pane 80 up.
        const x = column.width / 2;
        const y = pane.mapToItem(column, 0, 0).y - 3;
        mousePress(column, x, y);
        mouseMove(column, x, y - 40);
        mouseMove(column, x, y - 80);
        mouseRelease(column, x, y - 80);
        tryCompare(pane, "height", 260);
        mouseClick(child("activityToggle"));
        verify(!pane.visible);
        mouseClick(child("activityToggle"));
        tryCompare(pane, "height", 260);
    }

    function test_markup_in_a_logged_value_is_shown_literally() {
        showPane();
        client.write("127.0.0.2", { CallMagic: "<b>x</b><img src=\"http://127.0.0.1:9/a.png\">" });
        const logView = child("logView");
        tryVerify(() => logView.itemAtIndex(logView.count - 1) !== null);
        const last = logView.itemAtIndex(logView.count - 1);
        compare(last.textFormat, TextEdit.PlainText);
        verify(last.text.endsWith("CallMagic=<b>x</b><img src=\"http://127.0.0.1:9/a.png\">"));
    }
}
