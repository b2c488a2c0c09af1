// SPDX-License-Identifier: Apache-2.0
// The Network tab: the unit's own address, mask and gateway, sent only by
// their own button and only after the confirmation that the view shows.
// For a unit outside the subnet of the network it was heard on, a note says
// where saves go out and which addresses would fit.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    required property DeviceEditor editor
    // The client's view of where the unit was heard (DeviceDetailView.unitNetwork).
    property var unitNetwork: ({})
    // The user asked to apply: the view opens the confirmation.
    signal applyRequested()

    title: qsTr("Network")
    systemImage: Glyphs.network
    tint: Theme.amber
    footer: qsTr("Changing IP / mask / gateway can take the unit off-network \u2014 recovery then needs the serial DB9 tool. Applied separately, with confirmation.")

    LabeledField {
        id: ipAddr

        readonly property TextEditorField setting: root.editor.network.textField("IPAddress")

        labelWidth: root.labelColumn
        objectName: "ipAddrField"
        Layout.fillWidth: true
        label: qsTr("IP address")
        mono: true
        placeholder: ""
        text: ipAddr.setting.text
        onEdited: text => ipAddr.setting.text = text
    }
    LabeledField {
        id: netmask

        readonly property TextEditorField setting: root.editor.network.textField("Netmask")

        labelWidth: root.labelColumn
        objectName: "netmaskField"
        Layout.fillWidth: true
        label: qsTr("Subnet mask")
        mono: true
        placeholder: ""
        text: netmask.setting.text
        onEdited: text => netmask.setting.text = text
    }
    LabeledField {
        id: gateway

        readonly property TextEditorField setting: root.editor.network.textField("Gateway")

        labelWidth: root.labelColumn
        objectName: "gatewayField"
        Layout.fillWidth: true
        label: qsTr("Gateway")
        mono: true
        placeholder: ""
        text: gateway.setting.text
        onEdited: text => gateway.setting.text = text
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: Theme.gapTiny
        spacing: Theme.labelGap

        // Lines the button up with the fields, past the label column.
        Item {
            Layout.preferredWidth: root.labelColumn
        }
        AccentButton {
            objectName: "applyNetworkButton"
            text: qsTr("Apply network\u2026")
            systemImage: Glyphs.warning
            tint: Theme.tally
            enabled: root.editor.canApplyNetwork
            onClicked: root.applyRequested()
        }
        Text {
            objectName: "invalidIpv4"
            visible: root.editor.network.warning
            text: qsTr("invalid IPv4")
            textFormat: Text.PlainText
            color: Theme.tally
            font.pixelSize: Theme.fontSmall
        }
        Item {
            Layout.fillWidth: true
        }
    }
    RowLayout {
        objectName: "wrongSubnetNote"
        Layout.fillWidth: true
        Layout.topMargin: Theme.gapTiny
        visible: root.unitNetwork.wrongSubnet === true
        spacing: Theme.gap

        Icon {
            Layout.alignment: Qt.AlignTop
            glyph: Glyphs.warning
            color: Theme.amber
            points: Theme.iconNote
        }
        Text {
            objectName: "wrongSubnetText"
            Layout.fillWidth: true
            text: qsTr("Not in the subnet of %1: saves go out through %1, and the unit needs an address in %2.")
                .arg(root.unitNetwork.interfaceName || "").arg(root.unitNetwork.interfaceSubnet || "")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.amber
            font.pixelSize: Theme.fontSmall
        }
    }
}
