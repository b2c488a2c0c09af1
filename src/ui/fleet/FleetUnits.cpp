// SPDX-License-Identifier: Apache-2.0
#include "FleetUnits.h"

std::vector<Settings::LiveUnit> liveUnitsOf(const VornClient& client)
{
    std::vector<Settings::LiveUnit> units;
    units.reserve(client.devices().size());
    for (const Device& device : client.devices())
        units.push_back({device.ip, device.config});
    return units;
}

Settings::Backup backupOf(const VornClient& client)
{
    Settings::Backup backup{Settings::utcTimestamp(client.clock()->now()), {}};
    backup.units.reserve(client.devices().size());
    for (const Device& device : client.devices())
        backup.units.push_back(Settings::backupUnitOf(device.ip, device.config));
    return backup;
}
