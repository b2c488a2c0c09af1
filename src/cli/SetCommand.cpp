// SPDX-License-Identifier: Apache-2.0
// vornctl set: KEY=VALUE pairs checked by the editor's rules, written as the
// window's save writes them, and verified against the unit's next report.
#include "Commands.h"
#include "EditableKeys.h"
#include "ExitCodes.h"
#include "VerifiedWrite.h"

namespace VornCtl {

std::variant<SetRequest, std::string> parseSetRequest(const std::string& address,
                                                      const std::vector<std::string>& pairs, bool yes)
{
    SetRequest request{address, {}};
    for (const auto& pair : pairs) {
        const auto equals = pair.find('=');
        if (equals == std::string::npos || equals == 0)
            return "'" + pair + "' is not KEY=VALUE";
        const std::string key = pair.substr(0, equals);
        const std::string value = pair.substr(equals + 1);
        if (auto refused = Settings::settingRefusal(key, value))
            return *refused;
        if (Settings::findEditableKey(key)->network() && !yes)
            return key + " changes how the unit is reached; add --yes to write it";
        if (!request.changes.emplace(key, Settings::canonicalValue(key, value)).second)
            return key + " is given twice";
    }
    return request;
}

int runSet(Context& context, const SetRequest& request)
{
    const auto live = context.link.query(request.address, context.timeout);
    if (!live) {
        context.err << "vornctl: " << request.address << " did not answer\n";
        return kExitNoAnswer;
    }
    context.site.heard({*live});
    context.err << "vornctl: writing " << request.changes.size() << " key(s) to " << request.address << '\n'
                << std::flush;
    const auto result = writeAndVerify(context.link, context.site, *live, request.changes, context.timeout);
    if (result.refused) {
        context.err << "vornctl: not written: " << *result.refused << '\n';
        return result.exitCode;
    }
    if (result.exitCode == kExitNoAnswer)
        context.err << "vornctl: no reply after the write\n";
    printOutcome(context.out, result);
    context.out << std::flush;
    return result.exitCode;
}

}  // namespace VornCtl
