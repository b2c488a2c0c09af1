// SPDX-License-Identifier: Apache-2.0
// The small button beside the status line that says on how many networks
// discovery goes out ("No network" in amber when there is none) and opens
// the list of those networks.
import QtQuick
import VornLink
import QtQuick.Controls.Basic

Button {
    id: root

    // One entry per network: {name, address, prefixLength, units}.
    required property var networks
    readonly property int count: root.networks.length

    text: root.count === 0 ? qsTr("No network") : qsTr("%n network(s)", "", root.count)
    leftPadding: Theme.smallPillPaddingHorizontal
    rightPadding: Theme.smallPillPaddingHorizontal
    topPadding: Theme.smallPillPaddingVertical
    bottomPadding: Theme.smallPillPaddingVertical
    font.pixelSize: Theme.fontSmall
    font.weight: Font.DemiBold
    opacity: root.down ? 0.8 : 1
    onClicked: popup.open()
    Accessible.description: qsTr("Shows the networks discovery goes out on")
    Keys.onReturnPressed: popup.open()
    Keys.onEnterPressed: popup.open()
    // A screen reader's Press clicks it, as Space does; Qt's own Press
    // action does nothing on a button here.
    function accessiblePressAction() {
        if (root.enabled)
            root.clicked();
    }

    FocusRing {
        shown: root.visualFocus
        targetRadius: root.height / 2
    }

    contentItem: Text {
        text: root.text
        textFormat: Text.PlainText
        font: root.font
        color: root.count === 0 ? Theme.amber : Theme.inkMuted
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: height / 2
        color: root.hovered || root.visualFocus ? Theme.surface2 : "transparent"
        border.width: Theme.hairline
        border.color: root.visualFocus ? Theme.cyan : Theme.stroke
    }

    NetworksPopup {
        id: popup

        objectName: "networksPopup"
        networks: root.networks
        y: -popup.height - Theme.gap
    }
}
