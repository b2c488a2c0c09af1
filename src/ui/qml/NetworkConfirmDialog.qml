// SPDX-License-Identifier: Apache-2.0
// The confirmation before the unit's network settings are written: it names
// the unit and repeats the new values. "Apply" writes them, "Cancel" does
// nothing; either closes it, and so does Escape, which counts as Cancel.
// Cancel is the default: it has the keyboard when the dialog opens, so
// Return cancels too.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T

Dialog {
    id: root

    required property DeviceEditor editor

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Theme.dialogWidth, parent ? parent.width - 2 * Theme.dialogMinimumMargin : Theme.dialogWidth)
    modal: true
    padding: Theme.dialogPadding
    topPadding: Theme.dialogTopPadding
    onOpened: cancelButton.forceActiveFocus(Qt.TabFocusReason)
    // Shown by the header below; the title also names the dialog for screen readers.
    title: root.editor.header.confirmTitle

    T.Overlay.modal: Rectangle {
        color: Theme.alpha(Theme.bg, 0.72)
    }

    background: Rectangle {
        radius: Theme.radiusPanel
        color: Theme.surface
        border.width: Theme.hairline
        border.color: Theme.stroke
    }

    header: RowLayout {
        spacing: Theme.gapMedium

        Icon {
            Layout.leftMargin: Theme.dialogPadding
            Layout.topMargin: Theme.dialogPadding
            glyph: Glyphs.warning
            color: Theme.tally
            points: Theme.iconDialog
        }
        Text {
            objectName: "confirmTitle"
            Layout.fillWidth: true
            Layout.topMargin: Theme.dialogPadding
            Layout.rightMargin: Theme.dialogPadding
            text: root.editor.header.confirmTitle
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.ink
            font.pixelSize: Theme.fontDialogTitle
            font.weight: Font.DemiBold
        }
    }

    contentItem: Text {
        objectName: "confirmMessage"
        text: root.editor.header.confirmMessage
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.inkMuted
        font.pixelSize: Theme.fontBody
        lineHeight: Theme.dialogLineHeight
    }

    footer: RowLayout {
        spacing: Theme.gapMedium

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            id: cancelButton

            objectName: "cancelButton"
            Accessible.defaultButton: true
            Layout.bottomMargin: Theme.dialogTopPadding
            text: qsTr("Cancel")
            tint: Theme.ink
            onClicked: root.close()
        }
        AccentButton {
            objectName: "applyButton"
            Layout.bottomMargin: Theme.dialogTopPadding
            Layout.rightMargin: Theme.dialogPadding
            text: qsTr("Apply")
            tint: Theme.tally
            onClicked: {
                root.editor.applyNetwork();
                root.close();
            }
        }
    }
}
