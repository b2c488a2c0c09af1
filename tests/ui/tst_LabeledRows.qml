// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import VornLink

TestCase {
    id: testCase

    name: "LabeledRows"
    when: windowShown
    visible: true
    width: 500
    height: 200

    Component {
        id: fieldComponent

        LabeledField {
            width: 480
            label: "Switcher IP"
            placeholder: "192.168.10.240"
        }
    }

    Component {
        id: controlComponent

        LabeledControl {
            width: 480
            label: "Tally bank"

            Rectangle {
                objectName: "control"
                implicitWidth: 90
                implicitHeight: 24
            }
        }
    }

    TextMetrics {
        id: metrics
    }

    // Items keep colours at 8 bits a channel; the theme has exact fractions.
    function sameColour(a, b) {
        return Math.abs(a.r - b.r) < 0.003 && Math.abs(a.g - b.g) < 0.003 && Math.abs(a.b - b.b) < 0.003 && Math.abs(a.a - b.a) < 0.003;
    }

    function sameWidth(font, a, b) {
        metrics.font = font;
        metrics.text = a;
        const first = metrics.advanceWidth;
        metrics.text = b;
        return Math.abs(first - metrics.advanceWidth) < 0.5;
    }

    function test_mono_field_uses_the_monospaced_design() {
        const row = createTemporaryObject(fieldComponent, testCase, { mono: true });
        verify(sameWidth(row.field.font, "iiiiiiii", "MMMMMMMM"));
    }

    function test_plain_field_uses_the_default_design() {
        const row = createTemporaryObject(fieldComponent, testCase, { mono: false });
        verify(!sameWidth(row.field.font, "iiiiiiii", "MMMMMMMM"));
        compare(row.field.font.family, Qt.application.font.family);
    }

    function test_field_measures_and_placeholder() {
        const row = createTemporaryObject(fieldComponent, testCase, { mono: false });
        const label = findChild(row, "rowLabel");
        // Alone, the label column is as wide as the label, in whole pixels.
        const column = Math.ceil(label.implicitWidth);
        compare(label.width, column);
        compare(row.labelImplicitWidth, label.implicitWidth);
        compare(label.lineCount, 1);
        compare(label.font.pixelSize, 13);
        verify(sameColour(label.color, Theme.inkMuted));
        compare(row.spacing, 12);
        compare(row.field.x, column + 12);
        compare(row.field.width, 480 - column - 12);
        compare(row.field.placeholderText, "192.168.10.240");
        compare([row.field.leftPadding, row.field.rightPadding, row.field.topPadding, row.field.bottomPadding], [11, 11, 7, 7]);
        compare(row.field.font.pixelSize, 13);
        verify(sameColour(row.field.color, Theme.ink));
        compare(row.field.background.radius, 8);
        verify(sameColour(row.field.background.color, Theme.surface2));
        verify(sameColour(row.field.background.border.color, Theme.stroke));
    }

    function test_field_text_is_two_way() {
        const row = createTemporaryObject(fieldComponent, testCase, { mono: true, text: "10.0.0.1" });
        compare(row.field.text, "10.0.0.1");
        row.field.text = "10.0.0.2";
        compare(row.text, "10.0.0.2");
    }

    function test_control_keeps_natural_width_after_label_column() {
        const row = createTemporaryObject(controlComponent, testCase);
        const control = findChild(row, "control");
        const slot = findChild(row, "controlSlot");
        compare(control.width, 90);
        compare(slot.x, Math.ceil(findChild(row, "rowLabel").implicitWidth) + 12);
        compare(slot.width, 90);
    }

    Component {
        id: panelComponent

        Panel {
            id: panel

            width: 480
            title: "Communication"
            systemImage: Glyphs.channel
            tint: Theme.cyan

            LabeledField {
                objectName: "shortRow"
                labelWidth: panel.labelColumn
                label: "Wire2"
                mono: false
                placeholder: ""
            }
            LabeledControl {
                objectName: "longRow"
                labelWidth: panel.labelColumn
                label: "Suppression Level"

                Rectangle {
                    implicitWidth: 90
                    implicitHeight: 24
                }
            }
        }
    }

    // The label column is the widest label at the current font: nothing wraps
    // and every field starts at one x.
    function test_panel_label_column_is_its_widest_label() {
        const panel = createTemporaryObject(panelComponent, testCase);
        const shortRow = findChild(panel, "shortRow");
        const longRow = findChild(panel, "longRow");
        const longLabel = findChild(longRow, "rowLabel");
        verify(longRow.labelImplicitWidth > shortRow.labelImplicitWidth);
        compare(panel.labelColumn, Math.ceil(longRow.labelImplicitWidth));
        compare(findChild(shortRow, "rowLabel").width, panel.labelColumn);
        compare(longLabel.width, panel.labelColumn);
        compare(longLabel.lineCount, 1);
        compare(shortRow.field.x, findChild(longRow, "controlSlot").x);
        // A larger font widens the column with it.
        const before = panel.labelColumn;
        longLabel.font.pixelSize = 20;
        verify(panel.labelColumn > before);
        tryCompare(longLabel, "width", panel.labelColumn);
        tryCompare(longLabel, "lineCount", 1);
    }
}
