// The right-hand pane for the selected unit; for now its header: the unit's
// title and address, read live from the client.
import QtQuick
import VornLink
import QtQuick.Layouts

Item {
    id: root

    required property VornClient client
    required property string ip
    // Bumped when the client replaces this unit's record, so `unit` is read again.
    property int revision: 0
    readonly property var unit: {
        root.revision;
        return root.client.deviceData(root.ip);
    }

    Connections {
        target: root.client

        function onDeviceUpdated(row) {
            if (root.client.deviceData(root.ip).ip !== undefined)
                root.revision++;
        }
    }

    ColumnLayout {
        objectName: "hero"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 28
        spacing: 4

        Text {
            objectName: "detailTitle"
            Layout.fillWidth: true
            text: root.unit.title ?? ""
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.ink
            font.pixelSize: 25
            font.weight: Font.Bold
        }
        Text {
            objectName: "detailAddress"
            Layout.fillWidth: true
            text: root.ip
            textFormat: Text.PlainText
            color: Theme.inkMuted
            font.family: "monospace"
            font.pixelSize: 13
        }
    }
}
