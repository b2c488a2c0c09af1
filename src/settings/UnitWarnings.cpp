// SPDX-License-Identifier: Apache-2.0
#include "UnitWarnings.h"

#include "EditableKeys.h"

namespace Settings {

std::vector<std::string> unitWarnings(const Vorn::Config& config)
{
    std::vector<std::string> warnings;
    for (const auto& entry : kEditableKeys) {
        const auto found = config.find(entry.key);
        if (found == config.end())
            continue;
        if (auto refused = settingRefusal(entry.key, found->second))
            warnings.push_back(std::move(*refused));
    }
    return warnings;
}

}  // namespace Settings
