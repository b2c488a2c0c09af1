// The head of the editor: the unit's title and address, its chips (presence,
// the switcher being edited, the channel and firmware it reports, and the
// network warnings), and on the right Reload and Save changes above the
// unsaved-changes mark and the verdict of the last save; beside Reload the
// "…" menu of export and import, and under it what the last one did.
import QtQuick
import VornLink
import QtQuick.Layouts

RowLayout {
    id: root

    required property DeviceEditor editor
    // The client's view of where the unit was heard (DeviceDetailView.unitNetwork).
    property var unitNetwork: ({})
    // The user asked to see the unit under the address it moved to.
    signal showMoved(string ip)

    spacing: 16

    ColumnLayout {
        Layout.fillWidth: true
        Layout.alignment: Qt.AlignTop
        spacing: 4

        Text {
            objectName: "detailTitle"
            Layout.fillWidth: true
            text: root.editor.header.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.ink
            font.pixelSize: 25
            font.weight: Font.Bold
        }
        Text {
            objectName: "detailAddress"
            Layout.fillWidth: true
            text: root.editor.ip
            textFormat: Text.PlainText
            color: Theme.inkMuted
            font.family: "monospace"
            font.pixelSize: 13
        }
        Flow {
            Layout.fillWidth: true
            Layout.topMargin: 8
            spacing: 6

            Chip {
                objectName: "onlineChip"
                maximumWidth: parent.width
                text: root.editor.header.onlineText
                systemImage: Glyphs.dot
                tint: root.editor.header.online ? Theme.online : Theme.tally
            }
            Chip {
                objectName: "switcherChip"
                maximumWidth: parent.width
                text: root.editor.tally.switcherLabel
                systemImage: Glyphs.switcher
                tint: Theme.inkMuted
            }
            Chip {
                objectName: "channelChip"
                maximumWidth: parent.width
                text: root.editor.header.channelChip
                systemImage: Glyphs.channel
                tint: Theme.cyan
            }
            Chip {
                objectName: "firmwareChip"
                maximumWidth: parent.width
                visible: root.editor.header.firmwareChip !== ""
                text: root.editor.header.firmwareChip
                systemImage: Glyphs.firmware
                tint: Theme.inkMuted
            }
            Chip {
                objectName: "wrongSubnetChip"
                maximumWidth: parent.width
                visible: root.unitNetwork.wrongSubnet === true
                text: qsTr("Wrong subnet")
                systemImage: Glyphs.warning
                tint: Theme.amber
            }
            Chip {
                objectName: "addressConflictChip"
                maximumWidth: parent.width
                visible: root.unitNetwork.addressConflict === true
                text: qsTr("Address conflict")
                systemImage: Glyphs.warning
                tint: Theme.amber
            }
        }
    }

    // The mark sits under the buttons, so its coming and going never moves them.
    ColumnLayout {
        Layout.alignment: Qt.AlignTop
        Layout.topMargin: 4
        spacing: 10

        // Right-aligned, so a verdict wider than the buttons never moves them.
        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: 10

            EditorMenu {
                id: editorMenu

                objectName: "editorMenuButton"
                editor: root.editor
            }
            GhostButton {
                objectName: "reloadButton"
                text: "Reload"
                tint: Theme.ink
                onClicked: root.editor.load()
            }
            AccentButton {
                objectName: "saveButton"
                text: "Save changes"
                systemImage: Glyphs.save
                tint: Theme.cyan
                enabled: root.editor.canSave
                onClicked: root.editor.save()
            }
        }

        Row {
            objectName: "unsavedMark"
            Layout.alignment: Qt.AlignRight
            Layout.rightMargin: 2
            visible: root.editor.dirty
            spacing: 6

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 6
                height: 6
                radius: 3
                color: Theme.amber
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: "unsaved changes"
                textFormat: Text.PlainText
                color: Theme.amber
                font.pixelSize: 12
                font.weight: Font.Medium
            }
        }

        SaveVerdictChip {
            objectName: "saveVerdict"
            Layout.alignment: Qt.AlignRight
            verdict: root.editor.verdict
            onShowMoved: ip => root.showMoved(ip)
        }

        Text {
            objectName: "transferMessage"
            Layout.alignment: Qt.AlignRight
            Layout.maximumWidth: Theme.multiNoteWidth
            visible: editorMenu.transfer.message !== ""
            text: editorMenu.transfer.message
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignRight
            color: editorMenu.transfer.failed ? Theme.tally : Theme.inkMuted
            font.pixelSize: Theme.fleetSmallSize
        }

        Text {
            objectName: "refusalText"
            Layout.alignment: Qt.AlignRight
            Layout.maximumWidth: 320
            visible: root.editor.refusal !== ""
            text: root.editor.refusal
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignRight
            color: Theme.tally
            font.pixelSize: 11
        }
    }
}
