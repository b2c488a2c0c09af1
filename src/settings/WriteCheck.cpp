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

Message describeCheck(const KeyCheck& check)
{
    const Message key = Message::plain(check.key);
    const Message written = Message::plain(check.written);
    switch (check.outcome) {
    case KeyOutcome::Confirmed:
        return Message(SETTINGS_TEXT("WriteCheck", "%1: confirmed"), {key});
    case KeyOutcome::ReportsOther:
        if (check.reported)
            return Message(SETTINGS_TEXT("WriteCheck", "%1: wrote %2, unit reports %3"),
                           {key, written, Message::plain(*check.reported)});
        return Message(SETTINGS_TEXT("WriteCheck", "%1: wrote %2, unit reports no value"), {key, written});
    case KeyOutcome::NoReply:
        break;
    }
    return Message(SETTINGS_TEXT("WriteCheck", "%1: wrote %2, no reply"), {key, written});
}

}  // namespace Settings
