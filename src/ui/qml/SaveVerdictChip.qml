// SPDX-License-Identifier: Apache-2.0
// The outcome of the last save or apply under the header's buttons: green when
// the unit reports every written value, amber when it reports others, did not
// answer, or moved to a new address; then "Show" selects the unit there. The
// keys' written and reported values show in a tooltip.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

Row {
    id: root

    required property SaveVerdict verdict
    // The user asked to see the unit under its new address.
    signal showMoved(string ip)

    visible: root.verdict.text !== ""
    spacing: Theme.gap

    Chip {
        id: chip

        objectName: "verdictChip"
        anchors.verticalCenter: parent.verticalCenter
        maximumWidth: Theme.verdictMaximumWidth
        text: root.verdict.text
        systemImage: root.verdict.kind === SaveVerdict.Confirmed ? Glyphs.save : Glyphs.warning
        tint: root.verdict.kind === SaveVerdict.Confirmed ? Theme.online : Theme.amber

        HoverHandler {
            id: hover
        }

        ToolTip {
            objectName: "verdictToolTip"
            visible: hover.hovered && root.verdict.details.length > 0
            delay: 400
            contentItem: Text {
                text: root.verdict.details.join("\n")
                textFormat: Text.PlainText
                color: Theme.ink
                font.pixelSize: Theme.fontSmall
            }
            background: Rectangle {
                color: Theme.surface2
                border.color: Theme.stroke
                radius: Theme.radiusSmall
            }
        }
    }
    GhostButton {
        objectName: "showMovedButton"
        anchors.verticalCenter: parent.verticalCenter
        visible: root.verdict.kind === SaveVerdict.Moved
        text: qsTr("Show")
        tint: Theme.cyan
        onClicked: root.showMoved(root.verdict.movedTo)
    }
}
