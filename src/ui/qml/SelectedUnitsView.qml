// The detail area while several units are selected: how many, and which.
import QtQuick
import VornLink
import QtQuick.Layouts

ColumnLayout {
    id: root

    required property VornClient client
    // Addresses of the selected units, in list order.
    required property var addresses

    spacing: Theme.fleetSpacing * 2

    Text {
        objectName: "selectedCount"
        text: qsTr("%1 units selected").arg(root.addresses.length)
        textFormat: Text.PlainText
        color: Theme.ink
        font.pixelSize: Theme.fleetTitleSize + 10
        font.weight: Font.Bold
    }

    ListView {
        objectName: "selectedUnits"
        Layout.fillWidth: true
        Layout.fillHeight: true
        clip: true
        spacing: Theme.fleetSpacing
        model: root.addresses
        delegate: Text {
            required property string modelData

            width: ListView.view.width
            text: {
                root.client.deviceCount; // a unit's record is replaced, never removed
                const unit = root.client.deviceData(modelData);
                return (unit.title || modelData) + "  \u00b7  " + modelData;
            }
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.inkMuted
            font.pixelSize: Theme.fleetTextSize
        }
    }
}
