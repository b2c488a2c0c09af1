// SPDX-License-Identifier: Apache-2.0
// The head of the editor: the unit's title and address, its chips (presence,
// the switcher being edited, the channel and firmware it reports, and the
// network warnings), and on the right Reload and Save changes above the
// unsaved-changes mark and the verdict of the last save; beside Reload the
// "…" menu of export and import, and under it what the last one did.
// Ctrl+R presses Reload and Ctrl+S Save changes (only while saving is possible).
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

RowLayout {
    id: root

    required property DeviceEditor editor
    // The client's view of where the unit was heard (DeviceDetailView.unitNetwork).
    property var unitNetwork: ({})
    // The user asked to see the unit under the address it moved to.
    signal showMoved(string ip)
    // "Forget this unit…" in the "…" menu.
    signal forgetRequested()

    spacing: Theme.gapWide

    ColumnLayout {
        Layout.fillWidth: true
        Layout.alignment: Qt.AlignTop
        spacing: Theme.gapTiny

        Text {
            objectName: "detailTitle"
            Layout.fillWidth: true
            text: root.editor.header.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.ink
            font.pixelSize: Theme.fontHeadline
            font.weight: Font.Bold
        }
        Text {
            objectName: "detailAddress"
            Layout.fillWidth: true
            text: root.editor.ip
            textFormat: Text.PlainText
            color: Theme.inkMuted
            font.family: "monospace"
            font.pixelSize: Theme.fontBody
        }
        Flow {
            Layout.fillWidth: true
            Layout.topMargin: Theme.gap
            spacing: Theme.gapSmall

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
        Layout.topMargin: Theme.gapTiny
        spacing: Theme.gapMedium

        // Right-aligned, so a verdict wider than the buttons never moves them.
        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: Theme.gapMedium

            EditorMenu {
                id: editorMenu

                objectName: "editorMenuButton"
                editor: root.editor
                onForgetRequested: root.forgetRequested()
            }
            GhostButton {
                id: reloadButton

                objectName: "reloadButton"
                text: qsTr("Reload")
                tint: Theme.ink
                // The hint follows the pointer wherever the platform turns hover effects off.
                hoverEnabled: true
                ToolTip.text: qsTr("%1 (%2)").arg(reloadButton.text).arg(reloadShortcut.nativeText)
                Accessible.description: qsTr("Discards the edits and shows what the unit last reported")
                onClicked: root.editor.load()

                ButtonHint {
                    objectName: "reloadHint"
                    button: reloadButton
                    text: reloadButton.ToolTip.text
                }
            }
            AccentButton {
                id: saveButton

                objectName: "saveButton"
                text: qsTr("Save changes")
                systemImage: Glyphs.save
                tint: Theme.cyan
                hoverEnabled: true
                ToolTip.text: qsTr("%1 (%2)").arg(saveButton.text).arg(saveShortcut.nativeText)
                Accessible.description: qsTr("Sends the changed settings to the unit")
                enabled: root.editor.canSave
                onClicked: root.editor.save()

                ButtonHint {
                    objectName: "saveHint"
                    button: saveButton
                    text: saveButton.ToolTip.text
                }
            }

            Shortcut {
                id: reloadShortcut

                sequence: "Ctrl+R"
                onActivated: reloadButton.clicked()
            }
            Shortcut {
                id: saveShortcut

                sequence: "Ctrl+S"
                enabled: saveButton.enabled
                onActivated: saveButton.clicked()
            }
        }

        Row {
            objectName: "unsavedMark"
            Layout.alignment: Qt.AlignRight
            Layout.rightMargin: Theme.gapHair
            visible: root.editor.dirty
            spacing: Theme.gapSmall

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.statusDotSize
                height: Theme.statusDotSize
                radius: Theme.statusDotSize / 2
                color: Theme.amber
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("unsaved changes")
                textFormat: Text.PlainText
                color: Theme.amber
                font.pixelSize: Theme.fontNote
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
            font.pixelSize: Theme.fontSmall
        }

        // A file of another unit is imported only on this explicit press.
        GhostButton {
            objectName: "importOtherUnitButton"
            Layout.alignment: Qt.AlignRight
            visible: editorMenu.transfer.otherUnitOffered
            text: qsTr("Import onto this other unit")
            tint: Theme.amber
            onClicked: editorMenu.transfer.importOtherUnit()
        }

        Text {
            objectName: "refusalText"
            Layout.alignment: Qt.AlignRight
            Layout.maximumWidth: Theme.verdictMaximumWidth
            visible: root.editor.refusal !== ""
            text: root.editor.refusal
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignRight
            color: Theme.tally
            font.pixelSize: Theme.fontSmall
        }
    }
}
