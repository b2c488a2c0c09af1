// A switch: a capsule track, cyan when on and surface2 with a hairline when
// off, and a light knob that slides across.
import QtQuick
import QtQuick.Controls.Basic

Switch {
    id: root

    // The units edited together differ here: the knob waits in the middle.
    property bool mixed: false

    implicitWidth: 40
    implicitHeight: 22
    padding: 0
    spacing: 0

    indicator: Rectangle {
        implicitWidth: 40
        implicitHeight: 22
        x: root.leftPadding
        y: (root.height - height) / 2
        radius: height / 2
        color: root.checked && !root.mixed ? Theme.cyan : Theme.surface2
        border.width: root.checked ? 0 : 1
        border.color: root.visualFocus ? Theme.cyan : Theme.stroke

        Rectangle {
            objectName: "knob"
            width: 18
            height: 18
            radius: 9
            y: 2
            x: root.mixed ? (parent.width - width) / 2 : root.checked ? parent.width - width - 2 : 2
            color: root.checked ? Theme.bg : Theme.inkMuted

            Behavior on x {
                NumberAnimation { duration: 120; easing.type: Easing.OutCubic }
            }
        }
    }

    contentItem: Item {}
}
