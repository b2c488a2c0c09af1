// SPDX-License-Identifier: Apache-2.0
// The window's content: the browser on the process's shared client, which
// starts listening and discovering when the window first draws this view,
// laid out as the user left it (WindowMemory).
import QtQuick
import VornLink

ContentView {
    id: root

    property bool discoveryStarted: false
    // What the user changes is remembered once the remembered layout is back.
    property bool layoutRestored: false

    client: SharedClient

    onActivityShownChanged: if (root.layoutRestored) WindowMemory.activityShown = root.activityShown
    onSidebarWidthChanged: if (root.layoutRestored) WindowMemory.sidebarWidth = root.sidebarWidth
    onDetailTabChanged: if (root.layoutRestored) WindowMemory.lastTab = root.detailTab

    Component.onCompleted: {
        if (WindowMemory.sidebarWidth > 0)
            root.sidebarWidth = WindowMemory.sidebarWidth;
        root.activityShown = WindowMemory.activityShown;
        root.detailTab = WindowMemory.lastTab;
        root.unitSelection.show(WindowMemory.lastUnit);
        root.layoutRestored = true;
    }

    Connections {
        target: root.unitSelection

        function onCurrentChanged() {
            if (root.layoutRestored)
                WindowMemory.lastUnit = root.unitSelection.current;
        }
    }

    // Started as the first frame is prepared rather than while the view is
    // built, so that the units' answers do not hold up that frame.
    Connections {
        target: root.Window.window
        enabled: !root.discoveryStarted

        function onAfterAnimating() {
            root.discoveryStarted = true;
            root.client.start();
        }
    }
}
