// SPDX-License-Identifier: Apache-2.0
// What restoring a backup file would write: per unit of the file, the live
// unit it matched and the editable keys whose backup value differs from the
// live one. Network keys are held back unless the user includes them.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "BackupFile.h"
#include "BackupMatch.h"
#include "VornConfig.h"

namespace Settings {

struct RestoreItem {
    std::size_t fileUnit = 0;  // index into the backup's units
    UnitMatch match;
    std::string liveAddress;   // where the matched unit answers now, else empty
    Vorn::Config changes;      // the differing keys to write, backup values
    Vorn::Config heldBack;     // differing network keys left out
    // An earlier unit of the file matched the same live unit (a serial or
    // address listed twice): writing both would let the last one win.
    bool sharesTarget = false;

    bool operator==(const RestoreItem&) const = default;
};

// One item per unit of the file, in file order.
std::vector<RestoreItem> planRestore(const Backup& backup, std::span<const LiveUnit> live, bool includeNetwork);

// "Key: live → backup" for each key of `changes` in display order; a key
// the unit does not report shows as the empty text.
std::vector<std::string> differenceLines(const Vorn::Config& changes, const Vorn::Config& live);

}  // namespace Settings
