// SPDX-License-Identifier: Apache-2.0
// The Tally tab: the switcher the unit follows, its address and port, the
// bank of twelve camera tallies it drives and the two type settings.
import QtQuick
import VornLink
import QtQuick.Layouts

Panel {
    id: root

    // A DeviceEditor, or the MultiEditor of several units: both have the sections.
    required property QtObject editor

    title: qsTr("Tally source")
    systemImage: Glyphs.tally
    tint: Theme.tally
    footer: qsTr("A base station drives 12 tally channels at a time. Tally bank selects which 12 \u2014 13\u201324 for cameras beyond 12. One unit can\u2019t span more than 12 at once (firmware limit); use a second base station on the next bank.")

    LabeledField {
        labelWidth: root.labelColumn
        objectName: "atemIpField"
        Layout.fillWidth: true
        label: qsTr("ATEM IP")
        mono: true
        placeholder: "192.168.8.219"
        text: root.editor.tally.atemIp.text
        mixed: root.editor.tally.atemIp.mixed
        onEdited: text => root.editor.tally.atemIp.text = text
    }
    // The switcher's address is empty or a dotted quad; anything else keeps Save off.
    Text {
        objectName: "atemIpInvalid"
        Layout.leftMargin: root.labelColumn + Theme.labelGap
        visible: !root.editor.tally.atemIp.valid && !root.editor.tally.atemIp.mixed
        text: qsTr("invalid IPv4")
        textFormat: Text.PlainText
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
        color: Theme.tally
        font.pixelSize: Theme.fontSmall
    }
    LabeledField {
        labelWidth: root.labelColumn
        objectName: "atemPortField"
        Layout.fillWidth: true
        label: qsTr("ATEM port")
        mono: true
        placeholder: "9910"
        text: root.editor.tally.atemPort.text
        mixed: root.editor.tally.atemPort.mixed
        onEdited: text => root.editor.tally.atemPort.text = text
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Switcher")

        Picker {
            objectName: "switcherPicker"
            model: root.editor.tally.switcherEntries
            textRole: "label"
            currentIndex: root.editor.tally.switcherIndex
            mixed: root.editor.tally.band.mixed || root.editor.tally.model.mixed
            onActivated: index => root.editor.tally.switcherSelection = root.editor.tally.switcherEntries[index].tag
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Tally Channel")

        Picker {
            objectName: "tallyBankPicker"
            model: root.editor.tally.extTally.options
            currentIndex: root.editor.tally.extTally.index
            mixed: root.editor.tally.extTally.mixed
            onActivated: index => root.editor.tally.extTally.value = index
        }
    }
    LabeledControl {
        labelWidth: root.labelColumn
        Layout.fillWidth: true
        label: qsTr("Tally / GPIO")

        Row {
            spacing: Theme.gap

            Stepper {
                objectName: "tallyTypeStepper"
                title: root.editor.tally.tallyType.title
                mixed: root.editor.tally.tallyType.mixed
                canDecrease: root.editor.tally.tallyType.canDecrease
                canIncrease: root.editor.tally.tallyType.canIncrease
                value: root.editor.tally.tallyType.value
                minimumValue: root.editor.tally.tallyType.minimum
                maximumValue: root.editor.tally.tallyType.maximum
                onStepped: delta => root.editor.tally.tallyType.step(delta)
            }
            Stepper {
                objectName: "gpioTypeStepper"
                title: root.editor.tally.gpioType.title
                mixed: root.editor.tally.gpioType.mixed
                canDecrease: root.editor.tally.gpioType.canDecrease
                canIncrease: root.editor.tally.gpioType.canIncrease
                value: root.editor.tally.gpioType.value
                minimumValue: root.editor.tally.gpioType.minimum
                maximumValue: root.editor.tally.gpioType.maximum
                onStepped: delta => root.editor.tally.gpioType.step(delta)
            }
        }
    }
}
