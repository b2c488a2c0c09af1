// SPDX-License-Identifier: Apache-2.0
// Every unit of the last batch save with the verdict of its write, updating
// as the replies come in; above it, how many are confirmed.
import QtQuick
import VornLink
import QtQuick.Layouts

ColumnLayout {
    id: root

    // A BatchWriter: the fleet actions' own or a MultiEditor's.
    required property QtObject writer

    visible: root.writer.count > 0
    spacing: Theme.gapSmall

    Text {
        objectName: "batchProgress"
        text: root.writer.waiting > 0
            ? qsTr("%1 of %n unit(s) confirmed, %2 waiting\u2026", "", root.writer.count).arg(root.writer.confirmed).arg(root.writer.waiting)
            : qsTr("%1 of %n unit(s) confirmed", "", root.writer.count).arg(root.writer.confirmed)
        textFormat: Text.PlainText
        color: Theme.ink
        font.pixelSize: Theme.fontDialogTitle
        font.weight: Font.DemiBold
    }
    ListView {
        objectName: "batchVerdicts"
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(contentHeight, Theme.multiVerdictHeight)
        clip: true
        spacing: Theme.gapSmall
        model: root.writer
        Accessible.name: qsTr("Verdicts of the save")
        Accessible.role: Accessible.List
        delegate: BatchVerdictRow {
            width: ListView.view.width
        }
    }
}
