// SPDX-License-Identifier: Apache-2.0
#include "SwitcherCatalog.h"

namespace SwitcherCatalog {

std::string label(std::int64_t band, std::int64_t model)
{
    for (const auto& preset : presets) {
        if (preset.band == band && preset.model == model)
            return std::string(preset.label);
    }
    // Every model of the ATEM family is an ATEM.
    if (band == presets.front().band)
        return std::string(presets.front().label);
    return "Band " + std::to_string(band) + " / Model " + std::to_string(model);
}

}  // namespace SwitcherCatalog
