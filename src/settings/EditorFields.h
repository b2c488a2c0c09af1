// SPDX-License-Identifier: Apache-2.0
// The values the editor holds while the user edits one unit, one member per
// editable key, and the defaults a fresh editor starts from.
#pragma once

#include <cstdint>
#include <string>

#include "SwitcherCatalog.h"

namespace Settings {

// Integer defaults the editor falls back to: the first switcher preset's family,
// so a unit that reports no switcher shows that preset.
inline constexpr std::int64_t kBandDefault = SwitcherCatalog::presets.front().band;
inline constexpr std::int64_t kSceneDefault = 1;
// The range of the two type steppers.
inline constexpr std::int64_t kTypeMinimum = 0;
inline constexpr std::int64_t kTypeMaximum = 9;

}  // namespace Settings

// What the user edits. The initial values are those of a fresh editor.
struct EditorFields {
    std::string atemIp;
    std::string atemPort;
    std::string channel;
    std::int64_t band = Settings::kBandDefault;
    std::int64_t model = 0;
    std::int64_t extTally = 0;
    std::int64_t tallyType = 0;
    std::int64_t gpioType = 0;
    std::string ipAddr;
    std::string netmask;
    std::string gateway;
    std::int64_t scene = Settings::kSceneDefault;
    std::int64_t suppress = 0;
    bool wire2 = false;
    std::string password;

    bool operator==(const EditorFields&) const = default;
};
