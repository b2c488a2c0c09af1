// The tab bar of the editor: one button per tab, glyph and title, in a
// rounded track; the selected one is drawn in the accent. Pressing a button,
// or its shortcut Ctrl+1, Ctrl+2, ..., only reports its index; the owner
// keeps the selection.
import QtQuick
import QtQuick.Controls.Basic

Rectangle {
    id: root

    required property var titles
    required property var glyphs
    required property int selection

    signal selected(int index)

    // Gives the keyboard to the button of the selected tab.
    function focusSelected() {
        const segment = segments.itemAt(root.selection);
        if (segment)
            segment.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitWidth: row.implicitWidth + 8
    implicitHeight: row.implicitHeight + 8
    radius: 11
    color: Theme.surface
    border.width: 1
    border.color: Theme.stroke
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Settings")

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 2

        Repeater {
            id: segments

            model: root.titles

            TabButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool current: root.selection === segment.index

                objectName: "segment" + segment.index
                leftPadding: 14
                rightPadding: 14
                topPadding: 7
                bottomPadding: 7
                onClicked: root.selected(segment.index)
                // The owner keeps the selection, not the button.
                checkable: false
                Accessible.name: segment.modelData
                Accessible.description: segmentShortcut.nativeText
                Accessible.selectable: true
                Accessible.selected: segment.current
                ToolTip.visible: segment.hovered
                ToolTip.delay: Theme.toolTipDelay
                ToolTip.text: qsTr("%1 (%2)").arg(segment.modelData).arg(segmentShortcut.nativeText)
                Keys.onReturnPressed: segment.clicked()
                Keys.onEnterPressed: segment.clicked()

                Shortcut {
                    id: segmentShortcut

                    sequence: "Ctrl+" + (segment.index + 1)
                    onActivated: {
                        segment.clicked();
                        // The switch may have hidden the field that had the keyboard: it comes here.
                        const now = segment.Window.activeFocusItem;
                        if (!now || !now.visible || !now.activeFocusOnTab)
                            segment.forceActiveFocus(Qt.ShortcutFocusReason);
                    }
                }

                FocusRing {
                    shown: segment.visualFocus
                    targetRadius: 8
                }

                contentItem: Row {
                    spacing: 7

                    Icon {
                        anchors.verticalCenter: parent.verticalCenter
                        glyph: root.glyphs[segment.index]
                        color: segment.current ? Theme.cyan : Theme.inkMuted
                        points: 13
                    }
                    Text {
                        objectName: "segmentTitle"
                        anchors.verticalCenter: parent.verticalCenter
                        text: segment.modelData
                        textFormat: Text.PlainText
                        color: segment.current ? Theme.ink : Theme.inkMuted
                        font.pixelSize: 13
                        font.weight: segment.current ? Font.DemiBold : Font.Medium
                    }
                }

                background: Rectangle {
                    radius: 8
                    color: segment.current ? Theme.alpha(Theme.cyan, 0.14)
                                           : segment.hovered ? Theme.alpha(Theme.ink, 0.05) : "transparent"
                    border.width: segment.current || segment.visualFocus ? 1 : 0
                    border.color: Theme.alpha(Theme.cyan, segment.visualFocus ? 0.8 : 0.35)
                }
            }
        }
    }
}
