// SPDX-License-Identifier: Apache-2.0
#include "VerifiedWrite.h"

#include <thread>

#include "ExitCodes.h"
#include "FleetValues.h"
#include "Ipv4.h"
#include "SettingKeys.h"
#include "ValueSafety.h"

namespace VornCtl {
namespace {

// Where the unit answers after the write: its new address when one was written.
std::string addressAfter(const Sighting& live, const Vorn::Config& changes)
{
    const auto moved = changes.find(SettingKeys::kIPAddress);
    if (moved != changes.end()) {
        if (auto address = Settings::canonicalIpv4(moved->second))
            return *address;
    }
    return live.address;
}

}  // namespace

WriteResult writeAndVerify(UnitLink& link, SiteRecording& site, const Sighting& live, const Vorn::Config& changes,
                           std::chrono::milliseconds timeout)
{
    const Vorn::Config full = Settings::overlay(live.config, changes);
    WriteResult result;
    if (auto refused = Settings::writeRefusal(changes, full)) {
        result.refused = Settings::english(*refused);
        result.exitCode = kExitFailure;
        return result;
    }
    const auto sentAt = Site::Clock::now();
    link.write(live.address, full);
    std::this_thread::sleep_for(kRequeryDelay);
    const auto reply = link.query(addressAfter(live, changes), timeout);
    result.checks = Settings::checkWrite(changes, reply ? std::optional(reply->config) : std::nullopt);
    site.wrote(live, changes, sentAt, result.checks, reply);
    if (!reply)
        result.exitCode = kExitNoAnswer;
    else if (!Settings::allConfirmed(result.checks))
        result.exitCode = kExitNotConfirmed;
    return result;
}

void printOutcome(std::ostream& out, const WriteResult& result, const std::string& indent)
{
    if (result.refused) {
        out << indent << "not written: " << *result.refused << '\n';
        return;
    }
    if (Settings::allConfirmed(result.checks)) {
        out << indent << "verified\n";
        return;
    }
    for (const auto& check : result.checks) {
        if (check.outcome != Settings::KeyOutcome::Confirmed)
            out << indent << Settings::english(Settings::describeCheck(check)) << '\n';
    }
}

}  // namespace VornCtl
