// The Communication tab: intercom channel, call password (shown as typed),
// scene and silence-suppression levels, and the Wire2 switch.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    required property DeviceEditor editor

    title: qsTr("Communication")
    systemImage: Glyphs.intercom
    tint: Theme.cyan

    LabeledField {
        objectName: "channelField"
        Layout.fillWidth: true
        label: qsTr("Channel")
        mono: true
        placeholder: "1\u2013150"
        text: root.editor.communication.channel.text
        onEdited: text => root.editor.communication.channel.text = text
    }
    LabeledField {
        objectName: "passwordField"
        Layout.fillWidth: true
        label: qsTr("Password")
        mono: true
        placeholder: qsTr("call password")
        text: root.editor.communication.password.text
        onEdited: text => root.editor.communication.password.text = text
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Scene Level")

        Picker {
            objectName: "scenePicker"
            model: root.editor.communication.scene.options
            currentIndex: root.editor.communication.scene.index
            onActivated: index => root.editor.communication.scene.value = index
        }
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Suppression Level")

        Picker {
            objectName: "suppressPicker"
            model: root.editor.communication.suppress.options
            currentIndex: root.editor.communication.suppress.index
            onActivated: index => root.editor.communication.suppress.value = index
        }
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Wire2")

        Toggle {
            objectName: "wire2Toggle"
            checked: root.editor.communication.wire2.checked
            onToggled: root.editor.communication.wire2.checked = checked
        }
    }
}
