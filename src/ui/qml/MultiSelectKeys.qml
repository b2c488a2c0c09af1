// SPDX-License-Identifier: Apache-2.0
// The keys that select several units in the sidebar list while it has the
// focus: select-all (Ctrl+A) and Shift+Up/Down, which extend the range.
import QtQuick

Item {
    id: root

    // Whether the list has the focus; the keys act only then.
    property bool active: false

    signal selectAllRequested()
    signal extendRequested(int step)

    Shortcut {
        sequences: [StandardKey.SelectAll]
        enabled: root.active
        onActivated: root.selectAllRequested()
    }
    Shortcut {
        sequence: "Shift+Up"
        enabled: root.active
        onActivated: root.extendRequested(-1)
    }
    Shortcut {
        sequence: "Shift+Down"
        enabled: root.active
        onActivated: root.extendRequested(1)
    }
}
