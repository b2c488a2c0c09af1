// SPDX-License-Identifier: Apache-2.0
#include "FleetValues.h"

#include "ConfigOrder.h"
#include "EditorRules.h"

namespace Settings {

FleetValues fleetValues(std::span<const Vorn::Config> units, std::span<const std::string_view> keys)
{
    FleetValues values;
    for (const auto key : keys) {
        const std::string first = units.empty() ? std::string() : EditorRules::liveText(units.front(), key);
        bool equal = true;
        for (const auto& unit : units.subspan(units.empty() ? 0 : 1)) {
            if (EditorRules::liveText(unit, key) != first) {
                equal = false;
                break;
            }
        }
        if (equal)
            values.equal.insert_or_assign(key, first);
        else
            values.mixed.emplace_back(key);
    }
    return values;
}

Vorn::Config batchChanges(const Vorn::Config& touched, const Vorn::Config& live)
{
    std::vector<std::string_view> keys;
    keys.reserve(touched.size());
    for (const auto& entry : touched)
        keys.push_back(entry.first);
    return differingKeys(touched, live, keys);
}

Vorn::Config overlay(const Vorn::Config& live, const Vorn::Config& changes)
{
    Vorn::Config full = live;
    for (const auto& [key, value] : changes)
        full.insert_or_assign(key, value);
    return full;
}

}  // namespace Settings
