// A compact stepper: its title (the value in words) beside a pair of - / +
// buttons on surface2. It only reports presses; the owner decides the value
// and whether each direction is open.
import QtQuick
import QtQuick.Controls.Basic

Rectangle {
    id: root

    required property string title
    required property bool canDecrease
    required property bool canIncrease
    // The units edited together differ here: the title says "Mixed".
    property bool mixed: false

    signal stepped(int delta)

    implicitWidth: row.implicitWidth
    implicitHeight: 32
    radius: 8
    color: Theme.surface2
    border.width: 1
    border.color: Theme.stroke

    component StepButton: AbstractButton {
        id: button

        required property string glyph

        implicitWidth: 30
        implicitHeight: root.implicitHeight
        opacity: button.enabled ? (button.down ? 0.7 : 1) : 0.35

        contentItem: Icon {
            glyph: button.glyph
            color: Theme.cyan
            points: 13
        }
    }

    Row {
        id: row

        height: parent.height

        Text {
            objectName: "stepperTitle"
            height: parent.height
            leftPadding: 11
            rightPadding: 8
            text: root.mixed ? qsTr("Mixed") : root.title
            textFormat: Text.PlainText
            verticalAlignment: Text.AlignVCenter
            color: root.mixed ? Theme.inkMuted : Theme.ink
            font.family: "monospace"
            font.pixelSize: 13
        }
        Rectangle {
            width: 1
            height: parent.height
            color: Theme.stroke
        }
        StepButton {
            objectName: "decrease"
            glyph: Glyphs.decrease
            enabled: root.canDecrease
            onClicked: root.stepped(-1)
        }
        Rectangle {
            width: 1
            height: parent.height
            color: Theme.stroke
        }
        StepButton {
            objectName: "increase"
            glyph: Glyphs.increase
            enabled: root.canIncrease
            onClicked: root.stepped(1)
        }
    }
}
