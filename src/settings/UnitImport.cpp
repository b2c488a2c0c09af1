// SPDX-License-Identifier: Apache-2.0
#include "UnitImport.h"

#include <algorithm>

namespace Settings {

std::optional<BackupUnit> unitToImport(const Backup& backup, std::string_view serial)
{
    if (!serial.empty()) {
        const auto same = std::find_if(backup.units.begin(), backup.units.end(),
                                       [&](const BackupUnit& unit) { return unit.serial == serial; });
        if (same != backup.units.end())
            return *same;
    }
    if (backup.units.size() == 1)
        return backup.units.front();
    return std::nullopt;
}

}  // namespace Settings
