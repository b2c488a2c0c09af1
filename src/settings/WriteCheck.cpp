// SPDX-License-Identifier: Apache-2.0
#include "WriteCheck.h"

#include <algorithm>

namespace Settings {

std::vector<KeyCheck> checkWrite(const Vorn::Config& written, const std::optional<Vorn::Config>& reply)
{
    std::vector<KeyCheck> checks;
    checks.reserve(written.size());
    for (const auto& [key, value] : written) {
        KeyCheck check{key, value, KeyOutcome::NoReply, std::nullopt};
        if (reply) {
            const auto reported = reply->find(key);
            if (reported != reply->end())
                check.reported = reported->second;
            check.outcome = check.reported == value ? KeyOutcome::Confirmed : KeyOutcome::ReportsOther;
        }
        checks.push_back(std::move(check));
    }
    return checks;
}

bool allConfirmed(const std::vector<KeyCheck>& checks)
{
    return std::all_of(checks.begin(), checks.end(),
                       [](const KeyCheck& check) { return check.outcome == KeyOutcome::Confirmed; });
}

std::string describeCheck(const KeyCheck& check)
{
    const std::string start = check.key + ": wrote " + check.written + ", ";
    switch (check.outcome) {
    case KeyOutcome::Confirmed:
        return check.key + ": confirmed";
    case KeyOutcome::ReportsOther:
        return start + (check.reported ? "unit reports " + *check.reported : std::string("unit reports no value"));
    case KeyOutcome::NoReply:
        break;
    }
    return start + "no reply";
}

}  // namespace Settings
