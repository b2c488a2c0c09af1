// The confirmation before the unit's network settings are written: it names
// the unit and repeats the new values. "Apply" writes them, "Cancel" does
// nothing; either closes it, and so does Escape, which counts as Cancel.
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
    width: Math.min(460, parent ? parent.width - 48 : 460)
    modal: true
    padding: 22
    topPadding: 20
    visible: root.editor.showNetConfirm
    onClosed: root.editor.showNetConfirm = false

    T.Overlay.modal: Rectangle {
        color: Theme.alpha(Theme.bg, 0.72)
    }

    background: Rectangle {
        radius: 16
        color: Theme.surface
        border.width: 1
        border.color: Theme.stroke
    }

    header: RowLayout {
        spacing: 10

        Icon {
            Layout.leftMargin: 22
            Layout.topMargin: 22
            glyph: Glyphs.warning
            color: Theme.tally
            points: 16
        }
        Text {
            objectName: "confirmTitle"
            Layout.fillWidth: true
            Layout.topMargin: 22
            Layout.rightMargin: 22
            text: root.editor.confirmTitle
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.ink
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
    }

    contentItem: Text {
        objectName: "confirmMessage"
        text: root.editor.confirmMessage
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.inkMuted
        font.pixelSize: 13
        lineHeight: 1.15
    }

    footer: RowLayout {
        spacing: 10

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            objectName: "cancelButton"
            Layout.bottomMargin: 20
            text: qsTr("Cancel")
            tint: Theme.ink
            onClicked: root.close()
        }
        AccentButton {
            objectName: "applyButton"
            Layout.bottomMargin: 20
            Layout.rightMargin: 22
            text: qsTr("Apply")
            tint: Theme.tally
            onClicked: {
                root.editor.applyNetwork();
                root.close();
            }
        }
    }
}
