// SPDX-License-Identifier: Apache-2.0
// vornctl backup: the configurations of the answering (or listed) units in
// one backup file.
#include <chrono>

#include "Commands.h"
#include "ExitCodes.h"
#include "UnitReport.h"
#include "ValueSafety.h"

namespace VornCtl {
namespace {

std::vector<Sighting> gather(Context& context, const std::vector<std::string>& addresses, bool& allAnswered)
{
    std::vector<Sighting> units;
    allAnswered = true;
    if (addresses.empty()) {
        for (auto& [address, unit] : context.link.discoverAll(context.timeout))
            units.push_back(std::move(unit));
        return sortedByAddress(std::move(units));
    }
    for (const auto& address : addresses) {
        if (auto unit = context.link.query(address, context.timeout)) {
            units.push_back(std::move(*unit));
        } else {
            context.err << "vornctl: " << address << " did not answer\n";
            allAnswered = false;
        }
    }
    return units;
}

}  // namespace

int runBackup(Context& context, const std::vector<std::string>& addresses, const std::string& outputPath)
{
    bool allAnswered = true;
    const auto units = gather(context, addresses, allAnswered);
    context.site.heard(units);
    // A file without every unit asked for would pass for a backup: none is written.
    if (!allAnswered || units.empty()) {
        context.err << "vornctl: " << (units.empty() ? "no unit answered" : "not every unit answered")
                    << "; nothing written\n";
        return kExitNoAnswer;
    }
    Settings::Backup backup{Settings::utcTimestamp(std::chrono::system_clock::now()), {}};
    for (const auto& unit : units) {
        // Kept as reported; a restore refuses such a file, so say so now.
        if (auto refused = Settings::configRefusal(unit.config))
            context.err << "vornctl: warning: " << unit.address << ": " << Settings::english(*refused) << '\n';
        backup.units.push_back(Settings::backupUnitOf(unit.address, unit.config));
    }
    if (outputPath.empty()) {
        context.out << Settings::writeBackup(backup) << std::flush;
    } else if (!Settings::writeBackupFile(outputPath, backup)) {
        context.err << "vornctl: cannot write " << outputPath << '\n';
        return kExitFailure;
    }
    context.err << "vornctl: " << backup.units.size() << " unit(s) backed up\n";
    return kExitOk;
}

}  // namespace VornCtl
