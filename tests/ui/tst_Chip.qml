// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import VornLink

TestCase {
    id: testCase

    name: "Chip"
    when: windowShown
    visible: true

    Component {
        id: chipComponent

        Chip {
            text: "Online"
            tint: Theme.online
        }
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003 && Math.abs(a.a - b.a) < 0.003;
    }

    function test_without_symbol_only_text_same_padding() {
        const chip = createTemporaryObject(chipComponent, testCase);
        const text = findChild(chip, "chipText");
        verify(!findChild(chip, "chipSymbol").visible);
        compare(chip.implicitWidth, text.implicitWidth + 18);
        compare(chip.implicitHeight, text.implicitHeight + 8);
    }

    function test_with_symbol() {
        const chip = createTemporaryObject(chipComponent, testCase, { systemImage: Glyphs.station });
        const symbol = findChild(chip, "chipSymbol");
        const text = findChild(chip, "chipText");
        verify(symbol.visible);
        compare(chip.implicitWidth, symbol.implicitWidth + 5 + text.implicitWidth + 18);
        compare(symbol.font.weight, Font.Bold);
        verify(sameColour(symbol.color, Theme.online));
    }

    function test_look() {
        const chip = createTemporaryObject(chipComponent, testCase);
        const text = findChild(chip, "chipText");
        compare(text.font.pixelSize, 11);
        compare(text.font.weight, Font.DemiBold);
        verify(sameColour(text.color, Theme.online));
        fuzzyCompare(chip.color.a, 0.16, 0.005);
        fuzzyCompare(chip.color.g, Theme.online.g, 0.005);
        compare(chip.radius, chip.height / 2);
    }

    function test_markup_is_shown_as_text() {
        const chip = createTemporaryObject(chipComponent, testCase, { text: "<b>fw</b>" });
        const text = findChild(chip, "chipText");
        compare(text.textFormat, Text.PlainText);
        compare(text.text, "<b>fw</b>");
    }
}
