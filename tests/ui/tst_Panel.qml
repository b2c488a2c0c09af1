// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import VornLink

TestCase {
    id: testCase

    name: "Panel"
    when: windowShown
    visible: true
    width: 400
    height: 600

    Component {
        id: panelComponent

        Panel {
            width: 360
            title: "Switcher"
            systemImage: Glyphs.station
            tint: Theme.cyan

            Rectangle {
                objectName: "payload"
                implicitWidth: 100
                implicitHeight: 40
            }
        }
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003 && Math.abs(a.a - b.a) < 0.003;
    }

    function visibleRows(panel) {
        const column = findChild(panel, "panelHeader").parent;
        return Array.prototype.filter.call(column.children, child => child.visible);
    }

    function test_without_footer_two_rows() {
        const panel = createTemporaryObject(panelComponent, testCase);
        const rows = visibleRows(panel);
        compare(rows.length, 2);
        compare(rows[0].objectName, "panelHeader");
        compare(rows[1].objectName, "panelContent");
        // 18 padding, header, 14 spacing, content, 18 padding: no room kept for a footer
        compare(panel.height, 18 + rows[0].height + 14 + 40 + 18);
    }

    function test_long_footer_wraps_and_is_whole() {
        const footer = "A unit keeps these settings until it is told otherwise. ".repeat(8);
        const panel = createTemporaryObject(panelComponent, testCase, { footer: footer });
        const text = findChild(panel, "panelFooter");
        verify(text.visible);
        compare(visibleRows(panel).length, 3);
        verify(text.lineCount > 3, "lines: " + text.lineCount);
        verify(!text.truncated);
        compare(text.width, 360 - 2 * 18);
        tryCompare(panel, "height", 18 + findChild(panel, "panelHeader").height + 14 + 40 + 14 + text.height + 18);
        compare(text.font.pixelSize, 11);
        verify(sameColour(text.color, Theme.inkMuted));
    }

    function test_box_measures() {
        const panel = createTemporaryObject(panelComponent, testCase);
        compare(panel.radius, 16);
        verify(sameColour(panel.color, Theme.surface));
        verify(sameColour(panel.border.color, Theme.stroke));
        compare(panel.border.width, 1);
        const header = findChild(panel, "panelHeader");
        compare(header.spacing, 9);
        compare(header.children[1].font.pixelSize, 14);
        compare(header.children[1].font.weight, Font.DemiBold);
        verify(sameColour(header.children[0].color, Theme.cyan));
        compare(findChild(panel, "panelContent").spacing, 12);
        compare(findChild(panel, "payload").x, 0);
    }
}
