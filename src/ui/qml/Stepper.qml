// SPDX-License-Identifier: Apache-2.0
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
    // For screen readers: the value and the range the buttons step within.
    required property int value
    required property int minimumValue
    required property int maximumValue
    // The units edited together differ here: the title says "Mixed".
    property bool mixed: false

    signal stepped(int delta)

    implicitWidth: row.implicitWidth
    implicitHeight: Theme.controlHeight
    radius: Theme.radiusControl
    color: Theme.surface2
    border.width: Theme.hairline
    border.color: Theme.stroke
    Accessible.role: Accessible.SpinBox
    Accessible.name: root.title
    Accessible.description: qsTr("%1 to %2").arg(root.minimumValue).arg(root.maximumValue)

    component StepButton: AbstractButton {
        id: button

        required property string glyph

        implicitWidth: Theme.stepperButtonWidth
        implicitHeight: root.implicitHeight
        opacity: button.enabled ? (button.down ? 0.7 : 1) : 0.35
        Accessible.description: root.title
        // Up and Down step from either button, within what is open.
        Keys.onUpPressed: if (root.canIncrease) root.stepped(1)
        Keys.onDownPressed: if (root.canDecrease) root.stepped(-1)
        Keys.onReturnPressed: button.clicked()
        Keys.onEnterPressed: button.clicked()
        // A screen reader's Press clicks it, as Space does; Qt's own Press
        // action does nothing on a button here.
        function accessiblePressAction() {
            if (button.enabled)
                button.clicked();
        }

        FocusRing {
            shown: button.visualFocus
            spread: -Theme.focusRingWidth
        }

        contentItem: Icon {
            glyph: button.glyph
            color: Theme.cyan
            points: Theme.iconBody
        }
    }

    Row {
        id: row

        height: parent.height

        Text {
            objectName: "stepperTitle"
            height: parent.height
            leftPadding: Theme.fieldPaddingHorizontal
            rightPadding: Theme.gap
            text: root.mixed ? qsTr("Mixed") : root.title
            textFormat: Text.PlainText
            verticalAlignment: Text.AlignVCenter
            color: root.mixed ? Theme.inkMuted : Theme.ink
            font.family: "monospace"
            font.pixelSize: Theme.fontBody
        }
        Rectangle {
            width: Theme.hairline
            height: parent.height
            color: Theme.stroke
        }
        StepButton {
            objectName: "decrease"
            Accessible.name: qsTr("Decrease")
            glyph: Glyphs.decrease
            enabled: root.canDecrease
            onClicked: root.stepped(-1)
        }
        Rectangle {
            width: Theme.hairline
            height: parent.height
            color: Theme.stroke
        }
        StepButton {
            objectName: "increase"
            Accessible.name: qsTr("Increase")
            glyph: Glyphs.increase
            enabled: root.canIncrease
            onClicked: root.stepped(1)
        }
    }
}
