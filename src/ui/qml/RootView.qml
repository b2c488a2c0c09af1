// The window's content: the browser on the process's shared client, which
// starts listening and discovering when this view first appears.
import QtQuick
import VornLink

ContentView {
    id: root

    client: SharedClient

    Component.onCompleted: root.client.start()
}
