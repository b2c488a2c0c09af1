// SPDX-License-Identifier: Apache-2.0
// The right-hand pane for the selected unit: the header, the tab bar and the
// panel of the selected tab, all bound to this view's DeviceEditor, and the
// confirmation for network settings. The fields load when the view appears,
// when another unit is selected and on Reload, never on a reply: what the user
// is typing stays, while presence, chips, "unsaved changes" and Details follow
// every reply at once.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

Item {
    id: root

    required property VornClient client
    required property string ip
    readonly property alias editor: deviceEditor
    // The tab shown, as a DeviceDetailView.Tab; view state, kept here.
    property int tab: DeviceDetailView.Tally
    // Whether the network confirmation is open; view state, kept here.
    property bool networkConfirmOpen: false
    // For the window's Tab order: the tabs, the fields of the shown tab,
    // then the header's buttons.
    readonly property var focusGroups: [segmentBar, panels, hero]
    // The user asked to see the unit under the address it moved to.
    signal showUnit(string ip)
    // The user asked to forget the unit (the sidebar asks for confirmation).
    signal forgetRequested(string ip)

    // The tabs in the order the tab bar shows them.
    enum Tab { Tally, Intercom, Network, Details, History }
    // Where the unit was heard and what is wrong there: {heardOn,
    // interfaceName, interfaceSubnet, wrongSubnet, addressConflict,
    // serialsSeen}. Read again on every reply and every tick of the clock,
    // which is when an address conflict can clear.
    readonly property var unitNetwork: {
        deviceEditor.live;
        root.client.clock.now;
        return root.client.deviceData(root.ip);
    }

    DeviceEditor {
        id: deviceEditor

        client: root.client
        ip: root.ip
    }

    // Gives the keyboard to the editor: to the button of the shown tab.
    function focusEditor() {
        segmentBar.focusSelected();
    }

    // A field that takes the keyboard is scrolled into view.
    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const item = root.Window.window.activeFocusItem;
            let inPanels = false;
            for (let at = item; at && !inPanels; at = at.parent)
                inPanels = at === panels;
            if (!inPanels)
                return;
            const top = item.mapToItem(panels, 0, 0).y - Theme.focusRingGap - Theme.focusRingWidth;
            const bottom = top + item.height + 2 * (Theme.focusRingGap + Theme.focusRingWidth);
            if (top < scroller.contentY)
                scroller.contentY = Math.max(0, top);
            else if (bottom > scroller.contentY + scroller.height)
                scroller.contentY = Math.min(bottom - scroller.height, scroller.contentHeight - scroller.height);
        }
    }

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: Theme.pageMargin
        anchors.bottomMargin: 0
        spacing: Theme.gapSection

        DetailHeader {
            id: hero

            objectName: "hero"
            Layout.fillWidth: true
            editor: deviceEditor
            unitNetwork: root.unitNetwork
            onShowMoved: ip => root.showUnit(ip)
            onForgetRequested: root.forgetRequested(root.ip)
        }

        SegmentBar {
            id: segmentBar

            objectName: "segmentBar"
            titles: deviceEditor.header.tabTitles
            glyphs: [Glyphs.tally, Glyphs.intercom, Glyphs.network, Glyphs.details, Glyphs.history]
            selection: root.tab
            onSelected: index => root.tab = index
        }

        Flickable {
            id: scroller

            objectName: "panelScroller"
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            contentWidth: width
            contentHeight: panels.implicitHeight + Theme.pageMargin
            boundsBehavior: Flickable.StopAtBounds

            ColumnLayout {
                id: panels

                width: scroller.width

                TallyPanel {
                    objectName: "tallyPanel"
                    visible: root.tab === DeviceDetailView.Tally
                    editor: deviceEditor
                }
                CommunicationPanel {
                    objectName: "communicationPanel"
                    visible: root.tab === DeviceDetailView.Intercom
                    editor: deviceEditor
                }
                NetworkPanel {
                    objectName: "networkPanel"
                    visible: root.tab === DeviceDetailView.Network
                    editor: deviceEditor
                    unitNetwork: root.unitNetwork
                    onApplyRequested: root.networkConfirmOpen = true
                }
                DetailsPanel {
                    objectName: "detailsPanel"
                    visible: root.tab === DeviceDetailView.Details
                    editor: deviceEditor
                    unitNetwork: root.unitNetwork
                    remembered: historyPanel.history
                }
                HistoryPanel {
                    id: historyPanel

                    objectName: "historyPanel"
                    visible: root.tab === DeviceDetailView.History
                    editor: deviceEditor
                    // The loaded values show where they are edited.
                    onRestored: root.tab = DeviceDetailView.Tally
                }
            }

            ScrollBar.vertical: ScrollBar {
                id: scrollBar

                contentItem: Rectangle {
                    implicitWidth: Theme.scrollBarWidth
                    radius: Theme.radiusScrollBar
                    color: Theme.alpha(Theme.inkMuted, 0.35)
                    opacity: scrollBar.size < 1 && (scrollBar.active || scrollBar.hovered) ? 1 : 0
                }
            }
        }
    }

    NetworkConfirmDialog {
        objectName: "networkConfirm"
        editor: deviceEditor
        visible: root.networkConfirmOpen
        onClosed: root.networkConfirmOpen = false
    }
}
