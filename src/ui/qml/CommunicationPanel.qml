// SPDX-License-Identifier: Apache-2.0
// The Communication tab: intercom channel, call password (shown as typed),
// scene and silence-suppression levels, and the Wire2 switch.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    // A DeviceEditor, or the MultiEditor of several units: both have the sections.
    required property QtObject editor

    title: qsTr("Communication")
    systemImage: Glyphs.intercom
    tint: Theme.cyan

    LabeledField {
        labelWidth: root.labelColumn
        objectName: "channelField"
        Layout.fillWidth: true
        label: qsTr("Channel")
        mono: true
        placeholder: "1\u2013150"
        text: root.editor.communication.channel.text
        mixed: root.editor.communication.channel.mixed
        onEdited: text => root.editor.communication.channel.text = text
    }
    LabeledField {
        labelWidth: root.labelColumn
        objectName: "passwordField"
        Layout.fillWidth: true
        label: qsTr("Password")
        mono: true
        placeholder: qsTr("call password")
        text: root.editor.communication.password.text
        mixed: root.editor.communication.password.mixed
        onEdited: text => root.editor.communication.password.text = text
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Scene Level")

        Picker {
            objectName: "scenePicker"
            model: root.editor.communication.scene.options
            currentIndex: root.editor.communication.scene.index
            mixed: root.editor.communication.scene.mixed
            onActivated: index => root.editor.communication.scene.value = index
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Suppression Level")

        Picker {
            objectName: "suppressPicker"
            model: root.editor.communication.suppress.options
            currentIndex: root.editor.communication.suppress.index
            mixed: root.editor.communication.suppress.mixed
            onActivated: index => root.editor.communication.suppress.value = index
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Wire2")

        Toggle {
            objectName: "wire2Toggle"
            checked: root.editor.communication.wire2.checked
            mixed: root.editor.communication.wire2.mixed
            onToggled: root.editor.communication.wire2.checked = checked
        }
    }
}
