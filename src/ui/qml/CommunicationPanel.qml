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
        text: root.editor.channel
        onEdited: text => root.editor.channel = text
    }
    LabeledField {
        objectName: "passwordField"
        Layout.fillWidth: true
        label: qsTr("Password")
        mono: true
        placeholder: qsTr("call password")
        text: root.editor.password
        onEdited: text => root.editor.password = text
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Scene Level")

        Picker {
            objectName: "scenePicker"
            model: root.editor.sceneOptions
            currentIndex: root.editor.sceneIndex
            onActivated: index => root.editor.scene = index
        }
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Suppression Level")

        Picker {
            objectName: "suppressPicker"
            model: root.editor.suppressOptions
            currentIndex: root.editor.suppressIndex
            onActivated: index => root.editor.suppress = index
        }
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Wire2")

        Toggle {
            objectName: "wire2Toggle"
            checked: root.editor.wire2
            onToggled: root.editor.wire2 = checked
        }
    }
}
