// SPDX-License-Identifier: Apache-2.0
// The row of a picker's value, and the switcher picker's entries for the
// values being edited.
#pragma once

#include <cstdint>

#include <QString>
#include <QVariantList>

namespace EditorOptions {

// The row of `value` in a picker of `count` entries, or -1 when no entry holds it.
int optionIndex(std::int64_t value, qsizetype count);

// The twelve presets as {label, tag "band.model"}, then, only when the
// current tag matches none of them, one entry for the current values.
QVariantList switcherEntries(std::int64_t band, std::int64_t model);
// The row of the current values in switcherEntries(); never -1.
int switcherIndex(std::int64_t band, std::int64_t model);

}  // namespace EditorOptions
