// SPDX-License-Identifier: Apache-2.0
// vornctl units: every unit the site remembers, and whether it answers now.
#include <algorithm>
#include <set>

#include <nlohmann/json.hpp>

#include "BackupFile.h"
#include "Commands.h"
#include "ExitCodes.h"
#include "UnitReport.h"

namespace VornCtl {
namespace {

bool byAddress(const Site::RememberedUnit& a, const Site::RememberedUnit& b)
{
    return std::tuple_cat(addressOrder(a.address), std::tie(a.key))
        < std::tuple_cat(addressOrder(b.address), std::tie(b.key));
}

}  // namespace

int runUnits(SiteContext& context, UnitLink* link, std::chrono::milliseconds timeout, bool json)
{
    std::set<std::string> online;
    if (link) {
        context.err << "vornctl: discovering for " << timeout.count() / 1000.0 << " s\n" << std::flush;
        std::vector<Sighting> heard;
        for (auto& [address, unit] : link->discoverAll(timeout)) {
            online.insert(Site::unitKey(Site::serialOf(unit.config), unit.address));
            heard.push_back(std::move(unit));
        }
        SiteRecording(&context.store).heard(heard);
    }
    auto units = context.store.units();
    std::sort(units.begin(), units.end(), byAddress);
    auto onlineOf = [&](const Site::RememberedUnit& unit) -> std::optional<bool> {
        if (!link)
            return std::nullopt;
        return online.contains(unit.key);
    };
    if (json) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const auto& unit : units) {
            const auto isOnline = onlineOf(unit);
            list.push_back({{"serial", unit.serial},
                            {"address", unit.address},
                            {"firstSeen", Settings::utcTimestamp(unit.firstSeen)},
                            {"lastSeen", Settings::utcTimestamp(unit.lastSeen)},
                            {"online", isOnline ? nlohmann::ordered_json(*isOnline) : nlohmann::ordered_json()},
                            {"firmware", unit.firmware},
                            {"interface", unit.interface}});
        }
        context.out << list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    } else {
        for (const auto& unit : units) {
            const auto isOnline = onlineOf(unit);
            context.out << unit.address << "  " << orDash(unit.serial) << "  " << orDash(unit.firmware)
                        << "  first seen " << Settings::utcTimestamp(unit.firstSeen) << "  last seen "
                        << Settings::utcTimestamp(unit.lastSeen) << "  "
                        << (isOnline ? (*isOnline ? "online" : "offline") : "online unknown") << '\n';
        }
    }
    context.out << std::flush;
    context.err << "vornctl: " << units.size() << " unit(s) remembered\n";
    return kExitOk;
}

}  // namespace VornCtl
