// SPDX-License-Identifier: Apache-2.0
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
    // The label column of the panel's form rows: their widest label as the
    // current font draws it, so no label wraps. The rows take it as labelWidth.
    readonly property real labelColumn: {
        const rows = contentColumn.children;
        let widest = 0;
        for (let i = 0; i < rows.length; ++i) {
            if (rows[i].labelImplicitWidth !== undefined)
                widest = Math.max(widest, rows[i].labelImplicitWidth);
        }
        return Math.ceil(widest);
    }

    implicitWidth: column.implicitWidth + 2 * column.anchors.margins
    implicitHeight: column.implicitHeight + 2 * column.anchors.margins
    Layout.fillWidth: true
    radius: Theme.radiusPanel
    color: Theme.surface
    border.color: Theme.stroke
    border.width: Theme.hairline
    Accessible.role: Accessible.Grouping
    Accessible.name: root.title

    ColumnLayout {
        id: column

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.panelPadding
        spacing: Theme.gapPanel

        RowLayout {
            objectName: "panelHeader"
            spacing: Theme.gapPanelTitle

            Icon {
                glyph: root.systemImage
                color: root.tint
                points: Theme.iconBody
                font.weight: Font.DemiBold
            }
            Text {
                text: root.title
                textFormat: Text.PlainText
                color: Theme.ink
                font.pixelSize: Theme.fontPanelTitle
                font.weight: Font.DemiBold
            }
        }

        ColumnLayout {
            id: contentColumn

            objectName: "panelContent"
            Layout.fillWidth: true
            spacing: Theme.gapLarge
        }

        Text {
            objectName: "panelFooter"
            visible: root.footer !== ""
            Layout.fillWidth: true
            text: root.footer
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.inkMuted
            font.pixelSize: Theme.fontSmall
            lineHeightMode: Text.FixedHeight
            lineHeight: footerMetrics.lineSpacing + Theme.gapHair

            FontMetrics {
                id: footerMetrics

                font.pixelSize: Theme.fontSmall
            }
        }
    }
}
