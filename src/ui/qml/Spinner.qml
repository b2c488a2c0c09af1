// SPDX-License-Identifier: Apache-2.0
// A small indeterminate spinner: a faint ring with a turning cyan arc.
import QtQuick
import QtQuick.Controls.Basic

BusyIndicator {
    id: root

    implicitWidth: Theme.spinnerSize
    implicitHeight: Theme.spinnerSize
    padding: 0

    contentItem: Item {
        Rectangle {
            anchors.fill: parent
            radius: width / 2
            color: "transparent"
            border.width: Theme.spinnerStroke
            border.color: Theme.stroke
        }

        Canvas {
            id: arc

            anchors.fill: parent
            onPaint: {
                const context = getContext("2d");
                context.reset();
                context.lineWidth = Theme.spinnerStroke;
                context.lineCap = "round";
                context.strokeStyle = Theme.cyan;
                context.beginPath();
                context.arc(width / 2, height / 2, width / 2 - Theme.spinnerStroke / 2, 0, Math.PI / 2);
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
