// SPDX-License-Identifier: Apache-2.0
// The hint of a header button (its name and shortcut), shown after the
// tooltip delay while the pointer rests on the button. It sits left of the
// button, level with it: under the header's buttons are the unsaved-changes
// mark, the verdict of a save and the warnings, which no hint may cover.
import QtQuick
import QtQuick.Controls.Basic

ToolTip {
    id: root

    required property Button button

    parent: root.button
    x: -root.width - Theme.gapSmall
    y: (root.button.height - root.height) / 2
    visible: root.button.hovered
    delay: Theme.toolTipDelay
}
