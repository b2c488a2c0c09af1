// SPDX-License-Identifier: Apache-2.0
// The main window: dark, tinted with the accent, never smaller than 860 x 560.
import QtQuick
import QtQuick.Controls.Basic

ApplicationWindow {
    id: root

    width: Theme.windowWidth
    height: Theme.windowHeight
    minimumWidth: Theme.windowMinimumWidth
    minimumHeight: Theme.windowMinimumHeight
    title: qsTr("VornLink")
    color: Theme.bg

    // Whatever a control draws from the palette is dark and tinted too.
    palette {
        window: Theme.bg
        windowText: Theme.ink
        base: Theme.surface2
        alternateBase: Theme.surface
        text: Theme.ink
        button: Theme.surface2
        buttonText: Theme.ink
        brightText: Theme.ink
        highlight: Theme.cyan
        highlightedText: Theme.bg
        placeholderText: Theme.inkMuted
        toolTipBase: Theme.surface2
        toolTipText: Theme.ink
        light: Theme.surface2
        midlight: Theme.surface2
        mid: Theme.surface
        dark: Theme.bg
        shadow: Theme.bg
        link: Theme.cyan
        linkVisited: Theme.cyan
    }

    RootView {
        objectName: "contentView"
        anchors.fill: parent
    }

    Shortcut {
        sequences: [StandardKey.Quit, "Ctrl+Q"]
        context: Qt.ApplicationShortcut
        onActivated: Qt.quit()
    }
}
