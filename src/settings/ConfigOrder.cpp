// SPDX-License-Identifier: Apache-2.0
#include "ConfigOrder.h"

#include <algorithm>

#include "EditorRules.h"
#include "SettingKeys.h"

namespace Settings {

std::vector<std::pair<std::string, std::string>> inDisplayOrder(const Vorn::Config& config)
{
    std::vector<std::pair<std::string, std::string>> entries;
    entries.reserve(config.size());
    for (const auto key : SettingKeys::kWriteKeys) {
        if (const auto found = config.find(key); found != config.end())
            entries.push_back(*found);
    }
    for (const auto& entry : config) {
        const auto& writeKeys = SettingKeys::kWriteKeys;
        if (std::find(writeKeys.begin(), writeKeys.end(), entry.first) == writeKeys.end())
            entries.push_back(entry);
    }
    return entries;
}

Vorn::Config differingKeys(const Vorn::Config& wanted, const Vorn::Config& live,
                           std::span<const std::string_view> keys)
{
    Vorn::Config changes;
    for (const auto key : keys) {
        const auto found = wanted.find(key);
        if (found != wanted.end() && found->second != EditorRules::liveText(live, key))
            changes.emplace(std::string(key), found->second);
    }
    return changes;
}

}  // namespace Settings
