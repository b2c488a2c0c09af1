// SPDX-License-Identifier: Apache-2.0
// A unit's history from its stored versions and writes: each version with
// what changed against the one before and what caused it.
#pragma once

#include <vector>

#include "SiteTypes.h"

namespace Site {

struct StoredVersion {
    Time seenAt;
    Vorn::Config config;
    std::string address{};  // where the unit was heard
    std::string host{};     // the computer that heard it; empty when not known
};

// `versions` and `writes` oldest first; the result newest first. A version
// is "written" when a write sent no earlier than the version before it (a
// write follows the reply it was made from, maybe within one millisecond) and
// no later than it, sent one of its changed keys with the value it now holds; the
// latest such write is named. Any other change is "outside".
std::vector<HistoryEntry> buildHistory(const std::vector<StoredVersion>& versions,
                                       const std::vector<WriteRecord>& writes);

// The keys whose values differ, write key table order first, then the others.
std::vector<KeyChange> keyChanges(const Vorn::Config& before, const Vorn::Config& after);

}  // namespace Site
