// SPDX-License-Identifier: Apache-2.0
// A switch: a capsule track, cyan when on and surface2 with a hairline when
// off, and a light knob that slides across.
import QtQuick
import QtQuick.Controls.Basic

Switch {
    id: root

    // The units edited together differ here: the knob waits in the middle.
    property bool mixed: false

    implicitWidth: Theme.toggleWidth
    implicitHeight: Theme.toggleHeight
    padding: 0
    spacing: 0

    // A screen reader's Toggle or Press flips it as a click does, toggled()
    // included: Qt's own Toggle only sets `checked`, which the owner never
    // hears of (and which breaks the binding to its value). Like a click, it
    // does nothing while disabled.
    function accessibleToggleAction() {
        if (!root.enabled)
            return;
        root.toggle();
        root.toggled();
    }
    function accessiblePressAction() {
        root.accessibleToggleAction();
    }

    FocusRing {
        shown: root.visualFocus
        targetRadius: root.height / 2
    }

    indicator: Rectangle {
        implicitWidth: Theme.toggleWidth
        implicitHeight: Theme.toggleHeight
        x: root.leftPadding
        y: (root.height - height) / 2
        radius: height / 2
        color: root.checked && !root.mixed ? Theme.cyan : Theme.surface2
        border.width: root.checked ? 0 : Theme.hairline
        border.color: root.visualFocus ? Theme.cyan : Theme.stroke

        Rectangle {
            objectName: "knob"
            width: Theme.toggleKnobSize
            height: Theme.toggleKnobSize
            radius: Theme.toggleKnobSize / 2
            y: Theme.toggleKnobInset
            x: root.mixed ? (parent.width - width) / 2 : root.checked ? parent.width - width - Theme.toggleKnobInset : Theme.toggleKnobInset
            color: root.checked ? Theme.bg : Theme.inkMuted

            Behavior on x {
                NumberAnimation { duration: 120; easing.type: Easing.OutCubic }
            }
        }
    }

    contentItem: Item {}
}
