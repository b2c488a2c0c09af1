// SPDX-License-Identifier: Apache-2.0
#include "BackupMatch.h"

#include "SettingKeys.h"

namespace Settings {
namespace {

bool reportsSerial(const LiveUnit& live, const std::string& serial)
{
    return reportedSerial(live.config) == serial;
}

}  // namespace

std::string reportedSerial(const Vorn::Config& config)
{
    const auto found = config.find(SettingKeys::kSerial);
    return found != config.end() ? found->second : std::string();
}

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
        if (live[i].address != unit.address)
            continue;
        const bool another = !unit.serial.empty() && !reportedSerial(live[i].config).empty();
        return {another ? MatchedBy::OtherSerial : MatchedBy::Address, i};
    }
    return {};
}

}  // namespace Settings
