// SPDX-License-Identifier: Apache-2.0
// The Details tab: what the unit last reported, read-only, two keys a row,
// only the keys it reports, then where the unit was heard and, while more
// than one unit answers under its address, the serials heard there, and
// when the site store first and last heard it; it
// follows every new reply by itself. Under the grid, after a save the unit
// did not confirm, the values written against those it reports.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    required property DeviceEditor editor
    // The client's view of where the unit was heard (DeviceDetailView.unitNetwork).
    property var unitNetwork: ({})
    // What the site store holds of the unit (HistoryPanel.history), if anything.
    property UnitHistory remembered: null
    readonly property var networkCells: {
        const cells = [];
        if (root.unitNetwork.heardOn)
            cells.push({ key: qsTr("Heard on"), value: root.unitNetwork.heardOn });
        if (root.unitNetwork.addressConflict === true)
            cells.push({ key: qsTr("Serials seen"), value: root.unitNetwork.serialsSeen.join(", ") });
        return cells;
    }

    title: qsTr("Device details")
    systemImage: Glyphs.details
    tint: Theme.cyan

    GridLayout {
        objectName: "detailsGrid"
        Layout.fillWidth: true
        columns: 2
        columnSpacing: Theme.gapMedium
        rowSpacing: Theme.gapMedium

        Repeater {
            model: root.editor.details.concat(root.networkCells)

            ColumnLayout {
                id: cell

                required property var modelData

                objectName: "detail_" + cell.modelData.key
                Layout.fillWidth: true
                Layout.minimumWidth: Theme.gapMedium
                Layout.preferredWidth: Theme.gapMedium
                Layout.alignment: Qt.AlignLeft | Qt.AlignTop
                spacing: Theme.gapHair

                Text {
                    objectName: "detailKey"
                    text: cell.modelData.key
                    textFormat: Text.PlainText
                    color: Theme.inkMuted
                    font.pixelSize: Theme.fontCaption
                }
                Text {
                    objectName: "detailValue"
                    Layout.fillWidth: true
                    text: cell.modelData.value
                    textFormat: Text.PlainText
                    wrapMode: Text.WrapAnywhere
                    color: Theme.ink
                    font.family: "monospace"
                    font.pixelSize: Theme.fontNote
                }
            }
        }
    }

    // Outside the grid: a grid cell that comes and goes with Reload crashed
    // the grid's layout; so do these, which come when the store answers.
    RowLayout {
        objectName: "rememberedTimes"
        Layout.fillWidth: true
        visible: root.remembered !== null && root.remembered.firstSeen !== ""
        spacing: Theme.gapMedium

        ColumnLayout {
            objectName: "detail_First seen"
            Layout.fillWidth: true
            Layout.preferredWidth: Theme.gapMedium
            spacing: Theme.gapHair

            Text {
                text: qsTr("First seen")
                textFormat: Text.PlainText
                color: Theme.inkMuted
                font.pixelSize: Theme.fontCaption
            }
            Text {
                objectName: "detailValue"
                text: root.remembered ? root.remembered.firstSeen : ""
                textFormat: Text.PlainText
                color: Theme.ink
                font.family: "monospace"
                font.pixelSize: Theme.fontNote
            }
        }
        ColumnLayout {
            objectName: "detail_Last seen"
            Layout.fillWidth: true
            Layout.preferredWidth: Theme.gapMedium
            spacing: Theme.gapHair

            Text {
                text: qsTr("Last seen")
                textFormat: Text.PlainText
                color: Theme.inkMuted
                font.pixelSize: Theme.fontCaption
            }
            Text {
                objectName: "detailValue"
                text: root.remembered ? root.remembered.lastSeen : ""
                textFormat: Text.PlainText
                color: Theme.ink
                font.family: "monospace"
                font.pixelSize: Theme.fontNote
            }
        }
    }
    ColumnLayout {
        objectName: "lastSave"
        Layout.fillWidth: true
        visible: root.editor.verdict.details.length > 0
        spacing: Theme.gapHair

        Text {
            text: qsTr("Last save")
            textFormat: Text.PlainText
            color: Theme.inkMuted
            font.pixelSize: Theme.fontCaption
        }
        Text {
            objectName: "lastSaveLines"
            Layout.fillWidth: true
            text: root.editor.verdict.details.join("\n")
            textFormat: Text.PlainText
            wrapMode: Text.WrapAnywhere
            color: Theme.amber
            font.family: "monospace"
            font.pixelSize: Theme.fontNote
        }
    }
}
