// SPDX-License-Identifier: Apache-2.0
// A small badge: optional symbol and text in the tint, on a faint capsule of it.
// Given a maximumWidth, a long text is cut short with an ellipsis.
import QtQuick

Rectangle {
    id: root

    required property string text
    required property color tint
    property string systemImage: ""
    property real maximumWidth: Infinity

    readonly property real symbolWidth: symbol.visible ? symbol.implicitWidth + row.spacing : 0

    implicitWidth: root.symbolWidth + label.implicitWidth + 2 * Theme.chipPaddingHorizontal
    width: Math.min(root.implicitWidth, root.maximumWidth)
    implicitHeight: row.implicitHeight + 2 * Theme.chipPaddingVertical
    radius: height / 2
    color: Theme.alpha(root.tint, 0.16)
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.gapChip

        Icon {
            id: symbol
            objectName: "chipSymbol"
            visible: root.systemImage !== ""
            anchors.verticalCenter: parent.verticalCenter
            glyph: root.systemImage
            color: root.tint
            points: Theme.iconChip
            font.weight: Font.Bold
        }
        Text {
            id: label
            objectName: "chipText"
            Accessible.ignored: true
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(label.implicitWidth, root.width - 2 * Theme.chipPaddingHorizontal - root.symbolWidth)
            text: root.text
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: root.tint
            font.pixelSize: Theme.fontSmall
            font.weight: Font.DemiBold
        }
    }
}
