// SPDX-License-Identifier: Apache-2.0
#include "RestorePlan.h"

#include <string_view>

#include "ConfigOrder.h"
#include "EditableKeys.h"
#include "EditorRules.h"
#include "SettingKeys.h"

namespace Settings {
namespace {

std::vector<std::string_view> restoredKeys(bool network)
{
    std::vector<std::string_view> keys;
    for (const auto& entry : kEditableKeys) {
        if (network || !entry.network())
            keys.push_back(entry.key);
    }
    return keys;
}

}  // namespace

std::vector<RestoreItem> planRestore(const Backup& backup, std::span<const LiveUnit> live, bool includeNetwork)
{
    const auto keys = restoredKeys(includeNetwork);
    const auto allKeys = restoredKeys(true);
    std::vector<RestoreItem> plan;
    plan.reserve(backup.units.size());
    std::vector<bool> targeted(live.size(), false);
    for (std::size_t i = 0; i < backup.units.size(); ++i) {
        const BackupUnit& unit = backup.units[i];
        RestoreItem item;
        item.fileUnit = i;
        item.match = matchUnit(unit, live);
        if (item.match.live) {
            const LiveUnit& target = live[*item.match.live];
            item.liveAddress = target.address;
            item.changes = differingKeys(unit.config, target.config, keys);
            item.heldBack = differingKeys(unit.config, target.config, allKeys);
            for (const auto& [key, value] : item.changes)
                item.heldBack.erase(key);
            item.sharesTarget = targeted[*item.match.live];
            targeted[*item.match.live] = true;
        }
        plan.push_back(std::move(item));
    }
    return plan;
}

std::vector<std::string> differenceLines(const Vorn::Config& changes, const Vorn::Config& live)
{
    std::vector<std::string> lines;
    lines.reserve(changes.size());
    for (const auto& [key, value] : inDisplayOrder(changes))
        lines.push_back(key + ": " + EditorRules::liveText(live, key) + " \u2192 " + value);
    return lines;
}

}  // namespace Settings
