// SPDX-License-Identifier: Apache-2.0
// Names of the video switchers a base station can follow, keyed by the unit's
// own (band, model) codes, and the presets offered by the switcher picker.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "Message.h"

namespace SwitcherCatalog {

struct SwitcherPreset {
    std::string_view label;
    std::int64_t band;
    std::int64_t model;

    bool operator==(const SwitcherPreset&) const = default;
};

// The one preset named in words rather than by product: the window translates it.
inline constexpr Settings::MessageText kOtherLabel = SETTINGS_TEXT("SwitcherCatalog", "Other");

inline constexpr std::array<SwitcherPreset, 12> presets = {{
    {"Blackmagic ATEM", 7, 0},
    {"Datavideo HS-1200", 1, 0},
    {"Datavideo SE-2200", 1, 15},
    {"Panasonic AV-HS410", 2, 1},
    {"Panasonic KAIROS", 2, 10},
    {"Sony MCX-500", 3, 1},
    {"Roland V-60HD", 5, 1},
    {"Roland V-160HD", 5, 9},
    {"NewTek TriCaster TC1", 6, 2},
    {"DeviceWell HDS7105", 9, 2},
    {"vMix", 16, 0},
    {kOtherLabel.text, 0, 0},
}};

// The preset's name as a message: product names as they are, "Other" translatable.
Settings::Message presetLabel(const SwitcherPreset& preset);

// The preset's name; any model of band 7 is an ATEM; otherwise "Band B / Model M".
Settings::Message label(std::int64_t band, std::int64_t model);

}  // namespace SwitcherCatalog
