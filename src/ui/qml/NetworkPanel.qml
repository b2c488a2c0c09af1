// The Network tab: the unit's own address, mask and gateway, sent only by
// their own button and only after the confirmation that the view shows.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    required property DeviceEditor editor

    title: "Network"
    systemImage: Glyphs.network
    tint: Theme.amber
    footer: "Changing IP / mask / gateway can take the unit off-network \u2014 recovery then needs the serial DB9 tool. Applied separately, with confirmation."

    LabeledField {
        objectName: "ipAddrField"
        Layout.fillWidth: true
        label: "IP address"
        mono: true
        placeholder: ""
        text: root.editor.ipAddr
        onEdited: text => root.editor.ipAddr = text
    }
    LabeledField {
        objectName: "netmaskField"
        Layout.fillWidth: true
        label: "Subnet mask"
        mono: true
        placeholder: ""
        text: root.editor.netmask
        onEdited: text => root.editor.netmask = text
    }
    LabeledField {
        objectName: "gatewayField"
        Layout.fillWidth: true
        label: "Gateway"
        mono: true
        placeholder: ""
        text: root.editor.gateway
        onEdited: text => root.editor.gateway = text
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: 4
        spacing: 12

        // Lines the button up with the fields, past the label column.
        Item {
            Layout.preferredWidth: 116
        }
        AccentButton {
            objectName: "applyNetworkButton"
            text: "Apply network\u2026"
            systemImage: Glyphs.warning
            tint: Theme.tally
            enabled: root.editor.canApplyNetwork
            onClicked: root.editor.showNetConfirm = true
        }
        Text {
            objectName: "invalidIpv4"
            visible: root.editor.netWarning
            text: "invalid IPv4"
            textFormat: Text.PlainText
            color: Theme.tally
            font.pixelSize: 11
        }
        Item {
            Layout.fillWidth: true
        }
    }
}
