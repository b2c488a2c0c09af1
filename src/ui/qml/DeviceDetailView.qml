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
    // The user asked to see the unit under the address it moved to.
    signal showUnit(string ip)

    // The tabs in the order the tab bar shows them.
    enum Tab { Tally, Intercom, Network, Details }
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

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 28
        anchors.bottomMargin: 0
        spacing: 18

        DetailHeader {
            objectName: "hero"
            Layout.fillWidth: true
            editor: deviceEditor
            unitNetwork: root.unitNetwork
            onShowMoved: ip => root.showUnit(ip)
        }

        SegmentBar {
            objectName: "segmentBar"
            titles: deviceEditor.header.tabTitles
            glyphs: [Glyphs.tally, Glyphs.intercom, Glyphs.network, Glyphs.details]
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
            contentHeight: panels.implicitHeight + 28
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
                }
            }

            ScrollBar.vertical: ScrollBar {
                id: scrollBar

                contentItem: Rectangle {
                    implicitWidth: 4
                    radius: 2
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
