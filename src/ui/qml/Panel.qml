// A titled box on the surface colour: a header with its symbol, the content
// as a column, and, only when given, a footer note that wraps to any length.
import QtQuick
import QtQuick.Layouts

Rectangle {
    id: root

    required property string title
    required property string systemImage
    required property color tint
    // No footer row at all while empty.
    property string footer: ""
    default property alias content: contentColumn.data

    implicitWidth: column.implicitWidth + 2 * column.anchors.margins
    implicitHeight: column.implicitHeight + 2 * column.anchors.margins
    Layout.fillWidth: true
    radius: 16
    color: Theme.surface
    border.color: Theme.stroke
    border.width: 1
    Accessible.role: Accessible.Grouping
    Accessible.name: root.title

    ColumnLayout {
        id: column

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 18
        spacing: 14

        RowLayout {
            objectName: "panelHeader"
            spacing: 9

            Icon {
                glyph: root.systemImage
                color: root.tint
                points: 13
                font.weight: Font.DemiBold
            }
            Text {
                text: root.title
                textFormat: Text.PlainText
                color: Theme.ink
                font.pixelSize: 14
                font.weight: Font.DemiBold
            }
        }

        ColumnLayout {
            id: contentColumn

            objectName: "panelContent"
            Layout.fillWidth: true
            spacing: 12
        }

        Text {
            objectName: "panelFooter"
            visible: root.footer !== ""
            Layout.fillWidth: true
            text: root.footer
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.inkMuted
            font.pixelSize: 11
            lineHeightMode: Text.FixedHeight
            lineHeight: footerMetrics.lineSpacing + 2

            FontMetrics {
                id: footerMetrics

                font.pixelSize: 11
            }
        }
    }
}
