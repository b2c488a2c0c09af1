// SPDX-License-Identifier: Apache-2.0
// The client's activity log along the bottom of the detail area: every line
// as the client keeps it, newest last, monospaced and selectable line by line.
// The lines come from the client's list model: a new line is laid out once,
// only while it is in view, and nothing at all while the pane is hidden. It
// follows new lines unless the user has scrolled up to read, and copies all
// of it.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

Rectangle {
    id: root

    required property VornClient client
    readonly property bool empty: root.client.activity.count === 0
    // True while the newest line is in view; scrolling up clears it.
    property bool following: true
    property bool scrolling: false

    function copyAll() {
        clipboardText.text = root.client.activity.text();
        clipboardText.selectAll();
        clipboardText.copy();
        clipboardText.clear();
    }

    function showNewest() {
        root.scrolling = true;
        logView.positionViewAtEnd();
        root.scrolling = false;
    }

    color: Theme.bg

    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        anchors.topMargin: Theme.gapMedium
        anchors.bottomMargin: Theme.gapLarge
        spacing: Theme.gap

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.gap

            Icon {
                glyph: Glyphs.activity
                color: Theme.cyan
                points: Theme.iconList
            }
            Text {
                Layout.fillWidth: true
                text: qsTr("Activity")
                textFormat: Text.PlainText
                color: Theme.ink
                font.pixelSize: Theme.fontBody
                font.weight: Font.DemiBold
            }
            GhostButton {
                objectName: "copyLogButton"
                text: qsTr("Copy all")
                tint: Theme.inkMuted
                topPadding: Theme.smallButtonPaddingVertical
                bottomPadding: Theme.smallButtonPaddingVertical
                leftPadding: Theme.smallButtonPaddingHorizontal
                rightPadding: Theme.smallButtonPaddingHorizontal
                font.pixelSize: Theme.fontSmall
                enabled: !root.empty
                onClicked: root.copyAll()
            }
        }

        Rectangle {
            Layout.fillWidth: true
            Layout.fillHeight: true
            radius: Theme.radiusRow
            color: Theme.surface
            border.width: Theme.hairline
            border.color: Theme.stroke

            ListView {
                id: logView

                objectName: "logView"
                anchors.fill: parent
                anchors.leftMargin: Theme.hairline
                anchors.rightMargin: Theme.hairline
                anchors.topMargin: Theme.logPaddingVertical
                anchors.bottomMargin: Theme.logPaddingVertical
                clip: true
                // Hidden, the pane holds no model: no line is made or laid out.
                model: root.visible ? root.client.activity : null
                boundsBehavior: Flickable.StopAtBounds
                onContentYChanged: if (!root.scrolling) root.following = logView.atYEnd
                onHeightChanged: if (root.following) root.showNewest()
                onCountChanged: if (root.following) Qt.callLater(root.showNewest)

                delegate: TextEdit {
                    required property string line

                    width: ListView.view.width
                    leftPadding: Theme.logPaddingHorizontal
                    rightPadding: Theme.logPaddingHorizontal
                    text: line
                    textFormat: TextEdit.PlainText
                    readOnly: true
                    selectByMouse: true
                    wrapMode: TextEdit.Wrap
                    color: Theme.ink
                    selectionColor: Theme.alpha(Theme.cyan, 0.35)
                    selectedTextColor: Theme.ink
                    font.family: "monospace"
                    font.pixelSize: Theme.fontSmall
                }

                ScrollBar.vertical: ScrollBar {
                    id: scrollBar

                    contentItem: Rectangle {
                        implicitWidth: Theme.scrollBarWidth
                        radius: Theme.radiusScrollBar
                        color: Theme.alpha(Theme.inkMuted, 0.35)
                        opacity: scrollBar.size < 1 ? 1 : 0
                    }
                }
            }

            // Carries the whole log to the clipboard on "Copy all" only.
            TextEdit {
                id: clipboardText

                visible: false
                textFormat: TextEdit.PlainText
            }

            Text {
                objectName: "emptyLog"
                anchors.centerIn: parent
                visible: root.empty
                text: qsTr("Nothing yet: units found and writes sent are listed here.")
                textFormat: Text.PlainText
                color: Theme.inkMuted
                font.pixelSize: Theme.fontSmall
            }
        }
    }
}
