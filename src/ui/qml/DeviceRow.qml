// SPDX-License-Identifier: Apache-2.0
// One base station in the sidebar: icon tile, title over address (followed
// by when a remembered unit was last seen until it answers, and by a
// warning in amber when the unit sits outside its network's subnet or shares
// its address with another unit), and a dot that is green while the unit is
// online (the list model judges that on every tick of the client's clock).
// Draws its own selection look.
import QtQuick
import VornLink
import QtQuick.Layouts

Rectangle {
    id: root

    required property string title
    required property string ip
    required property bool selected
    required property bool wrongSubnet
    required property bool addressConflict
    // "last seen 3 min ago" while the unit is only remembered, else empty.
    required property string lastSeenNote
    // What follows the address: each warning after a middle dot, or nothing.
    readonly property string warningText: (root.wrongSubnet ? " \u00b7 " + qsTr("wrong subnet") : "")
        + (root.addressConflict ? " \u00b7 " + qsTr("address conflict") : "")
    // Everything after the address: the remembered unit's last sighting, then the warnings.
    readonly property string addressNote: (root.lastSeenNote !== "" ? " \u00b7 " + root.lastSeenNote : "")
        + root.warningText
    required property bool online

    implicitWidth: row.implicitWidth + 2 * Theme.gap
    implicitHeight: row.implicitHeight + 2 * Theme.rowPaddingVertical
    radius: Theme.radiusRow
    color: root.selected ? Theme.alpha(Theme.cyan, 0.12) : "transparent"
    border.width: Theme.hairline
    border.color: root.selected ? Theme.alpha(Theme.cyan, 0.4) : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1, %2, %3").arg(root.title).arg(root.ip).arg(root.online ? qsTr("online") : qsTr("offline"))
    Accessible.description: root.addressNote.replace(/^ \u00b7 /, "")
    Accessible.selectable: true
    Accessible.selected: root.selected

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: Theme.gap
        anchors.topMargin: Theme.rowPaddingVertical
        anchors.bottomMargin: Theme.rowPaddingVertical
        spacing: Theme.gapRow

        Rectangle {
            objectName: "iconTile"
            Layout.preferredWidth: Theme.rowIconSize
            Layout.preferredHeight: Theme.rowIconSize
            radius: Theme.radiusButton
            color: Theme.alpha(Theme.cyan, root.selected ? 0.22 : 0.13)

            Icon {
                anchors.centerIn: parent
                glyph: Glyphs.station
                color: Theme.cyan
                points: Theme.iconRow
                font.weight: Font.DemiBold
            }
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.gapHair

            Text {
                objectName: "rowTitle"
                Layout.fillWidth: true
                text: root.title
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.ink
                font.pixelSize: Theme.fontBody
                font.weight: Font.DemiBold
            }
            // The warning follows the address, or takes the next line whole
            // when both do not fit.
            Flow {
                id: addressLine

                Layout.fillWidth: true

                Text {
                    objectName: "rowAddress"
                    width: Math.min(implicitWidth, addressLine.width)
                    text: root.ip
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: Theme.inkMuted
                    font.family: "monospace"
                    font.pixelSize: Theme.fontSmall
                }
                Text {
                    objectName: "rowLastSeen"
                    width: Math.min(implicitWidth, addressLine.width)
                    visible: root.lastSeenNote !== ""
                    text: " \u00b7 " + root.lastSeenNote
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: Theme.inkMuted
                    font.pixelSize: Theme.fontSmall
                }
                Text {
                    objectName: "rowWarning"
                    width: Math.min(implicitWidth, addressLine.width)
                    visible: root.warningText !== ""
                    text: root.warningText
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: Theme.amber
                    font.pixelSize: Theme.fontSmall
                }
            }
        }

        Rectangle {
            objectName: "presenceDot"
            Layout.preferredWidth: Theme.presenceDotSize
            Layout.preferredHeight: Theme.presenceDotSize
            radius: Theme.presenceDotSize / 2
            color: root.online ? Theme.online : Theme.alpha(Theme.inkMuted, 0.5)
        }
    }
}
