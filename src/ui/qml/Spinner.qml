// A small indeterminate spinner: a faint ring with a turning cyan arc.
import QtQuick
import QtQuick.Controls.Basic

BusyIndicator {
    id: root

    implicitWidth: 14
    implicitHeight: 14
    padding: 0

    contentItem: Item {
        Rectangle {
            anchors.fill: parent
            radius: width / 2
            color: "transparent"
            border.width: 2
            border.color: Theme.stroke
        }

        Canvas {
            id: arc

            anchors.fill: parent
            onPaint: {
                const context = getContext("2d");
                context.reset();
                context.lineWidth = 2;
                context.lineCap = "round";
                context.strokeStyle = Theme.cyan;
                context.beginPath();
                context.arc(width / 2, height / 2, width / 2 - 1, 0, Math.PI / 2);
                context.stroke();
            }

            RotationAnimator on rotation {
                running: root.running && root.visible
                from: 0
                to: 360
                duration: 900
                loops: Animation.Infinite
            }
        }
    }
}
