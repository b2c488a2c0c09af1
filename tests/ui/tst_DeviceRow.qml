// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

TestCase {
    id: testCase

    name: "DeviceRow"
    when: windowShown
    visible: true
    width: 300
    height: 200


    Component {
        id: rowComponent

        DeviceRow {
            width: 246
            title: "KT400 ·A1B2C3"
            ip: "10.232.1.7"
            selected: false
            wrongSubnet: false
            addressConflict: false
            lastSeenNote: ""
            online: true
        }
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003 && Math.abs(a.a - b.a) < 0.003;
    }

    function dotColour(row) {
        return findChild(row, "presenceDot").color;
    }

    function test_online_unit_shows_the_green_dot() {
        const row = createTemporaryObject(rowComponent, testCase, { online: true });
        verify(sameColour(dotColour(row), Theme.online));
    }

    function test_offline_unit_shows_the_muted_dot() {
        const row = createTemporaryObject(rowComponent, testCase, { online: false });
        fuzzyCompare(dotColour(row).a, 0.5, 0.005);
        fuzzyCompare(dotColour(row).r, Theme.inkMuted.r, 0.005);
    }

    function test_selected_look() {
        const row = createTemporaryObject(rowComponent, testCase, { selected: true });
        fuzzyCompare(row.color.a, 0.12, 0.005);
        fuzzyCompare(row.border.color.a, 0.4, 0.005);
        fuzzyCompare(row.border.color.b, Theme.cyan.b, 0.005);
        compare(row.border.width, 1);
        fuzzyCompare(findChild(row, "iconTile").color.a, 0.22, 0.005);
    }

    function test_unselected_look() {
        const row = createTemporaryObject(rowComponent, testCase);
        compare(row.color.a, 0);
        compare(row.border.color.a, 0);
        fuzzyCompare(findChild(row, "iconTile").color.a, 0.13, 0.005);
    }

    function test_measures() {
        const row = createTemporaryObject(rowComponent, testCase);
        compare(row.radius, 10);
        const tile = findChild(row, "iconTile");
        const tileAt = tile.mapToItem(row, 0, 0);
        compare([tileAt.x, tileAt.y, tile.width, tile.height, tile.radius], [8, 5, 36, 36, 9]);
        compare(row.height, 36 + 10);
        const title = findChild(row, "rowTitle");
        compare(title.mapToItem(row, 0, 0).x, 8 + 36 + 11);
        compare(title.font.pixelSize, 13);
        compare(title.font.weight, Font.DemiBold);
        const address = findChild(row, "rowAddress");
        compare(address.font.pixelSize, 11);
        compare(address.mapToItem(row, 0, 0).y - (title.mapToItem(row, 0, 0).y + title.height), 2);
        const dot = findChild(row, "presenceDot");
        compare([dot.width, dot.height], [7, 7]);
    }

    function test_long_title_keeps_the_dot_at_the_trailing_edge() {
        const row = createTemporaryObject(rowComponent, testCase, { title: "KT400 ·" + "W".repeat(80) });
        const dot = findChild(row, "presenceDot");
        compare(dot.mapToItem(row, 0, 0).x + dot.width, row.width - 8);
        verify(findChild(row, "rowTitle").truncated);
    }

    function test_markup_in_title_is_literal() {
        const title = "KT400 ·<img src=\"http://127.0.0.1:9/x.png\"><b>big</b>";
        const row = createTemporaryObject(rowComponent, testCase, { title: title });
        const text = findChild(row, "rowTitle");
        compare(text.textFormat, Text.PlainText);
        compare(text.text, title);
    }

    function test_no_warning_on_a_unit_in_its_networks_subnet() {
        const row = createTemporaryObject(rowComponent, testCase);
        compare(findChild(row, "rowAddress").text, "10.232.1.7");
        verify(!findChild(row, "rowWarning").visible);
    }

    function test_wrong_subnet_reads_after_the_address_in_amber() {
        const row = createTemporaryObject(rowComponent, testCase, { wrongSubnet: true });
        const warning = findChild(row, "rowWarning");
        verify(warning.visible);
        compare(findChild(row, "rowAddress").text + warning.text, "10.232.1.7 \u00b7 wrong subnet");
        verify(sameColour(warning.color, Theme.amber));
    }

    function test_address_conflict_reads_after_the_address_in_amber() {
        const row = createTemporaryObject(rowComponent, testCase, { addressConflict: true });
        const warning = findChild(row, "rowWarning");
        compare(findChild(row, "rowAddress").text + warning.text, "10.232.1.7 \u00b7 address conflict");
        verify(sameColour(warning.color, Theme.amber));
    }

    function test_both_warnings_at_once() {
        const row = createTemporaryObject(rowComponent, testCase, { wrongSubnet: true, addressConflict: true });
        compare(findChild(row, "rowWarning").text, " \u00b7 wrong subnet \u00b7 address conflict");
    }

    function test_a_long_warning_keeps_the_dot_at_the_trailing_edge() {
        const row = createTemporaryObject(rowComponent, testCase, { wrongSubnet: true, addressConflict: true });
        waitForRendering(row);
        const dot = findChild(row, "presenceDot");
        fuzzyCompare(dot.mapToItem(row, dot.width, 0).x, row.width - 8, 0.5);
    }

    function test_a_remembered_unit_reads_when_it_was_last_seen_after_the_address_in_muted_ink() {
        const row = createTemporaryObject(rowComponent, testCase, { online: false, lastSeenNote: "last seen 3 min ago" });
        const note = findChild(row, "rowLastSeen");
        verify(note.visible);
        compare(note.textFormat, Text.PlainText);
        compare(findChild(row, "rowAddress").text + note.text, "10.232.1.7 \u00b7 last seen 3 min ago");
        verify(sameColour(note.color, Theme.inkMuted));
        compare(row.Accessible.description, "last seen 3 min ago");
        waitForRendering(row);
        grabImage(row).save(TestKit.shotPath("row-remembered-offline.png"));
    }

    function test_the_last_sighting_comes_before_the_warnings() {
        const row = createTemporaryObject(rowComponent, testCase, { lastSeenNote: "last seen yesterday", wrongSubnet: true });
        compare(row.addressNote, " \u00b7 last seen yesterday \u00b7 wrong subnet");
    }

    function test_a_unit_heard_in_this_run_has_no_last_sighting() {
        const row = createTemporaryObject(rowComponent, testCase);
        verify(!findChild(row, "rowLastSeen").visible);
        compare(row.addressNote, "");
    }
}
