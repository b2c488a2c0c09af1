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
    // The user asked to see the unit under the address it moved to.
    signal showUnit(string ip)
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

    Component.onCompleted: deviceEditor.load()

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: Theme.pageMargin
        anchors.bottomMargin: 0
        spacing: Theme.gapSection

        DetailHeader {
            objectName: "hero"
            Layout.fillWidth: true
            editor: deviceEditor
            unitNetwork: root.unitNetwork
            onShowMoved: ip => root.showUnit(ip)
        }

        SegmentBar {
            objectName: "segmentBar"
            titles: deviceEditor.tabTitles
            glyphs: [Glyphs.tally, Glyphs.intercom, Glyphs.network, Glyphs.details]
            selection: deviceEditor.tab
            onSelected: index => deviceEditor.tab = index
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
                    visible: deviceEditor.tab === DeviceEditor.Tally
                    editor: deviceEditor
                }
                CommunicationPanel {
                    objectName: "communicationPanel"
                    visible: deviceEditor.tab === DeviceEditor.Intercom
                    editor: deviceEditor
                }
                NetworkPanel {
                    objectName: "networkPanel"
                    visible: deviceEditor.tab === DeviceEditor.Network
                    editor: deviceEditor
                    unitNetwork: root.unitNetwork
                }
                DetailsPanel {
                    objectName: "detailsPanel"
                    visible: deviceEditor.tab === DeviceEditor.Details
                    editor: deviceEditor
                    unitNetwork: root.unitNetwork
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
    }
}
