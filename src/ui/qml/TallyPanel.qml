// SPDX-License-Identifier: Apache-2.0
// The Tally tab: the switcher the unit follows, its address and port, the
// bank of twelve camera tallies it drives and the two type settings.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    // A DeviceEditor, or the MultiEditor of several units.
    required property SectionEditor editor

    title: qsTr("Tally source")
    systemImage: Glyphs.tally
    tint: Theme.tally
    footer: qsTr("A base station drives 12 tally channels at a time. Tally bank selects which 12 \u2014 13\u201324 for cameras beyond 12. One unit can\u2019t span more than 12 at once (firmware limit); use a second base station on the next bank.")

    LabeledField {
        id: atemIp

        readonly property TextEditorField setting: root.editor.tally.textField("AtemIp")

        labelWidth: root.labelColumn
        objectName: "atemIpField"
        Layout.fillWidth: true
        label: qsTr("ATEM IP")
        mono: true
        placeholder: "192.168.8.219"
        text: atemIp.setting.text
        mixed: atemIp.setting.mixed
        onEdited: text => atemIp.setting.text = text
    }
    // The switcher's address is empty or a dotted quad; anything else keeps Save off.
    Text {
        objectName: "atemIpInvalid"
        Layout.leftMargin: root.labelColumn + Theme.labelGap
        visible: !atemIp.setting.valid && !atemIp.setting.mixed
        text: qsTr("invalid IPv4")
        textFormat: Text.PlainText
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
        color: Theme.tally
        font.pixelSize: Theme.fontSmall
    }
    LabeledField {
        id: atemPort

        readonly property TextEditorField setting: root.editor.tally.textField("AtemPort")

        labelWidth: root.labelColumn
        objectName: "atemPortField"
        Layout.fillWidth: true
        label: qsTr("ATEM port")
        mono: true
        placeholder: "9910"
        text: atemPort.setting.text
        mixed: atemPort.setting.mixed
        onEdited: text => atemPort.setting.text = text
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Switcher")

        // Band and model are chosen together, as one switcher.
        Picker {
            id: switcher

            readonly property NumberEditorField band: root.editor.tally.numberField("SwitcherBand")
            readonly property NumberEditorField switcherModel: root.editor.tally.numberField("SwitcherModel")

            objectName: "switcherPicker"
            model: root.editor.tally.switcherEntries
            textRole: "label"
            currentIndex: root.editor.tally.switcherIndex
            mixed: switcher.band.mixed || switcher.switcherModel.mixed
            onActivated: index => root.editor.tally.switcherSelection = root.editor.tally.switcherEntries[index].tag
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Tally Channel")

        Picker {
            id: extTally

            readonly property ChoiceEditorField setting: root.editor.tally.choiceField("AtemExtTally")

            objectName: "tallyBankPicker"
            model: extTally.setting.options
            currentIndex: extTally.setting.index
            mixed: extTally.setting.mixed
            onActivated: index => extTally.setting.value = index
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Tally / GPIO")

        Row {
            spacing: Theme.gap

            Stepper {
                id: tallyType

                readonly property StepperEditorField setting: root.editor.tally.stepperField("TallyType")

                objectName: "tallyTypeStepper"
                title: tallyType.setting.title
                mixed: tallyType.setting.mixed
                canDecrease: tallyType.setting.canDecrease
                canIncrease: tallyType.setting.canIncrease
                value: tallyType.setting.value
                minimumValue: tallyType.setting.minimum
                maximumValue: tallyType.setting.maximum
                onStepped: delta => tallyType.setting.step(delta)
            }
            Stepper {
                id: gpioType

                readonly property StepperEditorField setting: root.editor.tally.stepperField("TallyGpioType")

                objectName: "gpioTypeStepper"
                title: gpioType.setting.title
                mixed: gpioType.setting.mixed
                canDecrease: gpioType.setting.canDecrease
                canIncrease: gpioType.setting.canIncrease
                value: gpioType.setting.value
                minimumValue: gpioType.setting.minimum
                maximumValue: gpioType.setting.maximum
                onStepped: delta => gpioType.setting.step(delta)
            }
        }
    }
}
