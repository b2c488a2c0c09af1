// SPDX-License-Identifier: Apache-2.0
// What the detail column shows while no known unit is selected.
import QtQuick
import QtQuick.Layouts

ColumnLayout {
    id: root

    spacing: Theme.gapPanel

    Rectangle {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredWidth: Theme.emptyBadgeSize
        Layout.preferredHeight: Theme.emptyBadgeSize
        radius: Theme.emptyBadgeSize / 2
        color: Theme.alpha(Theme.cyan, 0.1)

        Icon {
            anchors.centerIn: parent
            glyph: Glyphs.station
            points: Theme.iconEmpty
            color: Theme.cyan
        }
    }

    Text {
        objectName: "emptyTitle"
        Layout.alignment: Qt.AlignHCenter
        text: qsTr("Select a base station")
        textFormat: Text.PlainText
        color: Theme.ink
        font.pixelSize: Theme.fontEmptyTitle
        font.weight: Font.DemiBold
    }

    Text {
        objectName: "emptyHint"
        Layout.alignment: Qt.AlignHCenter
        text: qsTr("Pick a unit from the list, or add one by IP.")
        textFormat: Text.PlainText
        color: Theme.inkMuted
        font.pixelSize: Theme.fontBody
    }
}
