// SPDX-License-Identifier: Apache-2.0
// The fixed lists the editor's pickers and grid are built from, and the
// switcher picker's entries for the values being edited.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <QString>
#include <QStringList>
#include <QVariantList>

namespace EditorOptions {

// Picker texts by stored value: scene levels 0...4, suppression levels 0...5.
QStringList sceneOptions();
QStringList suppressOptions();
// Tally banks 0...3 as the picker shows them: "Cameras 1–12", ...
QStringList tallyBankOptions();

// The row of `value` in a picker of `count` entries, or -1 when no entry holds it.
int optionIndex(std::int64_t value, qsizetype count);

// The twelve presets as {label, tag "band.model"}, then, only when the
// current tag matches none of them, one entry for the current values.
QVariantList switcherEntries(std::int64_t band, std::int64_t model);
// The row of the current values in switcherEntries(); never -1.
int switcherIndex(std::int64_t band, std::int64_t model);

}  // namespace EditorOptions
