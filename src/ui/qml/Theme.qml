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

    // Measures of the fleet views: the footer's menu, the restore review and
    // the list of verdicts.
    readonly property int fleetMenuWidth: 210
    readonly property int fleetDialogWidth: 620
    readonly property int fleetDialogMargin: 24
    readonly property int fleetDialogPadding: 20
    readonly property int fleetRadius: 10
    readonly property int fleetRowPadding: 10
    readonly property int fleetSpacing: 6
    readonly property int fleetBoxSize: 16
    readonly property int fleetTitleSize: 15
    readonly property int fleetTextSize: 13
    readonly property int fleetSmallSize: 11

    // Measures of the editor of several units: its margins and gaps, the
    // height its verdict list may take, and the width of its header's note.
    readonly property int multiMargin: 28
    readonly property int multiSpacing: 18
    readonly property int multiVerdictHeight: 220
    readonly property int multiNoteWidth: 420
    readonly property int multiTitleSize: 25

    // `colour` at `opacity`: the one way a view makes a faint version of a colour.
    function alpha(colour: color, opacity: real): color {
        return Qt.rgba(colour.r, colour.g, colour.b, opacity);
    }
}
