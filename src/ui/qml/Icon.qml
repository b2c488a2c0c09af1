// SPDX-License-Identifier: Apache-2.0
// One glyph of the icon font at a size in points of the symbol it stands for.
// The font draws a glyph within the inner 20 of its 24-unit square, so the
// pixel size is a fifth larger than the symbol's point size.
import QtQuick

Text {
    id: root

    required property string glyph
    property real points: Theme.iconBody

    text: root.glyph
    textFormat: Text.PlainText
    font.family: Glyphs.family
    font.pixelSize: Math.round(root.points * 1.2)
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    // A private-use character of the icon font means nothing read aloud.
    Accessible.ignored: true
}
