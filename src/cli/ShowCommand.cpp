// SPDX-License-Identifier: Apache-2.0
// vornctl show: one unit's configuration, asked for by unicast.
#include <nlohmann/json.hpp>

#include "Commands.h"
#include "ExitCodes.h"
#include "UnitReport.h"

namespace VornCtl {

int runShow(Context& context, const std::string& address, bool json)
{
    const auto unit = context.link.query(address, context.timeout);
    if (!unit) {
        context.err << "vornctl: " << address << " did not answer\n";
        return kExitNoAnswer;
    }
    context.site.heard({*unit});
    if (json) {
        context.out << unitJson(*unit).dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    } else {
        for (const auto& line : configLines(unit->config))
            context.out << line << '\n';
    }
    context.out << std::flush;
    return kExitOk;
}

}  // namespace VornCtl
