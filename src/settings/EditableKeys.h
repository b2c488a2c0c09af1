// SPDX-License-Identifier: Apache-2.0
// The keys a user may change, with how each is written and what it may hold:
// the vocabulary shared by the window's editor, the command line and restore.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Message.h"
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

// The editor tab a key is edited on. Network keys change how the unit is
// reached: written only on purpose, never by a plain save.
enum class Section { Tally, Communication, Network };

// Integer defaults the editor falls back to: the first switcher preset's family,
// so a unit that reports no switcher shows that preset.
inline constexpr std::int64_t kBandDefault = SwitcherCatalog::presets.front().band;
inline constexpr std::int64_t kSceneDefault = 1;
// The range of the two type steppers.
inline constexpr std::int64_t kTypeMinimum = 0;
inline constexpr std::int64_t kTypeMaximum = 9;

// One editable key: everything the editor, the command line and restore
// know about it. Loading, comparing, checking and the editor's fields all
// follow from these rows.
struct EditableKey {
    std::string_view key;
    ValueKind kind;
    Section section;
    // The range of an integer key.
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    // The value an integer or switch field takes when the unit does not
    // report the key (or reports an integer that does not parse).
    std::int64_t whenMissing = 0;
    // A level: compared as the integer it parses to ("01" and a missing key
    // holding the default do not differ), not as canonical text.
    bool comparesParsed = false;
    // A secret (the call password): the history hides its values unless asked.
    bool secret = false;
    // An integer picked from a list: the text of each value from 0 up, in
    // order (the range is 0 to the last).
    std::span<const MessageText> options = {};
    // An integer stepped one at a time within its range: the stepper's caption
    // with %1 for the value ("type %1").
    std::optional<MessageText> caption = std::nullopt;

    bool network() const { return section == Section::Network; }
    // Edited as free text (an address, a port, a password): a mixed text
    // field stays empty instead of taking the first unit's value.
    bool holdsText() const
    {
        return kind == ValueKind::Text || kind == ValueKind::Address || kind == ValueKind::AddressOrEmpty;
    }
};

// The texts of the pickers' values, translated by the window in the context "EditorOptions".
inline constexpr std::array<MessageText, 5> kSceneOptions = {{
    SETTINGS_TEXT("EditorOptions", "0 \u00B7 Quiet place (whisper)"),
    SETTINGS_TEXT("EditorOptions", "1 \u00B7 Most scenes (speak loudly)"),
    SETTINGS_TEXT("EditorOptions", "2 \u00B7 Very noisy (roar)"),
    SETTINGS_TEXT("EditorOptions", "3 \u00B7 Deafening (loud voice)"),
    SETTINGS_TEXT("EditorOptions", "4 \u00B7 Deafening (extreme)"),
}};
inline constexpr std::array<MessageText, 6> kSuppressOptions = {{
    SETTINGS_TEXT("EditorOptions", "0 \u00B7 Off"),
    SETTINGS_TEXT("EditorOptions", "1 \u00B7 1%"),
    SETTINGS_TEXT("EditorOptions", "2 \u00B7 2%"),
    SETTINGS_TEXT("EditorOptions", "3 \u00B7 3%"),
    SETTINGS_TEXT("EditorOptions", "4 \u00B7 4%"),
    SETTINGS_TEXT("EditorOptions", "5 \u00B7 5%"),
}};
// Tally banks as the picker shows them.
inline constexpr std::array<MessageText, 4> kTallyBankOptions = {{
    SETTINGS_TEXT("EditorOptions", "Cameras 1\u2013" "12"),
    SETTINGS_TEXT("EditorOptions", "Cameras 13\u2013" "24"),
    SETTINGS_TEXT("EditorOptions", "Cameras 25\u2013" "36"),
    SETTINGS_TEXT("EditorOptions", "Cameras 37\u2013" "40"),
}};

inline constexpr std::int64_t kAnyInteger = std::numeric_limits<std::int64_t>::max();

inline constexpr std::string_view kSwitchOn = "1";
inline constexpr std::string_view kSwitchOff = "0";

// In the order of the editor's key table; the three network keys last.
// A new editable key takes its row here and its control in the panel of the
// section the row names; the editor makes its field from the row, and the
// editor's table test checks that the panel has the control.
inline constexpr auto kEditableKeys = std::to_array<EditableKey>({
    {.key = SettingKeys::kAtemIp, .kind = ValueKind::AddressOrEmpty, .section = Section::Tally},
    {.key = SettingKeys::kAtemPort, .kind = ValueKind::Text, .section = Section::Tally},
    {.key = SettingKeys::kChannel, .kind = ValueKind::Text, .section = Section::Communication},
    {.key = SettingKeys::kSwitcherBand, .kind = ValueKind::Integer, .section = Section::Tally,
     .minimum = -kAnyInteger - 1, .maximum = kAnyInteger, .whenMissing = kBandDefault},
    {.key = SettingKeys::kSwitcherModel, .kind = ValueKind::Integer, .section = Section::Tally,
     .minimum = -kAnyInteger - 1, .maximum = kAnyInteger},
    {.key = SettingKeys::kAtemExtTally, .kind = ValueKind::Integer, .section = Section::Tally,
     .minimum = 0, .maximum = 3, .options = kTallyBankOptions},
    {.key = SettingKeys::kTallyType, .kind = ValueKind::Integer, .section = Section::Tally,
     .minimum = kTypeMinimum, .maximum = kTypeMaximum, .caption = SETTINGS_TEXT("TallySection", "type %1")},
    {.key = SettingKeys::kTallyGpioType, .kind = ValueKind::Integer, .section = Section::Tally,
     .minimum = kTypeMinimum, .maximum = kTypeMaximum, .caption = SETTINGS_TEXT("TallySection", "gpio %1")},
    {.key = SettingKeys::kScenarioType, .kind = ValueKind::Integer, .section = Section::Communication,
     .minimum = 0, .maximum = 4, .whenMissing = kSceneDefault, .comparesParsed = true, .options = kSceneOptions},
    {.key = SettingKeys::kSilenceSuppress, .kind = ValueKind::Integer, .section = Section::Communication,
     .minimum = 0, .maximum = 5, .comparesParsed = true, .options = kSuppressOptions},
    {.key = SettingKeys::kWire2Enable, .kind = ValueKind::Switch, .section = Section::Communication},
    {.key = SettingKeys::kCallMagic, .kind = ValueKind::Text, .section = Section::Communication, .secret = true},
    {.key = SettingKeys::kIPAddress, .kind = ValueKind::Address, .section = Section::Network},
    {.key = SettingKeys::kNetmask, .kind = ValueKind::Address, .section = Section::Network},
    {.key = SettingKeys::kGateway, .kind = ValueKind::Address, .section = Section::Network},
});

// The entry of `key`, or null when it is not editable.
const EditableKey* findEditableKey(std::string_view key);
// The row of `key` in the table; `key` must be editable.
std::size_t rowIndex(std::string_view key);

// Whether the values of `key` are kept from view unless asked (the call password).
bool isSecret(std::string_view key);
// Whether `key` is one of the unit's own address settings, which a plain save never writes.
bool isNetworkKey(std::string_view key);

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
