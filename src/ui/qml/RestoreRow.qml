// SPDX-License-Identifier: Apache-2.0
// One unit of a backup file in the restore review: whether to restore it,
// which live unit it matched and how, and the keys that differ.
import QtQuick
import VornLink
import QtQuick.Layouts

Rectangle {
    id: root

    required property int index
    required property string serial
    required property string fileAddress
    required property bool found
    required property string match
    required property var differences
    required property var heldBack
    required property bool checkable
    required property bool checked
    required property bool otherUnit
    required property bool otherAllowed

    signal toggled(int row, bool checked)
    signal otherAllowedToggled(int row, bool allowed)

    implicitHeight: layout.implicitHeight + 2 * Theme.gapMedium
    radius: Theme.radiusRow
    color: Theme.surface2
    border.width: Theme.hairline
    border.color: Theme.stroke

    RowLayout {
        id: layout

        anchors.fill: parent
        anchors.margins: Theme.gapMedium
        spacing: Theme.gapMedium

        TickBox {
            objectName: "restoreCheck"
            Layout.alignment: Qt.AlignTop
            visible: root.found
            enabled: root.checkable
            checked: root.checked
            Accessible.name: qsTr("Restore %1").arg(root.fileAddress)
            onToggled: root.toggled(root.index, checked)
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.gapHair

            Text {
                objectName: "unitName"
                Layout.fillWidth: true
                text: root.serial === "" ? root.fileAddress : root.serial + "  \u00b7  " + root.fileAddress
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.ink
                font.pixelSize: Theme.fontBody
                font.weight: Font.DemiBold
            }
            Text {
                objectName: "matchText"
                text: root.match
                textFormat: Text.PlainText
                color: root.found && !root.otherUnit ? Theme.inkMuted : Theme.amber
                font.pixelSize: Theme.fontSmall
            }
            TickBox {
                objectName: "allowOtherUnit"
                visible: root.otherUnit
                checked: root.otherAllowed
                text: qsTr("Restore onto this other unit")
                onToggled: root.otherAllowedToggled(root.index, checked)
            }
            Text {
                objectName: "differenceLines"
                Layout.fillWidth: true
                visible: root.found
                text: root.differences.length > 0 ? root.differences.join("\n") : qsTr("Equal: nothing to restore")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.ink
                font.family: "monospace"
                font.pixelSize: Theme.fontNote
            }
            Text {
                objectName: "heldBackLines"
                Layout.fillWidth: true
                visible: root.heldBack.length > 0
                text: qsTr("Left out (network): %1").arg(root.heldBack.join(", "))
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.inkMuted
                font.pixelSize: Theme.fontSmall
            }
        }
    }
}
