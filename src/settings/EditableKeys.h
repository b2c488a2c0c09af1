// SPDX-License-Identifier: Apache-2.0
// The keys a user may change, with how each is written and what it may hold:
// the vocabulary shared by the window's editor, the command line and restore.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "SettingKeys.h"
#include "SwitcherCatalog.h"

namespace Settings {

enum class ValueKind {
    Text,     // free text, sent as typed
    Integer,  // decimal integer within [minimum, maximum]
    Switch,   // "1" on, "0" off
    Address,  // dotted quad (Ipv4)
    AddressOrEmpty,  // dotted quad, or empty for none
};

struct EditableKey {
    std::string_view key;
    ValueKind kind;
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
};

inline constexpr std::int64_t kAnyInteger = std::numeric_limits<std::int64_t>::max();

// Integer defaults the editor falls back to: the first switcher preset's family,
// so a unit that reports no switcher shows that preset.
inline constexpr std::int64_t kBandDefault = SwitcherCatalog::presets.front().band;
inline constexpr std::int64_t kSceneDefault = 1;
// The range of the two type steppers.
inline constexpr std::int64_t kTypeMinimum = 0;
inline constexpr std::int64_t kTypeMaximum = 9;

inline constexpr std::string_view kSwitchOn = "1";
inline constexpr std::string_view kSwitchOff = "0";

// In the order of the editor's key table; the three network keys last.
inline constexpr std::array<EditableKey, 15> kEditableKeys = {{
    {SettingKeys::kAtemIp, ValueKind::AddressOrEmpty},
    {SettingKeys::kAtemPort, ValueKind::Text},
    {SettingKeys::kChannel, ValueKind::Text},
    {SettingKeys::kSwitcherBand, ValueKind::Integer, -kAnyInteger - 1, kAnyInteger},
    {SettingKeys::kSwitcherModel, ValueKind::Integer, -kAnyInteger - 1, kAnyInteger},
    {SettingKeys::kAtemExtTally, ValueKind::Integer, 0, 3},
    {SettingKeys::kTallyType, ValueKind::Integer, kTypeMinimum, kTypeMaximum},
    {SettingKeys::kTallyGpioType, ValueKind::Integer, kTypeMinimum, kTypeMaximum},
    {SettingKeys::kScenarioType, ValueKind::Integer, 0, 4},
    {SettingKeys::kSilenceSuppress, ValueKind::Integer, 0, 5},
    {SettingKeys::kWire2Enable, ValueKind::Switch, 0, 0},
    {SettingKeys::kCallMagic, ValueKind::Text},
    {SettingKeys::kIPAddress, ValueKind::Address},
    {SettingKeys::kNetmask, ValueKind::Address},
    {SettingKeys::kGateway, ValueKind::Address},
}};

// The entry of `key`, or null when it is not editable.
const EditableKey* findEditableKey(std::string_view key);

// Whether `value` has the shape an address key asks for (true for every
// other kind): what the editor's "invalid IPv4" and the write check share.
bool fitsAddressRule(const EditableKey& entry, std::string_view value);

// Why `value` cannot be set for `key` by the editor's rules (unknown key,
// integer malformed or out of range, not a switch value, not an address,
// a control character), or nothing when it can.
std::optional<std::string> settingRefusal(std::string_view key, std::string_view value);

// The form in which a checked value is written, as the editor writes it:
// integers as plain decimal text, everything else as given.
std::string canonicalValue(std::string_view key, std::string_view value);

}  // namespace Settings
