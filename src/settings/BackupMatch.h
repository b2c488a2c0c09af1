// SPDX-License-Identifier: Apache-2.0
// Which live unit a unit of a backup file stands for: the one reporting its
// serial, else the one at its address when that one reports no serial. A
// unit of the file with a serial never matches a unit reporting another
// serial: such a unit at its address is only named, for an explicit choice.
// The window's restore review, its import and vornctl restore go by this rule.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "BackupFile.h"
#include "VornConfig.h"

namespace Settings {

// A unit as it answers now: its address and its last reported configuration.
struct LiveUnit {
    std::string address;
    Vorn::Config config;

    bool operator==(const LiveUnit&) const = default;
};

enum class MatchedBy {
    Serial,       // a live unit reports the file unit's serial
    Address,      // no serial to go by (or nobody reports it): the unit at the file's address
    OtherSerial,  // nobody reports the serial; the unit at the file's address reports another one
    None,         // neither: the unit did not answer
};

struct UnitMatch {
    MatchedBy by = MatchedBy::None;
    std::optional<std::size_t> live;  // index into the live units, when matched

    bool operator==(const UnitMatch&) const = default;
};

// The serial wins over the address: a unit that moved is still found. When
// several live units report the serial (a serial cloned onto two units), the
// one at the file's address is taken if it is among them, else the first in
// the order given. Only a unit matched by serial or by address may be written
// without the user's explicit word.
UnitMatch matchUnit(const BackupUnit& unit, std::span<const LiveUnit> live);

// The unit's Serial, or "" when it reports none.
std::string reportedSerial(const Vorn::Config& config);

}  // namespace Settings
