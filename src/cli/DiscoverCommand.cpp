// SPDX-License-Identifier: Apache-2.0
// vornctl discover: every unit that answers broadcasts within the timeout, or
// every unit of the --range blocks that answers a unicast discover.
#include <nlohmann/json.hpp>

#include "Commands.h"
#include "ExitCodes.h"
#include "UnitReport.h"

namespace VornCtl {

int runDiscover(Context& context, const std::vector<std::string>& scanned, std::optional<int> expect, bool json)
{
    if (scanned.empty())
        context.err << "vornctl: discovering for " << context.timeout.count() / 1000.0 << " s\n" << std::flush;
    else
        context.err << "vornctl: asking " << scanned.size() << " address(es)\n" << std::flush;
    std::vector<Sighting> units;
    auto heard = scanned.empty() ? context.link.discoverAll(context.timeout) : context.link.scan(scanned, context.timeout);
    for (auto& [address, unit] : heard)
        units.push_back(std::move(unit));
    units = sortedByAddress(std::move(units));
    context.site.heard(units);

    if (json) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const auto& unit : units)
            list.push_back(unitJson(unit));
        context.out << list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    } else {
        for (const auto& unit : units)
            context.out << unitLine(unit) << '\n';
    }
    context.out << std::flush;
    context.err << "vornctl: " << units.size() << " unit(s) answered\n";
    if (expect && static_cast<int>(units.size()) < *expect) {
        context.err << "vornctl: expected at least " << *expect << " unit(s)\n";
        return kExitTooFew;
    }
    return kExitOk;
}

}  // namespace VornCtl
