// A small badge: optional symbol and text in the tint, on a faint capsule of it.
import QtQuick

Rectangle {
    id: root

    required property string text
    required property color tint
    property string systemImage: ""

    implicitWidth: row.implicitWidth + 18
    implicitHeight: row.implicitHeight + 8
    radius: height / 2
    color: Qt.rgba(root.tint.r, root.tint.g, root.tint.b, 0.16)

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 5

        Icon {
            objectName: "chipSymbol"
            visible: root.systemImage !== ""
            anchors.verticalCenter: parent.verticalCenter
            glyph: root.systemImage
            color: root.tint
            points: 9
            font.weight: Font.Bold
        }
        Text {
            objectName: "chipText"
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            textFormat: Text.PlainText
            color: root.tint
            font.pixelSize: 11
            font.weight: Font.DemiBold
        }
    }
}
