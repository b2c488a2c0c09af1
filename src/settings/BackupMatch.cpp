// SPDX-License-Identifier: Apache-2.0
#include "BackupMatch.h"

#include "SettingKeys.h"

namespace Settings {
namespace {

bool reportsSerial(const LiveUnit& live, const std::string& serial)
{
    const auto found = live.config.find(SettingKeys::kSerial);
    return found != live.config.end() && found->second == serial;
}

}  // namespace

UnitMatch matchUnit(const BackupUnit& unit, std::span<const LiveUnit> live)
{
    if (!unit.serial.empty()) {
        std::optional<std::size_t> first;
        for (std::size_t i = 0; i < live.size(); ++i) {
            if (!reportsSerial(live[i], unit.serial))
                continue;
            if (live[i].address == unit.address)
                return {MatchedBy::Serial, i};
            if (!first)
                first = i;
        }
        if (first)
            return {MatchedBy::Serial, first};
    }
    for (std::size_t i = 0; i < live.size(); ++i) {
        if (live[i].address == unit.address)
            return {MatchedBy::Address, i};
    }
    return {};
}

}  // namespace Settings
