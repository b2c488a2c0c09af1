// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import VornLink

TestCase {
    name: "Theme"

    function test_the_ten_colours_data() {
        return [
            { tag: "bg", colour: Theme.bg, rgba: [0.043, 0.086, 0.125, 1] },
            { tag: "surface", colour: Theme.surface, rgba: [0.082, 0.145, 0.192, 1] },
            { tag: "surface2", colour: Theme.surface2, rgba: [0.114, 0.192, 0.247, 1] },
            { tag: "stroke", colour: Theme.stroke, rgba: [1, 1, 1, 0.09] },
            { tag: "ink", colour: Theme.ink, rgba: [0.922, 0.953, 0.973, 1] },
            { tag: "inkMuted", colour: Theme.inkMuted, rgba: [0.596, 0.678, 0.729, 1] },
            { tag: "tally", colour: Theme.tally, rgba: [1.0, 0.271, 0.227, 1] },
            { tag: "cyan", colour: Theme.cyan, rgba: [0.22, 0.815, 0.909, 1] },
            { tag: "online", colour: Theme.online, rgba: [0.196, 0.843, 0.294, 1] },
            { tag: "amber", colour: Theme.amber, rgba: [1.0, 0.839, 0.039, 1] },
        ];
    }

    function test_the_ten_colours(data) {
        fuzzyCompare(data.colour.r, data.rgba[0], 0.0001);
        fuzzyCompare(data.colour.g, data.rgba[1], 0.0001);
        fuzzyCompare(data.colour.b, data.rgba[2], 0.0001);
        fuzzyCompare(data.colour.a, data.rgba[3], 0.0001);
    }

    // Every measure the views take from Theme, at the size the window was
    // drawn with before the measures moved here.
    function test_the_measures_data() {
        return [
            { tag: "fontCaption", value: 10 },
            { tag: "fontSmall", value: 11 },
            { tag: "fontNote", value: 12 },
            { tag: "fontBody", value: 13 },
            { tag: "fontPanelTitle", value: 14 },
            { tag: "fontDialogTitle", value: 15 },
            { tag: "fontEmptyTitle", value: 16 },
            { tag: "fontHeadline", value: 25 },
            { tag: "iconChip", value: 9 },
            { tag: "iconToggle", value: 10 },
            { tag: "iconNote", value: 11 },
            { tag: "iconList", value: 12 },
            { tag: "iconBody", value: 13 },
            { tag: "iconRow", value: 15 },
            { tag: "iconDialog", value: 16 },
            { tag: "iconEmpty", value: 38 },
            { tag: "radiusScrollBar", value: 2 },
            { tag: "radiusSmall", value: 6 },
            { tag: "radiusControl", value: 8 },
            { tag: "radiusButton", value: 9 },
            { tag: "radiusRow", value: 10 },
            { tag: "radiusSegmentBar", value: 11 },
            { tag: "radiusPopup", value: 12 },
            { tag: "radiusPanel", value: 16 },
            { tag: "gapHair", value: 2 },
            { tag: "gapTiny", value: 4 },
            { tag: "gapChip", value: 5 },
            { tag: "gapSmall", value: 6 },
            { tag: "gapIcon", value: 7 },
            { tag: "gap", value: 8 },
            { tag: "gapPanelTitle", value: 9 },
            { tag: "gapMedium", value: 10 },
            { tag: "gapRow", value: 11 },
            { tag: "gapLarge", value: 12 },
            { tag: "gapPanel", value: 14 },
            { tag: "gapWide", value: 16 },
            { tag: "gapSection", value: 18 },
            { tag: "windowWidth", value: 1040 },
            { tag: "windowHeight", value: 680 },
            { tag: "windowMinimumWidth", value: 860 },
            { tag: "windowMinimumHeight", value: 560 },
            { tag: "sidebarWidth", value: 258 },
            { tag: "sidebarMinimumWidth", value: 232 },
            { tag: "activityPaneHeight", value: 180 },
            { tag: "activityPaneMinimumHeight", value: 90 },
            { tag: "pageMargin", value: 28 },
            { tag: "panelPadding", value: 18 },
            { tag: "dialogPadding", value: 22 },
            { tag: "dialogTopPadding", value: 20 },
            { tag: "dialogWidth", value: 460 },
            { tag: "dialogMinimumMargin", value: 24 },
            { tag: "dialogLineHeight", value: 1.15 },
            { tag: "popupPadding", value: 14 },
            { tag: "labelGap", value: 12 },
            { tag: "verdictMaximumWidth", value: 320 },
            { tag: "buttonPaddingVertical", value: 8 },
            { tag: "accentButtonPadding", value: 15 },
            { tag: "ghostButtonPadding", value: 13 },
            { tag: "fieldPaddingHorizontal", value: 11 },
            { tag: "fieldPaddingVertical", value: 7 },
            { tag: "compactPaddingHorizontal", value: 9 },
            { tag: "compactPaddingVertical", value: 6 },
            { tag: "pillPaddingLeft", value: 8 },
            { tag: "pillPaddingRight", value: 9 },
            { tag: "pillPaddingVertical", value: 3 },
            { tag: "smallPillPaddingHorizontal", value: 7 },
            { tag: "smallPillPaddingVertical", value: 2 },
            { tag: "smallButtonPaddingHorizontal", value: 10 },
            { tag: "smallButtonPaddingVertical", value: 4 },
            { tag: "listPaddingTop", value: 9 },
            { tag: "listPaddingBottom", value: 3 },
            { tag: "segmentPaddingHorizontal", value: 14 },
            { tag: "logPaddingHorizontal", value: 10 },
            { tag: "logPaddingVertical", value: 8 },
            { tag: "hairline", value: 1 },
            { tag: "focusStroke", value: 2 },
            { tag: "spinnerStroke", value: 2 },
            { tag: "scrollBarWidth", value: 4 },
            { tag: "statusDotSize", value: 6 },
            { tag: "presenceDotSize", value: 7 },
            { tag: "rowIconSize", value: 36 },
            { tag: "emptyBadgeSize", value: 92 },
            { tag: "spinnerSize", value: 14 },
            { tag: "networksPopupWidth", value: 240 },
            { tag: "controlHeight", value: 32 },
            { tag: "stepperButtonWidth", value: 30 },
            { tag: "pickerMinimumWidth", value: 120 },
            { tag: "pickerHandleRoom", value: 32 },
            { tag: "pickerHandleInset", value: 9 },
            { tag: "pickerListMaximumHeight", value: 360 },
            { tag: "toggleWidth", value: 40 },
            { tag: "toggleHeight", value: 22 },
            { tag: "toggleKnobSize", value: 18 },
            { tag: "toggleKnobInset", value: 2 },
            { tag: "splitHandleHeight", value: 7 },
            { tag: "chipPaddingHorizontal", value: 9 },
            { tag: "chipPaddingVertical", value: 4 },
            { tag: "rowPaddingVertical", value: 5 },
        ];
    }

    function test_the_measures(data) {
        verify(Theme[data.tag] !== undefined, data.tag + " is missing");
        compare(Theme[data.tag], data.value);
    }

    function test_alpha_keeps_the_colour_and_sets_the_opacity() {
        const faint = Theme.alpha(Theme.cyan, 0.35);
        fuzzyCompare(faint.r, Theme.cyan.r, 0.0001);
        fuzzyCompare(faint.g, Theme.cyan.g, 0.0001);
        fuzzyCompare(faint.b, Theme.cyan.b, 0.0001);
        fuzzyCompare(faint.a, 0.35, 0.01);
    }
}
