// The tab bar of the editor: one button per tab, glyph and title, in a
// rounded track; the selected one is drawn in the accent. Pressing a button
// only reports its index; the owner keeps the selection.
import QtQuick
import QtQuick.Controls.Basic

Rectangle {
    id: root

    required property var titles
    required property var glyphs
    required property int selection

    signal selected(int index)

    implicitWidth: row.implicitWidth + 2 * Theme.gapTiny
    implicitHeight: row.implicitHeight + 2 * Theme.gapTiny
    radius: Theme.radiusSegmentBar
    color: Theme.surface
    border.width: Theme.hairline
    border.color: Theme.stroke

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.gapHair

        Repeater {
            model: root.titles

            AbstractButton {
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
