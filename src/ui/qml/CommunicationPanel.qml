// SPDX-License-Identifier: Apache-2.0
// The Communication tab: intercom channel, call password (shown as typed),
// scene and silence-suppression levels, and the Wire2 switch.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    // A DeviceEditor, or the MultiEditor of several units.
    required property SectionEditor editor

    title: qsTr("Communication")
    systemImage: Glyphs.intercom
    tint: Theme.cyan

    LabeledField {
        id: channel

        readonly property TextEditorField setting: root.editor.communication.textField("Channel")

        labelWidth: root.labelColumn
        objectName: "channelField"
        Layout.fillWidth: true
        label: qsTr("Channel")
        mono: true
        placeholder: "1\u2013150"
        text: channel.setting.text
        mixed: channel.setting.mixed
        onEdited: text => channel.setting.text = text
    }
    LabeledField {
        id: password

        readonly property TextEditorField setting: root.editor.communication.textField("CallMagic")

        labelWidth: root.labelColumn
        objectName: "passwordField"
        Layout.fillWidth: true
        label: qsTr("Password")
        mono: true
        placeholder: qsTr("call password")
        text: password.setting.text
        mixed: password.setting.mixed
        onEdited: text => password.setting.text = text
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Scene Level")

        Picker {
            id: scene

            readonly property ChoiceEditorField setting: root.editor.communication.choiceField("ScenarioType")

            objectName: "scenePicker"
            model: scene.setting.options
            currentIndex: scene.setting.index
            mixed: scene.setting.mixed
            onActivated: index => scene.setting.value = index
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Suppression Level")

        Picker {
            id: suppress

            readonly property ChoiceEditorField setting: root.editor.communication.choiceField("SilenceSuppress")

            objectName: "suppressPicker"
            model: suppress.setting.options
            currentIndex: suppress.setting.index
            mixed: suppress.setting.mixed
            onActivated: index => suppress.setting.value = index
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Wire2")

        Toggle {
            id: wire2

            readonly property SwitchEditorField setting: root.editor.communication.switchField("Wire2Enable")

            objectName: "wire2Toggle"
            checked: wire2.setting.checked
            mixed: wire2.setting.mixed
            onToggled: wire2.setting.checked = wire2.checked
        }
    }
}
