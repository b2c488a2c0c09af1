// The Tally tab: the switcher the unit follows, its address and port, the
// bank of twelve camera tallies it drives and the two type settings.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    required property DeviceEditor editor

    title: qsTr("Tally source")
    systemImage: Glyphs.tally
    tint: Theme.tally
    footer: qsTr("A base station drives 12 tally channels at a time. Tally bank selects which 12 \u2014 13\u201324 for cameras beyond 12. One unit can\u2019t span more than 12 at once (firmware limit); use a second base station on the next bank.")

    LabeledField {
        objectName: "atemIpField"
        Layout.fillWidth: true
        label: qsTr("ATEM IP")
        mono: true
        placeholder: "192.168.8.219"
        text: root.editor.atemIp
        onEdited: text => root.editor.atemIp = text
    }
    LabeledField {
        objectName: "atemPortField"
        Layout.fillWidth: true
        label: qsTr("ATEM port")
        mono: true
        placeholder: "9910"
        text: root.editor.atemPort
        onEdited: text => root.editor.atemPort = text
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Switcher")

        Picker {
            objectName: "switcherPicker"
            model: root.editor.switcherEntries
            textRole: "label"
            currentIndex: root.editor.switcherIndex
            onActivated: index => root.editor.switcherSelection = root.editor.switcherEntries[index].tag
        }
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Tally Channel")

        Picker {
            objectName: "tallyBankPicker"
            model: root.editor.tallyBankOptions
            currentIndex: root.editor.extTallyIndex
            onActivated: index => root.editor.extTally = index
        }
    }
    LabeledControl {
        Layout.fillWidth: true
        label: qsTr("Tally / GPIO")

        Row {
            spacing: Theme.gap

            Stepper {
                objectName: "tallyTypeStepper"
                title: root.editor.tallyTypeTitle
                canDecrease: root.editor.canDecreaseTallyType
                canIncrease: root.editor.canIncreaseTallyType
                onStepped: delta => root.editor.stepTallyType(delta)
            }
            Stepper {
                objectName: "gpioTypeStepper"
                title: root.editor.gpioTypeTitle
                canDecrease: root.editor.canDecreaseGpioType
                canIncrease: root.editor.canIncreaseGpioType
                onStepped: delta => root.editor.stepGpioType(delta)
            }
        }
    }
}
