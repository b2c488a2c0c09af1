// SPDX-License-Identifier: Apache-2.0
// The head of the editor of several units: how many are selected, what a
// save does, and on the right Reload (the units' values afresh, edits
// dropped; only while something is changed) and "Save to <N> units", enabled while
// some unit would be sent a change and every field set is valid.
import QtQuick
import VornLink
import QtQuick.Layouts

RowLayout {
    id: root

    required property MultiEditor editor
    required property int count

    spacing: Theme.gapSection

    ColumnLayout {
        Layout.fillWidth: true
        Layout.alignment: Qt.AlignTop
        spacing: Theme.gapSmall

        Text {
            objectName: "selectedCount"
            Layout.fillWidth: true
            text: qsTr("%n unit(s) selected", "", root.count)
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.ink
            font.pixelSize: Theme.fontHeadline
            font.weight: Font.Bold
        }
        Text {
            objectName: "multiNote"
            Layout.fillWidth: true
            Layout.maximumWidth: Theme.multiNoteWidth
            text: qsTr("Fields the units disagree on show \u201cMixed\u201d. Only the fields you change are written; each unit keeps the rest of its own settings.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.inkMuted
            font.pixelSize: Theme.fontBody
        }
    }

    GhostButton {
        objectName: "multiReloadButton"
        Layout.alignment: Qt.AlignTop
        text: qsTr("Reload")
        tint: Theme.ink
        // Nothing changed: nothing to drop.
        enabled: root.editor.dirty
        Accessible.name: qsTr("Reload the selected units, dropping the changes")
        onClicked: root.editor.load()
    }
    AccentButton {
        objectName: "multiSaveButton"
        Layout.alignment: Qt.AlignTop
        text: qsTr("Save to %n unit(s)", "", root.count)
        systemImage: Glyphs.save
        tint: Theme.cyan
        enabled: root.editor.canSave
        Accessible.name: text
        onClicked: root.editor.save()
    }
}
