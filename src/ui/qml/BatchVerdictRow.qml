// SPDX-License-Identifier: Apache-2.0
// One unit of a batch write with the verdict of its write, and the keys the
// unit did not confirm.
import QtQuick
import VornLink
import QtQuick.Layouts

Rectangle {
    id: root

    required property string title
    required property string address
    required property int kind
    required property string verdict
    required property var details

    readonly property color tint: root.kind === SaveVerdict.Confirmed ? Theme.online
        : root.kind === SaveVerdict.Waiting || root.kind === SaveVerdict.None ? Theme.inkMuted
        : root.kind === SaveVerdict.Moved ? Theme.cyan : Theme.amber

    implicitHeight: layout.implicitHeight + 2 * Theme.gapMedium
    radius: Theme.radiusRow
    color: Theme.surface2

    ColumnLayout {
        id: layout

        anchors.fill: parent
        anchors.margins: Theme.gapMedium
        spacing: Theme.gapHair

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.gapSmall

            Text {
                Layout.fillWidth: true
                text: root.title + "  \u00b7  " + root.address
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.ink
                font.pixelSize: Theme.fontBody
            }
            Text {
                objectName: "verdictText"
                text: root.verdict
                textFormat: Text.PlainText
                color: root.tint
                font.pixelSize: Theme.fontBody
                font.weight: Font.DemiBold
            }
        }
        Text {
            Layout.fillWidth: true
            visible: root.details.length > 0
            text: root.details.join("\n")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.inkMuted
            font.pixelSize: Theme.fontSmall
        }
    }
}
