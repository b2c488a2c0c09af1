// SPDX-License-Identifier: Apache-2.0
// The editor's fields and how they meet the unit's live configuration:
// loading them, comparing them key by key and collecting what to send. Every
// rule follows the rows of the editable-key table.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "EditableKeys.h"
#include "Message.h"
#include "EditorFields.h"
#include "SettingKeys.h"
#include "VornConfig.h"

// One key as "Save changes" or the network apply sees it: the field's text
// form and whether it differs from what the unit reports.
struct KeyComparison {
    std::string_view key;
    std::string text;
    bool differs;
};

// Every field from the live configuration; missing or unparsable values
// give the defaults of the key table.
EditorFields loadFields(const Vorn::Config& live);

// Each key of "Save changes" with the text form of the field it loads into:
// the values the editor compares, so a missing ScenarioType and "1" agree.
Vorn::Config comparedValues(const Vorn::Config& live);

// The keys of one section, in table order, compared with the unit's values.
std::vector<KeyComparison> compareSection(const EditorFields& fields, const Vorn::Config& live,
                                          Settings::Section section);
// How many section comparisons this thread has made: the editor compares
// each section once per change, and its tests count that.
std::uint64_t sectionComparisons();

// The keys of "Save changes" (the tally and communication sections), in the
// order they are checked.
std::vector<KeyComparison> compareSettings(const EditorFields& fields, const Vorn::Config& live);
// IPAddress, Netmask, Gateway, in that order; plain text comparison.
std::vector<KeyComparison> compareNetwork(const EditorFields& fields, const Vorn::Config& live);

bool anyDiffers(std::span<const KeyComparison> keys);
// The differing keys with their text forms: the change set of a write.
Vorn::Config changesOf(std::span<const KeyComparison> keys);

// All three network fields are dotted quads.
bool networkValid(const EditorFields& fields);

// Why a write from these fields cannot go out, or nothing when it can: a text
// field holding a line break or NUL, or such a value among the unit's own
// reported write keys that the write would carry unchanged (a write carries
// the whole configuration). `changes` are the differing keys of every section.
std::optional<Settings::Message> sendRefusal(const EditorFields& fields, const Vorn::Config& live,
                                            const Vorn::Config& changes);
