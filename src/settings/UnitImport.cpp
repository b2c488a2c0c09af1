// SPDX-License-Identifier: Apache-2.0
#include "UnitImport.h"

#include <algorithm>

#include "ConfigOrder.h"
#include "EditableKeys.h"
#include "SettingKeys.h"

namespace Settings {

std::optional<ImportChoice> unitToImport(const Backup& backup, std::string_view serial)
{
    if (!serial.empty()) {
        const auto same = std::find_if(backup.units.begin(), backup.units.end(),
                                       [&](const BackupUnit& unit) { return unit.serial == serial; });
        if (same != backup.units.end())
            return ImportChoice{*same, false};
    }
    if (backup.units.size() != 1)
        return std::nullopt;
    const BackupUnit& only = backup.units.front();
    return ImportChoice{only, !only.serial.empty() && !serial.empty()};
}

std::vector<std::string> keysNotImported(const Vorn::Config& config)
{
    std::vector<std::string> keys;
    for (const auto& [key, value] : inDisplayOrder(config)) {
        if (!findEditableKey(key) && key != SettingKeys::kSerial && key != SettingKeys::kVersion)
            keys.push_back(key);
    }
    return keys;
}

}  // namespace Settings
