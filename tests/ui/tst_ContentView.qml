// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

TestCase {
    id: testCase

    name: "ContentView"
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

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003 && Math.abs(a.a - b.a) < 0.003;
    }

    function init() {
        client = TestKit.makeClient();
        view = createTemporaryObject(viewComponent, testCase, { client: client });
    }

    function child(name) {
        return findChild(view, name);
    }

    function test_nothing_known_scanning_row_count_zero_empty_state() {
        verify(child("scanningRow").visible);
        compare(child("scanningRow").children[1].text, "Scanning the network\u2026");
        compare(child("deviceList").count, 0);
        compare(child("unitCount").text, "0");
        verify(child("emptyState").visible);
        compare(child("emptyTitle").text, "Select a base station");
        compare(child("emptyHint").text, "Pick a unit from the list, or add one by IP.");
        verify(!child("detailLoader").active);
    }

    function test_first_reply_removes_scanning_row_detail_stays_empty() {
        TestKit.ingest(client, "10.232.1.1", { Serial: "KT4-000123" });
        verify(!child("scanningRow").visible);
        compare(child("unitCount").text, "1");
        compare(child("deviceList").count, 1);
        verify(child("emptyState").visible);
    }

    function test_rows_follow_the_client_order() {
        for (const ip of ["10.232.1.2", "10.232.1.10", "10.232.1.1"])
            TestKit.ingest(client, ip, {});
        const list = child("deviceList");
        compare(list.count, 3);
        waitForRendering(list);
        compare([0, 1, 2].map(i => list.itemAtIndex(i).ip), ["10.232.1.1", "10.232.1.10", "10.232.1.2"]);
    }

    function test_clicking_a_row_selects_it_and_shows_its_detail() {
        TestKit.ingest(client, "10.232.1.1", { Serial: "KT4-000123" });
        TestKit.ingest(client, "10.232.1.2", { Serial: "KT4-000456" });
        const list = child("deviceList");
        waitForRendering(list);
        mouseClick(list.itemAtIndex(1));
        compare(view.unitSelection.current, "10.232.1.2");
        verify(list.itemAtIndex(1).selected);
        verify(!list.itemAtIndex(0).selected);
        verify(!child("emptyState").visible);
        compare(child("detailTitle").text, "KT400 \u00b7000456");
        compare(child("detailAddress").text, "10.232.1.2");
    }

    function test_query_trims_sends_one_discover_increments_seq_and_selects() {
        const probe = TestKit.makeProbe(client, "127.0.0.2");
        TestKit.setSeq(client, 41);
        const field = child("addressField");
        field.forceActiveFocus();
        view.manualIP = " \t 127.0.0.2 \t ";
        keyClick(Qt.Key_Return);
        compare(probe.receiveDiscovers(1, 3000), [42]);
        compare(probe.totalAfter(300), 1);
        compare(TestKit.seq(client), 42);
        compare(view.unitSelection.current, "127.0.0.2");
        compare(view.manualIP, " \t 127.0.0.2 \t ");
        verify(child("emptyState").visible);
        TestKit.ingest(client, "127.0.0.2", {});
        verify(!child("emptyState").visible);
        compare(child("detailAddress").text, "127.0.0.2");
        const list = child("deviceList");
        waitForRendering(list);
        verify(list.itemAtIndex(0).selected);
    }

    function test_query_button_runs_the_same_query() {
        const probe = TestKit.makeProbe(client, "127.0.0.2");
        TestKit.setSeq(client, 7);
        view.manualIP = "127.0.0.2";
        mouseClick(child("queryButton"));
        compare(probe.receiveDiscovers(1, 3000), [8]);
        compare(view.unitSelection.current, "127.0.0.2");
    }

    function test_blank_query_does_nothing() {
        const probe = TestKit.makeProbe(client, "127.0.0.2");
        TestKit.setSeq(client, 5);
        view.manualIP = "  \t ";
        mouseClick(child("queryButton"));
        view.manualIP = "";
        mouseClick(child("queryButton"));
        compare(probe.totalAfter(300), 0);
        compare(TestKit.seq(client), 5);
        compare(view.unitSelection.current, "");
        compare(view.manualIP, "");
    }

    function test_query_reads_leading_zeros_as_decimal_and_selects_the_canonical_address() {
        const decimal = TestKit.makeProbe(client, "127.0.0.10");
        const octal = TestKit.makeProbe(client, "127.0.0.8");
        TestKit.setSeq(client, 3);
        view.manualIP = "127.0.0.010";
        mouseClick(child("queryButton"));
        compare(decimal.receiveDiscovers(1, 3000), [4]);
        compare(octal.totalAfter(300), 0);
        compare(view.unitSelection.current, "127.0.0.10");
        verify(!child("addressRefusal").visible);
    }

    function test_query_of_text_that_is_not_an_address_sends_nothing_and_says_so() {
        // The client's broadcast address: a fallback to the broadcast lands here.
        const broadcast = TestKit.makeProbe(client, "127.0.0.3");
        TestKit.setSeq(client, 9);
        const field = child("addressField");
        const refusal = child("addressRefusal");
        verify(!refusal.visible);
        for (const typed of ["studio-base", "127.0.0", "127.0.0.300", "127.0.0.1.", "0x7f.0.0.1"]) {
            view.manualIP = typed;
            mouseClick(child("queryButton"));
            verify(refusal.visible, typed);
            compare(refusal.text, "not an IPv4 address");
        }
        compare(broadcast.totalAfter(300), 0);
        compare(TestKit.seq(client), 9);
        compare(view.unitSelection.current, "");
        // Typing takes the message away; a good address then goes out.
        field.forceActiveFocus();
        field.selectAll();
        keyClick(Qt.Key_Delete);
        verify(!refusal.visible);
        const unit = TestKit.makeProbe(client, "127.0.0.2");
        view.manualIP = "127.0.0.2";
        keyClick(Qt.Key_Return);
        compare(unit.receiveDiscovers(1, 3000), [10]);
        verify(!refusal.visible);
    }

    function test_discover_after_65535_sends_sequence_zero_to_the_broadcast_address() {
        const probe = TestKit.makeProbe(client, "127.0.0.3");
        view.unitSelection.show("10.232.9.9");
        TestKit.setSeq(client, 65535);
        mouseClick(child("discoverButton"));
        compare(probe.receiveDiscovers(1, 3000), [0]);
        compare(TestKit.seq(client), 0);
        compare(view.unitSelection.current, "10.232.9.9");
    }

    function test_status_dot_amber_before_listening() {
        compare(client.status.startsWith("listening"), false);
        verify(sameColour(child("statusDot").color, Theme.amber));
        compare(child("statusText").text, client.status);
    }

    function test_status_dot_green_while_listening() {
        client.start();
        compare(client.status.startsWith("listening on "), true);
        verify(sameColour(child("statusDot").color, Theme.online));
        compare(child("statusText").text, client.status);
    }

    function test_footer_measures() {
        const footer = child("sidebarFooter");
        const field = child("addressField");
        compare(field.placeholderText, "Add by IP");
        compare(field.font.pixelSize, 12);
        compare([field.leftPadding, field.rightPadding, field.topPadding, field.bottomPadding], [9, 9, 6, 6]);
        compare(child("discoverButton").width, footer.width - 24);
        compare(child("statusDot").width, 6);
        compare(child("unitCount").font.weight, Font.DemiBold);
        compare(child("sidebar").width, 258);
    }

    function test_untrusted_title_is_literal() {
        const serial = "<img src=\"http://127.0.0.1:9/x.png\"><b>big</b>";
        TestKit.ingest(client, "10.232.1.5", { Serial: serial });
        const list = child("deviceList");
        waitForRendering(list);
        const row = list.itemAtIndex(0);
        const expected = client.deviceData("10.232.1.5").title;
        verify(expected.indexOf("</b>") >= 0);
        compare(findChild(row, "rowTitle").text, expected);
        compare(findChild(row, "rowTitle").textFormat, Text.PlainText);
        view.unitSelection.show("10.232.1.5");
        compare(child("detailTitle").text, expected);
        compare(child("detailTitle").textFormat, Text.PlainText);
    }

    // Presence in the list: the model judges it on the client's clock, the row shows it.
    function presenceDotAfter(seconds) {
        const start = new Date(2024, 5, 1, 12, 0, 0);
        TestKit.setNow(client, start);
        TestKit.ingest(client, "10.232.1.7", {});
        TestKit.setNow(client, new Date(start.getTime() + seconds * 1000));
        const list = child("deviceList");
        waitForRendering(list);
        return findChild(list.itemAtIndex(0), "presenceDot").color;
    }

    function test_row_of_a_unit_last_heard_14_9_seconds_ago_shows_the_green_dot() {
        verify(sameColour(presenceDotAfter(14.9), Theme.online));
    }

    function test_row_of_a_unit_last_heard_15_seconds_ago_shows_the_muted_dot() {
        const dot = presenceDotAfter(15);
        fuzzyCompare(dot.a, 0.5, 0.005);
        fuzzyCompare(dot.r, Theme.inkMuted.r, 0.005);
    }

    function test_row_of_a_unit_last_heard_in_the_future_counts_as_present() {
        verify(sameColour(presenceDotAfter(-60), Theme.online));
    }

    function test_presence_lapses_on_the_clock_tick_without_a_reply() {
        verify(sameColour(presenceDotAfter(14), Theme.online));
        TestKit.setNow(client, new Date(2024, 5, 1, 12, 0, 16));
        const dot = findChild(child("deviceList").itemAtIndex(0), "presenceDot").color;
        fuzzyCompare(dot.a, 0.5, 0.005);
    }

    function test_status_dot_follows_listening_not_the_status_text() {
        verify(!client.listening);
        verify(sameColour(child("statusDot").color, Theme.amber));
        client.start();
        verify(client.listening);
        verify(sameColour(child("statusDot").color, Theme.online));
    }
}
