// SPDX-License-Identifier: Apache-2.0
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

    implicitWidth: row.implicitWidth + 2 * Theme.gapTiny
    implicitHeight: row.implicitHeight + 2 * Theme.gapTiny
    radius: Theme.radiusSegmentBar
    color: Theme.surface
    border.width: Theme.hairline
    border.color: Theme.stroke
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Settings")

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.gapHair

        Repeater {
            id: segments

            model: root.titles

            TabButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool current: root.selection === segment.index

                objectName: "segment" + segment.index
                leftPadding: Theme.segmentPaddingHorizontal
                rightPadding: Theme.segmentPaddingHorizontal
                topPadding: Theme.fieldPaddingVertical
                bottomPadding: Theme.fieldPaddingVertical
                onClicked: root.selected(segment.index)
                // The owner keeps the selection, not the button.
                checkable: false
                Accessible.name: segment.modelData
                Accessible.description: segmentShortcut.nativeText
                Accessible.selectable: true
                Accessible.selected: segment.current
                // A tab has no press action of its own: a screen reader switches tabs with this one.
                Accessible.onPressAction: segment.clicked()
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
                    targetRadius: Theme.radiusControl
                }

                contentItem: Row {
                    spacing: Theme.gapIcon

                    Icon {
                        anchors.verticalCenter: parent.verticalCenter
                        glyph: root.glyphs[segment.index]
                        color: segment.current ? Theme.cyan : Theme.inkMuted
                        points: Theme.iconBody
                    }
                    Text {
                        objectName: "segmentTitle"
                        anchors.verticalCenter: parent.verticalCenter
                        text: segment.modelData
                        textFormat: Text.PlainText
                        color: segment.current ? Theme.ink : Theme.inkMuted
                        font.pixelSize: Theme.fontBody
                        font.weight: segment.current ? Font.DemiBold : Font.Medium
                    }
                }

                background: Rectangle {
                    radius: Theme.radiusControl
                    color: segment.current ? Theme.alpha(Theme.cyan, 0.14)
                                           : segment.hovered ? Theme.alpha(Theme.ink, 0.05) : "transparent"
                    border.width: segment.current || segment.visualFocus ? Theme.hairline : 0
                    border.color: Theme.alpha(Theme.cyan, segment.visualFocus ? 0.8 : 0.35)
                }
            }
        }
    }
}
