// SPDX-License-Identifier: Apache-2.0
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
    property alias manualIP: sidebarFooter.manualIP
    // The activity pane under the detail; the split view keeps the height
    // the user drags it to for as long as the window lives.
    property bool activityShown: false
    // The sidebar's width as the user last dragged it (the theme's at first).
    property real sidebarWidth: Theme.sidebarWidth
    // The editor's tab, kept while the selection moves from unit to unit.
    property int detailTab: DeviceDetailView.Tally
    readonly property color statusColor: root.client.listening ? Theme.online : Theme.amber
    // The selected units and the current unit (which may be an address the
    // client does not know yet); with two or more selected the detail lists
    // them instead of one unit's editor.
    readonly property alias unitSelection: unitSelection
    readonly property bool multiSelected: unitSelection.count > 1
    readonly property alias fleet: fleet
    readonly property bool selectionKnown: {
        root.client.deviceCount; // a unit listed or forgotten changes the count
        return unitSelection.current !== "" && root.client.contains(unitSelection.current);
    }

    // Sends one discover to the address in the field (blanks around it
    // removed, read as a decimal dotted quad) and selects that address. A
    // blank field does nothing; text that is not an address sends nothing
    // and says so under the field.
    function query() {
        const ip = root.client.canonicalAddress(root.manualIP);
        sidebarFooter.addressRefused = ip === "" && root.manualIP.trim() !== "";
        if (ip === "")
            return;
        root.client.sendDiscover(ip);
        unitSelection.show(ip);
    }

    // A click on the unit in `row`: plain selects it alone, Ctrl toggles it,
    // Shift selects the range from the last clicked unit.
    function clickRow(row, modifiers) {
        unitSelection.click(row, modifiers);
        deviceList.forceActiveFocus();
    }

    // Reading revision re-runs a row's binding on each change.
    function rowSelected(ip) {
        return unitSelection.revision >= 0 && unitSelection.contains(ip);
    }

    function discover() {
        root.client.sendDiscover(root.client.broadcastAddress);
    }

    // Up and Down in the list: selects the unit `step` rows away from the
    // selected one (the first row when none is selected), at most the last,
    // and only it.
    function selectNeighbour(step) {
        if (deviceList.count === 0)
            return;
        const current = deviceList.currentItem && deviceList.currentItem.ip === unitSelection.current
            ? deviceList.currentIndex : -1;
        const next = current < 0 ? 0 : Math.max(0, Math.min(deviceList.count - 1, current + step));
        deviceList.currentIndex = next;
        deviceList.positionViewAtIndex(next, ListView.Contain);
        // As a plain click: the unit alone, and where a Shift range starts.
        unitSelection.click(next, Qt.NoModifier);
    }

    // Return in the list: the keyboard goes to the selected unit's editor.
    function openEditor() {
        if (detailLoader.item)
            detailLoader.item.focusEditor();
    }

    // The Menu key in the list: the context menu of the selected unit's row.
    function openRowMenu() {
        const row = deviceList.currentItem;
        if (row && row.primary)
            rowMenu.openFor(row, row.ip, Theme.gapWide, row.height / 2);
    }

    // Tab: the list, the address row, Discover, then the editor's tabs,
    // fields and header buttons, then the rest of the sidebar's foot and
    // the activity pane.
    FocusChain {
        groups: [deviceList].concat(sidebarFooter.leadingFocusGroups)
            .concat(detailLoader.item ? detailLoader.item.focusGroups : [])
            .concat(sidebarFooter.trailingFocusGroups)
            .concat([activityPane])
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
                rows.push([row.ip, row.title, row.addressNote]);
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
        implicitWidth: Theme.hairline
        color: Theme.stroke
    }

    ColumnLayout {
        id: sidebar

        objectName: "sidebar"
        SplitView.minimumWidth: Theme.sidebarMinimumWidth
        SplitView.preferredWidth: root.sidebarWidth
        onWidthChanged: if (root.resizing) root.sidebarWidth = sidebar.width
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
                topMargin: Theme.listPaddingTop
                bottomMargin: Theme.listPaddingBottom
                leftMargin: Theme.gapSmall
                rightMargin: Theme.gapSmall
                spacing: Theme.gapSmall
                boundsBehavior: Flickable.StopAtBounds
                activeFocusOnTab: true
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Base stations")
                Keys.onUpPressed: root.selectNeighbour(-1)
                Keys.onDownPressed: root.selectNeighbour(1)
                Keys.onReturnPressed: root.openEditor()
                Keys.onMenuPressed: root.openRowMenu()
                Keys.onEnterPressed: root.openEditor()
                onCountChanged: if (Diagnostics.sidebarRows) Qt.callLater(root.reportRows)
                model: DeviceListModel {
                    client: root.client
                }
                // A remembered row that answers changes without a change of count.
                Connections {
                    target: root.client
                    function onRememberedUnitAnswered() {
                        if (Diagnostics.sidebarRows)
                            Qt.callLater(root.reportRows);
                    }
                }
                delegate: DeviceRow {
                    required property int index

                    // The row the editor shows and the keyboard moves from.
                    readonly property bool primary: unitSelection.current === ip

                    width: ListView.view.width - ListView.view.leftMargin - ListView.view.rightMargin
                    selected: root.rowSelected(ip)
                    onPrimaryChanged: if (primary) ListView.view.currentIndex = index
                    Component.onCompleted: if (primary) ListView.view.currentIndex = index
                    Accessible.onPressAction: root.clickRow(index, Qt.NoModifier)

                    TapHandler {
                        onTapped: root.clickRow(parent.index, point.modifiers)
                    }
                    TapHandler {
                        acceptedButtons: Qt.RightButton
                        onTapped: rowMenu.openFor(parent, parent.ip, point.position.x, point.position.y)
                    }

                    FocusRing {
                        shown: parent.primary && deviceList.activeFocus
                        targetRadius: parent.radius
                        spread: Theme.focusRingGap
                    }
                }

                // Selecting several units from the keyboard; plain keys are handled apart.
                MultiSelectKeys {
                    active: deviceList.activeFocus
                    onSelectAllRequested: unitSelection.selectAll()
                    onExtendRequested: step => unitSelection.extend(step)
                }

                ScrollBar.vertical: ScrollBar {
                    id: scrollBar

                    contentItem: Rectangle {
                        implicitWidth: Theme.scrollBarWidth
                        radius: Theme.radiusScrollBar
                        color: Theme.alpha(Theme.inkMuted, 0.35)
                        opacity: scrollBar.size < 1 && (scrollBar.active || scrollBar.hovered) ? 1 : 0

                        Behavior on opacity {
                            NumberAnimation { duration: 200 }
                        }
                    }
                }
            }

            // With no row selected the ring goes round the list itself.
            FocusRing {
                shown: deviceList.activeFocus && !(deviceList.currentItem && deviceList.currentItem.primary)
                spread: -Theme.focusRingWidth
            }

            RowLayout {
                objectName: "scanningRow"
                visible: root.client.deviceCount === 0
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: parent.top
                anchors.leftMargin: Theme.gapWide
                anchors.topMargin: Theme.gapLarge + Theme.gapSmall
                spacing: Theme.gap

                Spinner {
                    running: parent.visible
                }
                Text {
                    Layout.fillWidth: true
                    text: qsTr("Scanning the network\u2026")
                    textFormat: Text.PlainText
                    color: Theme.inkMuted
                    font.pixelSize: Theme.fontNote
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
            onScanRequested: fleet.openScan()
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

    UnitRowMenu {
        id: rowMenu

        objectName: "unitRowMenu"
        onForgetRequested: ip => forgetDialog.ask(ip)
    }

    ForgetUnitDialog {
        id: forgetDialog

        objectName: "forgetDialog"
        client: root.client
    }

    SplitView {
        objectName: "detailColumn"
        SplitView.fillWidth: true
        orientation: Qt.Vertical

        // A hairline with room around it to take hold of.
        handle: Item {
            implicitHeight: Theme.splitHandleHeight

            Rectangle {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                height: Theme.hairline
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

            // Made only while several units are selected, so its fields never
            // stand beside the single editor's; by URL, like the editor, so its
            // types are compiled on first use rather than at start.
            Loader {
                id: selectedUnitsLoader

                function follow() {
                    if (selectedUnitsLoader.active)
                        selectedUnitsLoader.setSource("SelectedUnitsView.qml", {
                            objectName: "selectedUnitsView",
                            client: root.client,
                            addresses: Qt.binding(() => unitSelection.addresses)
                        });
                    else
                        selectedUnitsLoader.setSource("");
                }

                objectName: "selectedUnitsLoader"
                active: root.multiSelected
                anchors.fill: parent
                anchors.margins: Theme.dialogMinimumMargin
                onActiveChanged: selectedUnitsLoader.follow()
            }

            // The editor comes by URL, so its types are compiled on the first
            // selection rather than at start; the view is made on each activation.
            Loader {
                id: detailLoader

                function follow() {
                    if (detailLoader.active)
                        detailLoader.setSource("DeviceDetailView.qml", {
                            client: root.client,
                            ip: Qt.binding(() => unitSelection.current),
                            tab: root.detailTab
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
                    unitSelection.show(ip);
                }
                function onTabChanged() {
                    root.detailTab = detailLoader.item.tab;
                }
                function onForgetRequested(ip: string) {
                    forgetDialog.ask(ip);
                }
            }
        }

        ActivityPane {
            id: activityPane

            objectName: "activityPane"
            visible: root.activityShown
            client: root.client
            SplitView.minimumHeight: Theme.activityPaneMinimumHeight
            SplitView.preferredHeight: Theme.activityPaneHeight
        }
    }
}
