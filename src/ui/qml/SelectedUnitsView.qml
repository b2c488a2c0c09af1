// SPDX-License-Identifier: Apache-2.0
// The detail area while several units are selected: how many, the Tally and
// Communication fields of them all (one a unit differs on shows "Mixed";
// addresses stay per unit, so no Network), "Save to <N> units", and after a
// save each unit's verdict.
import QtQuick
import VornLink
import QtQuick.Controls.Basic
import QtQuick.Layouts

Item {
    id: root

    required property VornClient client
    // Addresses of the selected units, in list order.
    required property var addresses
    readonly property alias editor: multiEditor

    MultiEditor {
        id: multiEditor

        client: root.client
        addresses: root.addresses
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: Theme.gapSection

        MultiEditorHeader {
            objectName: "multiHeader"
            Layout.fillWidth: true
            editor: multiEditor
            count: root.addresses.length
        }

        BatchVerdictList {
            objectName: "batchVerdictList"
            Layout.fillWidth: true
            writer: multiEditor.writer
        }

        Flickable {
            id: scroller

            objectName: "multiScroller"
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            contentWidth: width
            contentHeight: panels.implicitHeight + Theme.pageMargin
            boundsBehavior: Flickable.StopAtBounds

            ColumnLayout {
                id: panels

                width: scroller.width
                spacing: Theme.gapSection

                TallyPanel {
                    objectName: "multiTallyPanel"
                    editor: multiEditor
                }
                CommunicationPanel {
                    objectName: "multiCommunicationPanel"
                    editor: multiEditor
                }
            }

            ScrollBar.vertical: ScrollBar {}
        }
    }
}
