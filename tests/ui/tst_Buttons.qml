// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import VornLink

TestCase {
    id: testCase

    name: "Buttons"
    when: windowShown
    visible: true
    width: 300
    height: 200

    Component {
        id: ghostComponent

        GhostButton {
            text: "Reload"
            tint: Theme.inkMuted
        }
    }

    Component {
        id: accentComponent

        AccentButton {
            text: "Save changes"
            tint: Theme.cyan
        }
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003 && Math.abs(a.a - b.a) < 0.003;
    }

    function test_ghost_look() {
        const button = createTemporaryObject(ghostComponent, testCase);
        compare([button.leftPadding, button.rightPadding, button.topPadding, button.bottomPadding], [13, 13, 8, 8]);
        compare(button.font.pixelSize, 13);
        compare(button.font.weight, Font.Medium);
        verify(sameColour(button.contentItem.color, Theme.inkMuted));
        compare(button.background.radius, 9);
        verify(sameColour(button.background.color, Theme.surface2));
        verify(sameColour(button.background.border.color, Theme.stroke));
        compare(button.background.border.width, 1);
        compare(button.implicitWidth, button.contentItem.implicitWidth + 26);
    }

    function test_ghost_dims_while_pressed() {
        const button = createTemporaryObject(ghostComponent, testCase);
        compare(button.opacity, 1);
        mousePress(button);
        tryCompare(button, "opacity", 0.8);
        mouseRelease(button);
        tryCompare(button, "opacity", 1);
    }

    function test_disabled_ghost_has_a_muted_label_and_a_fainter_hairline() {
        const button = createTemporaryObject(ghostComponent, testCase, { tint: Theme.ink });
        verify(sameColour(button.contentItem.color, Theme.ink));
        button.enabled = false;
        verify(sameColour(button.contentItem.color, Theme.alpha(Theme.inkMuted, 0.55)));
        verify(sameColour(button.background.border.color, Theme.alpha(Theme.stroke, 0.5)));
        button.enabled = true;
        verify(sameColour(button.contentItem.color, Theme.ink));
        verify(sameColour(button.background.border.color, Theme.stroke));
    }

    function test_accent_enabled_look() {
        const button = createTemporaryObject(accentComponent, testCase);
        const label = findChild(button, "accentLabel");
        compare([button.leftPadding, button.rightPadding, button.topPadding, button.bottomPadding], [15, 15, 8, 8]);
        compare(button.font.weight, Font.DemiBold);
        verify(sameColour(label.color, Theme.bg));
        verify(sameColour(button.background.color, Theme.cyan));
        compare(button.background.radius, 9);
        compare(button.background.border.width, 0);
    }

    function test_accent_shrinks_and_dims_while_pressed() {
        const button = createTemporaryObject(accentComponent, testCase);
        mousePress(button);
        tryCompare(button, "scale", 0.98);
        tryCompare(button, "opacity", 0.82);
        mouseRelease(button);
        tryCompare(button, "scale", 1);
        tryCompare(button, "opacity", 1);
    }

    function test_disabled_accent_is_muted_and_still_shrinks_when_down() {
        const button = createTemporaryObject(accentComponent, testCase, { enabled: false });
        const label = findChild(button, "accentLabel");
        verify(sameColour(label.color, Theme.inkMuted));
        verify(sameColour(button.background.color, Theme.surface2));
        button.down = true;
        tryCompare(button, "scale", 0.98);
        tryCompare(button, "opacity", 0.82);
        verify(sameColour(label.color, Theme.inkMuted));
    }

    function test_accent_symbol_is_optional() {
        const plain = createTemporaryObject(accentComponent, testCase);
        const withSymbol = createTemporaryObject(accentComponent, testCase, { systemImage: Glyphs.broadcast });
        verify(withSymbol.implicitWidth > plain.implicitWidth);
        compare(plain.implicitWidth, findChild(plain, "accentLabel").implicitWidth + 30);
    }
}
