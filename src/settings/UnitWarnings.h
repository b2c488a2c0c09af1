// SPDX-License-Identifier: Apache-2.0
// What looks wrong in a unit's reported configuration by the editor's rules:
// a value the editor could not show as reported, or could never write back.
#pragma once

#include <string>
#include <vector>

#include "VornConfig.h"

namespace Settings {

// One sentence per problem, in the order of the editable-key table, e.g.
// "TallyType \"12\" is outside 0–9".
std::vector<std::string> unitWarnings(const Vorn::Config& config);

}  // namespace Settings
