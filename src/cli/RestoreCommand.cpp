// vornctl restore: each unit of a backup file matched to a live unit by its
// serial, else by its address; the editable keys that differ are written and
// verified (the network keys only when asked for).
#include <algorithm>
#include <vector>

#include "Commands.h"
#include "ConfigOrder.h"
#include "EditableKeys.h"
#include "EditorRules.h"
#include "ExitCodes.h"
#include "SettingKeys.h"
#include "VerifiedWrite.h"

namespace VornCtl {
namespace {

const Sighting* match(const std::map<std::string, Sighting>& live, const Settings::BackupUnit& unit)
{
    if (!unit.serial.empty()) {
        for (const auto& [address, sighting] : live) {
            const auto serial = sighting.config.find(SettingKeys::kSerial);
            if (serial != sighting.config.end() && serial->second == unit.serial)
                return &sighting;
        }
    }
    const auto byAddress = live.find(unit.address);
    return byAddress != live.end() ? &byAddress->second : nullptr;
}

std::vector<std::string_view> restoredKeys(bool network)
{
    std::vector<std::string_view> keys;
    for (const auto& entry : Settings::kEditableKeys) {
        if (network || !SettingKeys::isNetworkKey(entry.key))
            keys.push_back(entry.key);
    }
    return keys;
}

std::string unitName(const Settings::BackupUnit& unit)
{
    return unit.serial.empty() ? unit.address : unit.address + " (serial " + unit.serial + ")";
}

// "  Key: live → backup" for each key in `changes`, in write key table order.
void printDifferences(std::ostream& out, const Vorn::Config& changes, const Vorn::Config& live,
                      std::string_view note = {})
{
    for (const auto& [key, value] : Settings::inDisplayOrder(changes))
        out << "  " << key << ": " << EditorRules::liveText(live, key) << " \u2192 " << value << note << '\n';
}

}  // namespace

int runRestore(Context& context, const Settings::Backup& backup, const RestoreOptions& options)
{
    context.err << "vornctl: looking for " << backup.units.size() << " unit(s) for "
                << context.timeout.count() / 1000.0 << " s\n"
                << std::flush;
    const auto live = context.link.discoverAll(context.timeout);
    const auto keys = restoredKeys(options.network);
    const auto allKeys = restoredKeys(true);
    bool missing = false;
    bool unconfirmed = false;
    for (const auto& unit : backup.units) {
        const Sighting* found = match(live, unit);
        if (!found) {
            context.out << unitName(unit) << ": did not answer\n";
            missing = true;
            continue;
        }
        const Vorn::Config changes = Settings::differingKeys(unit.config, found->config, keys);
        Vorn::Config skipped = Settings::differingKeys(unit.config, found->config, allKeys);
        for (const auto& [key, value] : changes)
            skipped.erase(key);
        const std::string place = found->address == unit.address ? std::string() : " now at " + found->address;
        context.out << unitName(unit) << place << ": "
                    << (changes.empty() ? std::string("equal") : std::to_string(changes.size()) + " key(s) differ")
                    << '\n';
        printDifferences(context.out, changes, found->config);
        printDifferences(context.out, skipped, found->config, " (network: needs --network --yes)");
        if (changes.empty() || options.dryRun)
            continue;
        const auto result = writeAndVerify(context.link, *found, changes, context.timeout);
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
