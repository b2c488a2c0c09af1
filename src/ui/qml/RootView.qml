// SPDX-License-Identifier: Apache-2.0
// The window's content: the browser on the process's shared client, which
// starts listening and discovering when the window first draws this view.
import QtQuick
import VornLink

ContentView {
    id: root

    property bool discoveryStarted: false

    client: SharedClient

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
