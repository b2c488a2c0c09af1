// SPDX-License-Identifier: Apache-2.0
// The client's activity log along the bottom of the detail area: every line
// as the client keeps it, newest last, monospaced and selectable. It follows
// new lines unless the user has scrolled up to read, and copies all of it.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

Rectangle {
    id: root

    required property VornClient client
    readonly property string text: root.client.log.join("\n")
    // True while the newest line is in view; scrolling up clears it.
    property bool following: true
    property bool scrolling: false

    function copyAll() {
        const start = logText.selectionStart;
        const end = logText.selectionEnd;
        logText.selectAll();
        logText.copy();
        logText.select(start, end);
    }

    function showNewest() {
        root.scrolling = true;
        logView.contentY = Math.max(0, logView.contentHeight - logView.height);
        root.scrolling = false;
    }

    color: Theme.bg
    onTextChanged: if (root.following) Qt.callLater(root.showNewest)

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
                enabled: root.text !== ""
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

            Flickable {
                id: logView

                objectName: "logView"
                anchors.fill: parent
                anchors.margins: Theme.hairline
                clip: true
                contentWidth: width
                contentHeight: logText.implicitHeight
                boundsBehavior: Flickable.StopAtBounds
                onContentYChanged: if (!root.scrolling) root.following = logView.atYEnd
                onHeightChanged: if (root.following) root.showNewest()

                TextEdit {
                    id: logText

                    objectName: "logText"
                    width: logView.width
                    leftPadding: Theme.logPaddingHorizontal
                    rightPadding: Theme.logPaddingHorizontal
                    topPadding: Theme.logPaddingVertical
                    bottomPadding: Theme.logPaddingVertical
                    text: root.text
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

            Text {
                objectName: "emptyLog"
                anchors.centerIn: parent
                visible: root.text === ""
                text: qsTr("Nothing yet: units found and writes sent are listed here.")
                textFormat: Text.PlainText
                color: Theme.inkMuted
                font.pixelSize: Theme.fontSmall
            }
        }
    }
}
