// SPDX-License-Identifier: Apache-2.0
// The editor's fields and how they meet the unit's live configuration:
// loading them, comparing them key by key and collecting what to send.
#pragma once

#include <array>
#include <span>
#include <cstdint>
#include <string>
#include <string_view>

#include <optional>

#include "EditableKeys.h"
#include "Message.h"
#include "SettingKeys.h"
#include "VornConfig.h"


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

// One key as "Save changes" or the network apply sees it: the field's text
// form and whether it differs from what the unit reports.
struct KeyComparison {
    std::string_view key;
    std::string text;
    bool differs;
};

// The unit's scene level, 1 when missing or unparsable.
std::int64_t sceneDefault(const Vorn::Config& live);
// The unit's suppression level, 0 when missing or unparsable.
std::int64_t suppressDefault(const Vorn::Config& live);

// Every field from the live configuration; missing or unparsable values
// give the defaults of the key table.
EditorFields loadFields(const Vorn::Config& live);

// Each key of "Save changes" with the text form of the field it loads into:
// the values the editor compares, so a missing ScenarioType and "1" agree.
Vorn::Config comparedValues(const Vorn::Config& live);

// The twelve keys of "Save changes", in the order they are checked.
std::array<KeyComparison, 12> compareSettings(const EditorFields& fields, const Vorn::Config& live);
// IPAddress, Netmask, Gateway, in that order; plain text comparison.
std::array<KeyComparison, 3> compareNetwork(const EditorFields& fields, const Vorn::Config& live);

bool anyDiffers(std::span<const KeyComparison> keys);
// The differing keys with their text forms: the change set of a write.
Vorn::Config changesOf(std::span<const KeyComparison> keys);

// All three network fields are dotted quads.
bool networkValid(const EditorFields& fields);

// Why a write from these fields cannot go out, or nothing when it can: a text
// field holding a line break or NUL, or such a value among the unit's own
// reported write keys that the write would carry unchanged (a write carries
// the whole configuration).
std::optional<Settings::Message> sendRefusal(const EditorFields& fields, const Vorn::Config& live);
