// SPDX-License-Identifier: Apache-2.0
// The ring that shows which control has the keyboard: a line in the focus
// colour just outside the edge of the item it is placed in, while `shown`.
import QtQuick

Rectangle {
    id: root

    required property bool shown
    // The corner radius of the item it surrounds; the ring follows its curve.
    property real targetRadius: 0
    // How far the ring lies outside the item's edge (negative: inside).
    property real spread: Theme.focusRingGap + Theme.focusRingWidth

    objectName: "focusRing"
    anchors.fill: parent
    anchors.margins: -root.spread
    radius: Math.max(0, root.targetRadius + root.spread)
    visible: root.shown
    color: "transparent"
    border.width: Theme.focusRingWidth
    border.color: Theme.focusRing
}
