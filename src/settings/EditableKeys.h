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
#include <variant>

#include "EditorFields.h"
#include "SettingKeys.h"

namespace Settings {

enum class ValueKind {
    Text,     // free text, sent as typed
    Integer,  // decimal integer within [minimum, maximum]
    Switch,   // "1" on, "0" off
    Address,  // dotted quad (Ipv4)
    AddressOrEmpty,  // dotted quad, or empty for none
};

// The editor tab a key is edited on. Network keys change how the unit is
// reached: written only on purpose, never by a plain save.
enum class Section { Tally, Communication, Network };

// Where the editor keeps the key's value while the user edits it.
using FieldMember = std::variant<std::string EditorFields::*, std::int64_t EditorFields::*, bool EditorFields::*>;

// One editable key: everything the editor, the command line and restore
// know about it. Loading, comparing, checking and the editor's fields all
// follow from these rows.
struct EditableKey {
    std::string_view key;
    ValueKind kind;
    Section section;
    FieldMember member;
    // The range of an integer key.
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    // The value an integer or switch field takes when the unit does not
    // report the key (or reports an integer that does not parse).
    std::int64_t whenMissing = 0;
    // A level: compared as the integer it parses to ("01" and a missing key
    // holding the default do not differ), not as canonical text.
    bool comparesParsed = false;
    // A secret (the call password). Nothing masks it yet; the row says so
    // for the views that will.
    bool secret = false;

    bool network() const { return section == Section::Network; }
    // Edited as free text (an address, a port, a password): a mixed text
    // field stays empty instead of taking the first unit's value.
    bool holdsText() const { return std::holds_alternative<std::string EditorFields::*>(member); }
};

inline constexpr std::int64_t kAnyInteger = std::numeric_limits<std::int64_t>::max();

inline constexpr std::string_view kSwitchOn = "1";
inline constexpr std::string_view kSwitchOff = "0";

// In the order of the editor's key table; the three network keys last.
// A new editable key takes its row here, its member in EditorFields, its
// EDITOR_FIELD in the section the row names and its control in that
// section's panel; the editor's table test checks the last three.
inline constexpr auto kEditableKeys = std::to_array<EditableKey>({
    {.key = SettingKeys::kAtemIp, .kind = ValueKind::AddressOrEmpty, .section = Section::Tally,
     .member = &EditorFields::atemIp},
    {.key = SettingKeys::kAtemPort, .kind = ValueKind::Text, .section = Section::Tally,
     .member = &EditorFields::atemPort},
    {.key = SettingKeys::kChannel, .kind = ValueKind::Text, .section = Section::Communication,
     .member = &EditorFields::channel},
    {.key = SettingKeys::kSwitcherBand, .kind = ValueKind::Integer, .section = Section::Tally,
     .member = &EditorFields::band, .minimum = -kAnyInteger - 1, .maximum = kAnyInteger, .whenMissing = kBandDefault},
    {.key = SettingKeys::kSwitcherModel, .kind = ValueKind::Integer, .section = Section::Tally,
     .member = &EditorFields::model, .minimum = -kAnyInteger - 1, .maximum = kAnyInteger},
    {.key = SettingKeys::kAtemExtTally, .kind = ValueKind::Integer, .section = Section::Tally,
     .member = &EditorFields::extTally, .minimum = 0, .maximum = 3},
    {.key = SettingKeys::kTallyType, .kind = ValueKind::Integer, .section = Section::Tally,
     .member = &EditorFields::tallyType, .minimum = kTypeMinimum, .maximum = kTypeMaximum},
    {.key = SettingKeys::kTallyGpioType, .kind = ValueKind::Integer, .section = Section::Tally,
     .member = &EditorFields::gpioType, .minimum = kTypeMinimum, .maximum = kTypeMaximum},
    {.key = SettingKeys::kScenarioType, .kind = ValueKind::Integer, .section = Section::Communication,
     .member = &EditorFields::scene, .minimum = 0, .maximum = 4, .whenMissing = kSceneDefault,
     .comparesParsed = true},
    {.key = SettingKeys::kSilenceSuppress, .kind = ValueKind::Integer, .section = Section::Communication,
     .member = &EditorFields::suppress, .minimum = 0, .maximum = 5, .comparesParsed = true},
    {.key = SettingKeys::kWire2Enable, .kind = ValueKind::Switch, .section = Section::Communication,
     .member = &EditorFields::wire2},
    {.key = SettingKeys::kCallMagic, .kind = ValueKind::Text, .section = Section::Communication,
     .member = &EditorFields::password, .secret = true},
    {.key = SettingKeys::kIPAddress, .kind = ValueKind::Address, .section = Section::Network,
     .member = &EditorFields::ipAddr},
    {.key = SettingKeys::kNetmask, .kind = ValueKind::Address, .section = Section::Network,
     .member = &EditorFields::netmask},
    {.key = SettingKeys::kGateway, .kind = ValueKind::Address, .section = Section::Network,
     .member = &EditorFields::gateway},
});

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
