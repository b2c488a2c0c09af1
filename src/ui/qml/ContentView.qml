// The content of the main window: the sidebar (known units, manual query,
// Discover, status) beside the detail of the selected unit, with the
// activity log below the detail when the user opens it.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

SplitView {
    id: root

    required property VornClient client
    // Address of the selected unit; it may name a unit the client does not know yet.
    property string selection: ""
    property alias manualIP: sidebarFooter.manualIP
    // The activity pane under the detail; the split view keeps the height
    // the user drags it to for as long as the window lives.
    property bool activityShown: false
    readonly property color statusColor: root.client.listening ? Theme.online : Theme.amber
    // Units picked with Ctrl, Shift or select-all; with two or more the
    // detail lists them instead of one unit's editor.
    readonly property alias unitSelection: unitSelection
    readonly property bool multiSelected: unitSelection.count > 1
    readonly property alias fleet: fleet
    readonly property bool selectionKnown: {
        root.client.deviceCount; // units are only ever added, so the count marks every change
        return root.selection !== "" && root.client.contains(root.selection);
    }

    // Sends one discover to the address in the field, blanks around it
    // removed, and selects that address; a blank field does nothing.
    function query() {
        const blanks = "[\\t \\u00a0\\u1680\\u2000-\\u200a\\u202f\\u205f\\u3000]+";
        const ip = root.manualIP.replace(new RegExp("^" + blanks + "|" + blanks + "$", "g"), "");
        if (ip === "")
            return;
        root.client.sendDiscover(ip);
        unitSelection.clear();
        root.selection = ip;
    }

    // A click on the unit in `row`: plain selects it alone, Ctrl toggles it,
    // Shift selects the range from the last clicked unit.
    function clickRow(row, modifiers) {
        unitSelection.click(row, modifiers);
        root.selection = unitSelection.primary;
        deviceList.forceActiveFocus();
    }

    // One unit: the selection by address (it may be a queried unit); several:
    // the selected units. Reading revision re-runs a row's binding on each change.
    function rowSelected(ip) {
        if (unitSelection.revision >= 0 && root.multiSelected)
            return unitSelection.contains(ip);
        return root.selection === ip;
    }

    function discover() {
        root.client.sendDiscover(root.client.broadcastAddress);
    }

    // Diagnostics (QT_LOGGING_RULES "vornlink.sidebar.info=true"): the rows as
    // laid out, [address, title, warnings] from top to bottom, whenever their
    // number changes. Off by default, and then never run: it walks every row.
    function reportRows() {
        deviceList.forceLayout();
        const rows = [];
        for (let i = 0; i < deviceList.count; ++i) {
            const row = deviceList.itemAtIndex(i);
            if (row)
                rows.push([row.ip, row.title, row.warningText]);
        }
        console.info(sidebarLog, "rows " + JSON.stringify(rows));
    }

    LoggingCategory {
        id: sidebarLog

        name: "vornlink.sidebar"
        defaultLogLevel: LoggingCategory.Warning
    }

    orientation: Qt.Horizontal

    handle: Rectangle {
        implicitWidth: 1
        color: Theme.stroke
    }

    ColumnLayout {
        id: sidebar

        objectName: "sidebar"
        SplitView.minimumWidth: 232
        SplitView.preferredWidth: 258
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            Layout.fillHeight: true
            color: Theme.bg

            ListView {
                id: deviceList

                objectName: "deviceList"
                anchors.fill: parent
                clip: true
                topMargin: 9
                bottomMargin: 3
                leftMargin: 6
                rightMargin: 6
                spacing: 6
                boundsBehavior: Flickable.StopAtBounds
                onCountChanged: if (Diagnostics.sidebarRows) Qt.callLater(root.reportRows)
                model: DeviceListModel {
                    client: root.client
                }
                delegate: DeviceRow {
                    required property int index

                    width: ListView.view.width - ListView.view.leftMargin - ListView.view.rightMargin
                    selected: root.rowSelected(ip)

                    TapHandler {
                        onTapped: root.clickRow(parent.index, point.modifiers)
                    }
                }

                // Selecting several units from the keyboard; plain keys are handled apart.
                MultiSelectKeys {
                    active: deviceList.activeFocus
                    onSelectAllRequested: {
                        unitSelection.selectAll();
                        root.selection = unitSelection.primary;
                    }
                    onExtendRequested: step => {
                        unitSelection.extend(step);
                        root.selection = unitSelection.primary;
                    }
                }

                ScrollBar.vertical: ScrollBar {
                    id: scrollBar

                    contentItem: Rectangle {
                        implicitWidth: 4
                        radius: 2
                        color: Theme.alpha(Theme.inkMuted, 0.35)
                        opacity: scrollBar.size < 1 && (scrollBar.active || scrollBar.hovered) ? 1 : 0

                        Behavior on opacity {
                            NumberAnimation { duration: 200 }
                        }
                    }
                }
            }

            RowLayout {
                objectName: "scanningRow"
                visible: root.client.deviceCount === 0
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: parent.top
                anchors.leftMargin: 16
                anchors.topMargin: 12 + 6
                spacing: 8

                Spinner {
                    running: parent.visible
                }
                Text {
                    Layout.fillWidth: true
                    text: "Scanning the network\u2026"
                    textFormat: Text.PlainText
                    color: Theme.inkMuted
                    font.pixelSize: 12
                }
            }
        }

        SidebarFooter {
            id: sidebarFooter

            objectName: "sidebarFooter"
            Layout.fillWidth: true
            client: root.client
            statusColor: root.statusColor
            activityShown: root.activityShown
            onQueryRequested: root.query()
            onDiscoverRequested: root.discover()
            onActivityToggled: root.activityShown = !root.activityShown
            onExportAllRequested: fleet.chooseExportFile()
            onRestoreRequested: fleet.chooseRestoreFile()
            fleetMessage: fleet.exporter.message
            fleetMessageFailed: fleet.exporter.failed
        }
    }

    UnitSelection {
        id: unitSelection

        model: deviceList.model
    }

    FleetActions {
        id: fleet

        client: root.client
    }

    SplitView {
        objectName: "detailColumn"
        SplitView.fillWidth: true
        orientation: Qt.Vertical

        // A hairline with room around it to take hold of.
        handle: Item {
            implicitHeight: 7

            Rectangle {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                height: 1
                color: Theme.stroke
            }
        }

        Rectangle {
            objectName: "detail"
            SplitView.fillHeight: true
            color: Theme.bg

            EmptyState {
                id: emptyState

                objectName: "emptyState"
                visible: !root.selectionKnown && !root.multiSelected
                anchors.centerIn: parent
            }

            SelectedUnitsView {
                objectName: "selectedUnitsView"
                visible: root.multiSelected
                anchors.fill: parent
                anchors.margins: Theme.fleetDialogMargin
                client: root.client
                addresses: unitSelection.addresses
            }

            // The editor comes by URL, so its types are compiled on the first
            // selection rather than at start; the view is made on each activation.
            Loader {
                id: detailLoader

                function follow() {
                    if (detailLoader.active)
                        detailLoader.setSource("DeviceDetailView.qml", {
                            client: root.client,
                            ip: Qt.binding(() => root.selection)
                        });
                    else
                        detailLoader.setSource("");
                }

                objectName: "detailLoader"
                anchors.fill: parent
                active: root.selectionKnown && !root.multiSelected
                onActiveChanged: detailLoader.follow()
                Component.onCompleted: detailLoader.follow()
            }

            // "Show" after a move selects the unit under its new address.
            Connections {
                target: detailLoader.item
                ignoreUnknownSignals: true

                function onShowUnit(ip: string) {
                    root.selection = ip;
                }
            }
        }

        ActivityPane {
            objectName: "activityPane"
            visible: root.activityShown
            client: root.client
            SplitView.minimumHeight: 90
            SplitView.preferredHeight: 180
        }
    }
}
