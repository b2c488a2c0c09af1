// SPDX-License-Identifier: Apache-2.0
// Several units edited as one: the value a field shows (equal on every unit,
// or mixed) and what each unit is sent when the user changes some fields.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "VornConfig.h"

namespace Settings {

struct FleetValues {
    Vorn::Config equal;              // keys with one value on every unit
    std::vector<std::string> mixed;  // keys whose value differs, in the order asked

    bool operator==(const FleetValues&) const = default;
};

// Each of `keys` across `units`; a key a unit does not report counts as the
// empty text there. No units: every key is equal with the empty text.
FleetValues fleetValues(std::span<const Vorn::Config> units, std::span<const std::string_view> keys);

// What one unit of a batch is sent: the touched keys whose value differs
// from that unit's live value (a key it lacks counts as the empty text).
// Keys the user did not touch are never part of it, even where they are mixed.
Vorn::Config batchChanges(const Vorn::Config& touched, const Vorn::Config& live);

// The configuration a write carries: the unit's last reported one with
// `changes` put over it.
Vorn::Config overlay(const Vorn::Config& live, const Vorn::Config& changes);

}  // namespace Settings
