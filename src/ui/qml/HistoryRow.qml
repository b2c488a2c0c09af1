// SPDX-License-Identifier: Apache-2.0
// One stored version in the History tab: its time and cause, its key changes
// one a line, and the button that puts its values into the editor. Each text
// is a static text of its own, so that a screen reader reads the list.
import QtQuick
import VornLink
import QtQuick.Layouts

ColumnLayout {
    id: root

    required property string time
    required property string cause
    required property var changes
    required property int index
    // The user asked to load this version into the editor.
    signal restoreRequested(int row)

    spacing: Theme.gapTiny

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: Theme.hairline
        visible: root.index > 0
        color: Theme.stroke
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.gap

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.gapHair

            Text {
                objectName: "historyTime"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                text: root.time
                textFormat: Text.PlainText
                color: Theme.inkMuted
                font.pixelSize: Theme.fontCaption
            }
            Text {
                objectName: "historyCause"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Layout.fillWidth: true
                text: root.cause
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.ink
                font.pixelSize: Theme.fontBody
            }
        }
        GhostButton {
            objectName: "restoreVersion"
            tint: Theme.cyan
            text: qsTr("Restore this version…")
            onClicked: root.restoreRequested(root.index)
        }
    }
    Text {
        objectName: "historyChanges"
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Layout.fillWidth: true
        visible: root.changes.length > 0
        text: root.changes.join("\n")
        textFormat: Text.PlainText
        wrapMode: Text.WrapAnywhere
        color: Theme.ink
        font.family: "monospace"
        font.pixelSize: Theme.fontNote
    }
}
