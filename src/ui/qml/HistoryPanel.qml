// SPDX-License-Identifier: Apache-2.0
// The History tab: the unit's stored configuration versions, newest first,
// with what caused each and what it changed; "Show passwords" shows the
// CallMagic values. Restoring a version loads it into the editor as unsaved
// changes; nothing is sent before Save changes (or Apply for the network).
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    required property DeviceEditor editor
    readonly property alias history: unitHistory
    // A version was loaded into the editor.
    signal restored()

    title: qsTr("Configuration history")
    systemImage: Glyphs.history
    tint: Theme.cyan

    UnitHistory {
        id: unitHistory

        editor: root.editor
        showPasswords: showPasswordsBox.checked
    }

    TickBox {
        id: showPasswordsBox

        objectName: "showPasswords"
        text: qsTr("Show passwords")
    }
    Text {
        objectName: "historyEmpty"
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Layout.fillWidth: true
        visible: unitHistory.count === 0
        text: unitHistory.remembering ? qsTr("Nothing stored for this unit yet.")
                                      : qsTr("VornLink is not remembering this site.")
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.inkMuted
        font.pixelSize: Theme.fontBody
    }
    // A positioner, not a layout, holds the rows: rows that come and go
    // inside a layout have crashed its arrangement.
    Column {
        id: rowsColumn

        objectName: "historyList"
        Layout.fillWidth: true
        spacing: Theme.gapTiny

        Repeater {
            objectName: "historyRows"
            model: unitHistory

            HistoryRow {
                width: rowsColumn.width
                onRestoreRequested: row => {
                    unitHistory.restore(row);
                    root.restored();
                }
            }
        }
    }
}
