// SPDX-License-Identifier: Apache-2.0
// The one palette of the window: dark only, never following the system.
pragma Singleton
import QtQuick

QtObject {
    readonly property color bg: Qt.rgba(0.043, 0.086, 0.125, 1)
    readonly property color surface: Qt.rgba(0.082, 0.145, 0.192, 1)
    readonly property color surface2: Qt.rgba(0.114, 0.192, 0.247, 1)
    readonly property color stroke: Qt.rgba(1, 1, 1, 0.09)
    readonly property color ink: Qt.rgba(0.922, 0.953, 0.973, 1)
    readonly property color inkMuted: Qt.rgba(0.596, 0.678, 0.729, 1)
    readonly property color tally: Qt.rgba(1.0, 0.271, 0.227, 1)
    readonly property color cyan: Qt.rgba(0.22, 0.815, 0.909, 1)
    readonly property color online: Qt.rgba(0.196, 0.843, 0.294, 1)
    readonly property color amber: Qt.rgba(1.0, 0.839, 0.039, 1)

    // The ring around the control that has the keyboard: its colour, its
    // line width and its gap to the control's edge.
    readonly property color focusRing: cyan
    readonly property real focusRingWidth: 2
    readonly property real focusRingGap: 2
    // How long the pointer rests on a control before its tooltip shows, in ms.
    readonly property int toolTipDelay: 600
    // Measures of the fleet views: the footer's menu, the restore review and
    // the list of verdicts.
    readonly property int fleetMenuWidth: 210
    readonly property int fleetDialogWidth: 620
    readonly property int restoreConfirmWidth: 520
    readonly property int fleetDialogPadding: 20
    readonly property int fleetBoxSize: 16
    // The scan of an address block: its dialog's width and its progress bar's height.
    readonly property int scanDialogWidth: 420
    readonly property int progressBarHeight: 4

    // Measures of the editor of several units: the height its verdict list
    // may take, and the width of its header's note.
    readonly property int multiVerdictHeight: 220
    readonly property int multiNoteWidth: 420

    // `colour` at `opacity`: the one way a view makes a faint version of a colour.
    function alpha(colour: color, opacity: real): color {
        return Qt.rgba(colour.r, colour.g, colour.b, opacity);
    }

    // Measures: every size, gap and radius a view uses more than once, by role.
    // Type, in pixels.
    readonly property int fontCaption: 10
    readonly property int fontSmall: 11
    readonly property int fontNote: 12
    readonly property int fontBody: 13
    readonly property int fontPanelTitle: 14
    readonly property int fontDialogTitle: 15
    readonly property int fontEmptyTitle: 16
    readonly property int fontHeadline: 25
    // Icon glyphs, in points (Icon.points).
    readonly property int iconChip: 9
    readonly property int iconToggle: 10
    readonly property int iconNote: 11
    readonly property int iconList: 12
    readonly property int iconBody: 13
    readonly property int iconRow: 15
    readonly property int iconDialog: 16
    readonly property int iconEmpty: 38
    // Corner radii.
    readonly property int radiusScrollBar: 2
    readonly property int radiusSmall: 6
    readonly property int radiusControl: 8
    readonly property int radiusButton: 9
    readonly property int radiusRow: 10
    readonly property int radiusSegmentBar: 11
    readonly property int radiusPopup: 12
    readonly property int radiusPanel: 16
    // Gaps between items, smallest first.
    readonly property int gapHair: 2
    readonly property int gapTiny: 4
    readonly property int gapChip: 5
    readonly property int gapSmall: 6
    readonly property int gapIcon: 7
    readonly property int gap: 8
    readonly property int gapPanelTitle: 9
    readonly property int gapMedium: 10
    readonly property int gapRow: 11
    readonly property int gapLarge: 12
    readonly property int gapPanel: 14
    readonly property int gapWide: 16
    readonly property int gapSection: 18
    // Window, page, panel and form layout.
    readonly property int windowWidth: 1040
    readonly property int windowHeight: 680
    readonly property int windowMinimumWidth: 860
    readonly property int windowMinimumHeight: 560
    readonly property int sidebarWidth: 258
    readonly property int sidebarMinimumWidth: 232
    readonly property int activityPaneHeight: 180
    readonly property int activityPaneMinimumHeight: 90
    readonly property int pageMargin: 28
    readonly property int panelPadding: 18
    readonly property int dialogPadding: 22
    readonly property int dialogTopPadding: 20
    readonly property int dialogWidth: 460
    readonly property int dialogMinimumMargin: 24
    // The dialog's message, in line heights.
    readonly property real dialogLineHeight: 1.15
    readonly property int popupPadding: 14
    readonly property int labelGap: 12
    readonly property int verdictMaximumWidth: 320
    // Paddings inside controls.
    readonly property int buttonPaddingVertical: 8
    readonly property int accentButtonPadding: 15
    readonly property int ghostButtonPadding: 13
    readonly property int fieldPaddingHorizontal: 11
    readonly property int fieldPaddingVertical: 7
    readonly property int compactPaddingHorizontal: 9
    readonly property int compactPaddingVertical: 6
    readonly property int pillPaddingLeft: 8
    readonly property int pillPaddingRight: 9
    readonly property int pillPaddingVertical: 3
    readonly property int smallPillPaddingHorizontal: 7
    readonly property int smallPillPaddingVertical: 2
    readonly property int smallButtonPaddingHorizontal: 10
    readonly property int smallButtonPaddingVertical: 4
    readonly property int listPaddingTop: 9
    readonly property int listPaddingBottom: 3
    readonly property int segmentPaddingHorizontal: 14
    readonly property int logPaddingHorizontal: 10
    readonly property int logPaddingVertical: 8
    // Sizes of small parts.
    readonly property int hairline: 1
    readonly property int focusStroke: 2
    readonly property int spinnerStroke: 2
    readonly property int scrollBarWidth: 4
    readonly property int statusDotSize: 6
    readonly property int presenceDotSize: 7
    readonly property int rowIconSize: 36
    readonly property int emptyBadgeSize: 92
    readonly property int spinnerSize: 14
    readonly property int networksPopupWidth: 240
    readonly property int controlHeight: 32
    readonly property int stepperButtonWidth: 30
    readonly property int pickerMinimumWidth: 120
    readonly property int pickerHandleRoom: 32
    readonly property int pickerHandleInset: 9
    readonly property int pickerListMaximumHeight: 360
    readonly property int toggleWidth: 40
    readonly property int toggleHeight: 22
    readonly property int toggleKnobSize: 18
    readonly property int toggleKnobInset: 2
    readonly property int splitHandleHeight: 7
    readonly property int chipPaddingHorizontal: 9
    readonly property int chipPaddingVertical: 4
    readonly property int rowPaddingVertical: 5
}
