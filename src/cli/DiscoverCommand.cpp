// SPDX-License-Identifier: Apache-2.0
// vornctl discover: every unit that answers broadcasts within the timeout.
#include <nlohmann/json.hpp>

#include "Commands.h"
#include "ExitCodes.h"
#include "UnitReport.h"

namespace VornCtl {

int runDiscover(Context& context, std::optional<int> expect, bool json)
{
    context.err << "vornctl: discovering for " << context.timeout.count() / 1000.0 << " s\n" << std::flush;
    std::vector<Sighting> units;
    for (auto& [address, unit] : context.link.discoverAll(context.timeout))
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
