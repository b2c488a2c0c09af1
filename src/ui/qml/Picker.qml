// SPDX-License-Identifier: Apache-2.0
// A pop-up choice of the window: the chosen text on surface2 in a rounded
// frame with a hairline and a handle glyph, the list in the same look. Every
// text is drawn as plain text (entries can be built from a unit's values).
// With no current entry (a unit's value outside the list) it shows a muted dash.
import QtQuick
import QtQuick.Controls.Basic

ComboBox {
    id: root

    // The units edited together differ here: the picker shows "Mixed".
    property bool mixed: false

    leftPadding: Theme.fieldPaddingHorizontal
    rightPadding: Theme.pickerHandleRoom
    topPadding: Theme.fieldPaddingVertical
    bottomPadding: Theme.fieldPaddingVertical
    font.pixelSize: Theme.fontBody
    // As wide as its longest entry, so no entry is ever cut.
    implicitWidth: Math.max(Theme.pickerMinimumWidth, Math.ceil(root.widestText) + root.leftPadding + root.rightPadding)

    readonly property real widestText: {
        root.model;
        let widest = 0;
        for (let i = 0; i < root.count; ++i)
            widest = Math.max(widest, metrics.advanceWidth(root.textAt(i)));
        return widest;
    }

    Accessible.description: root.currentIndex >= 0 ? root.displayText : qsTr("no value chosen")

    FocusRing {
        shown: root.visualFocus
        targetRadius: Theme.radiusControl
    }

    FontMetrics {
        id: metrics

        font: root.font
    }

    contentItem: Text {
        objectName: "pickerText"
        text: root.mixed ? qsTr("Mixed") : root.currentIndex >= 0 ? root.displayText : "\u2014"
        textFormat: Text.PlainText
        font: root.font
        color: root.currentIndex >= 0 && !root.mixed ? Theme.ink : Theme.inkMuted
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    indicator: Icon {
        x: root.width - width - Theme.pickerHandleInset
        y: (root.height - height) / 2
        glyph: Glyphs.chooser
        color: Theme.inkMuted
        points: Theme.iconBody
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.surface2
        border.width: Theme.hairline
        border.color: root.visualFocus || root.popup.visible ? Theme.alpha(Theme.cyan, 0.55) : Theme.stroke
    }

    delegate: ItemDelegate {
        id: entry

        required property int index
        required property var modelData

        width: ListView.view.width
        leftPadding: Theme.fieldPaddingHorizontal
        rightPadding: Theme.fieldPaddingHorizontal
        topPadding: Theme.compactPaddingVertical
        bottomPadding: Theme.compactPaddingVertical
        highlighted: root.highlightedIndex === entry.index

        contentItem: Text {
            text: root.textRole ? entry.modelData[root.textRole] : entry.modelData
            textFormat: Text.PlainText
            font: root.font
            color: root.currentIndex === entry.index ? Theme.cyan : Theme.ink
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
        }

        background: Rectangle {
            radius: Theme.radiusSmall
            color: entry.highlighted ? Theme.alpha(Theme.cyan, 0.14) : "transparent"
        }
    }

    popup: Popup {
        y: root.height + Theme.gapTiny
        width: root.width
        implicitHeight: Math.min(list.contentHeight, Theme.pickerListMaximumHeight) + topPadding + bottomPadding
        padding: Theme.gapTiny

        contentItem: ListView {
            id: list

            clip: true
            implicitHeight: contentHeight
            model: root.popup.visible ? root.delegateModel : null
            currentIndex: root.highlightedIndex
            boundsBehavior: Flickable.StopAtBounds
        }

        background: Rectangle {
            radius: Theme.radiusButton
            color: Theme.surface2
            border.width: Theme.hairline
            border.color: Theme.stroke
        }
    }
}
