// SPDX-License-Identifier: Apache-2.0
// vornctl restore: each unit of a backup file matched to a live unit by its
// serial, else by its address (never onto another serial unless allowed);
// the editable keys that differ are written and verified (the network keys
// only when asked for).
#include <vector>

#include "Commands.h"
#include "ExitCodes.h"
#include "RestorePlan.h"
#include "VerifiedWrite.h"

namespace VornCtl {
namespace {

std::string unitName(const Settings::BackupUnit& unit)
{
    return unit.serial.empty() ? unit.address : unit.address + " (serial " + unit.serial + ")";
}

// "  Key: live → backup" for each key in `changes`, in write key table order.
void printDifferences(std::ostream& out, const Vorn::Config& changes, const Vorn::Config& live,
                      std::string_view note = {})
{
    for (const auto& line : Settings::differenceLines(changes, live))
        out << "  " << line << note << '\n';
}

}  // namespace

int runRestore(Context& context, const Settings::Backup& backup, const RestoreOptions& options)
{
    context.err << "vornctl: looking for " << backup.units.size() << " unit(s) for "
                << context.timeout.count() / 1000.0 << " s\n"
                << std::flush;
    const auto sightings = context.link.discoverAll(context.timeout);
    std::vector<Settings::LiveUnit> live;
    std::vector<Sighting> heard;
    live.reserve(sightings.size());
    for (const auto& [address, sighting] : sightings) {
        live.push_back({address, sighting.config});
        heard.push_back(sighting);
    }
    context.site.heard(heard);
    bool missing = false;
    bool unconfirmed = false;
    for (const auto& item : Settings::planRestore(backup, live, options.network)) {
        const Settings::BackupUnit& unit = backup.units[item.fileUnit];
        if (!item.match.live) {
            context.out << unitName(unit) << ": did not answer\n";
            missing = true;
            continue;
        }
        const Sighting& found = sightings.at(item.liveAddress);
        const bool otherUnit = item.match.by == Settings::MatchedBy::OtherSerial;
        std::string place = found.address == unit.address ? std::string() : " now at " + found.address;
        if (otherUnit)
            place = ": another unit answers at " + found.address + " (serial "
                + Settings::reportedSerial(found.config) + ");";
        context.out << unitName(unit) << place << (otherUnit ? " " : ": ")
                    << (item.changes.empty() ? std::string("equal")
                                             : std::to_string(item.changes.size()) + " key(s) differ")
                    << '\n';
        printDifferences(context.out, item.changes, found.config);
        printDifferences(context.out, item.heldBack, found.config, " (network: needs --network --yes)");
        if (otherUnit && !options.allowOtherSerial && !item.changes.empty()) {
            context.out << "  not restored: another unit; add --allow-other-serial to restore onto it\n";
            missing = true;
            continue;
        }
        if (item.changes.empty() || options.dryRun)
            continue;
        const auto result = writeAndVerify(context.link, context.site, found, item.changes, context.timeout);
        printOutcome(context.out, result, "  ");
        missing = missing || result.exitCode == kExitNoAnswer;
        unconfirmed = unconfirmed || result.exitCode == kExitNotConfirmed || result.exitCode == kExitFailure;
    }
    context.out << std::flush;
    if (missing)
        return kExitNoAnswer;
    return unconfirmed ? kExitNotConfirmed : kExitOk;
}

}  // namespace VornCtl
