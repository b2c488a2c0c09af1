// SPDX-License-Identifier: Apache-2.0
#include "EditorSettings.h"

#include <algorithm>
#include <variant>

#include "EditorRules.h"
#include "FleetValues.h"
#include "ValueSafety.h"

using EditorRules::integerText;
using EditorRules::liveInteger;
using EditorRules::liveText;
using Settings::EditableKey;

namespace {

thread_local std::uint64_t comparisons = 0;

std::string switchText(bool on)
{
    return std::string(on ? Settings::kSwitchOn : Settings::kSwitchOff);
}

// A missing key counts as the empty text.
KeyComparison byText(const Vorn::Config& live, std::string_view key, std::string text)
{
    const bool differs = text != liveText(live, key);
    return {key, std::move(text), differs};
}

// An integer compares as canonical text, so a reported "07" differs from 7;
// a missing key does not differ from a field holding the key's default. A
// level compares as the integer it parses to instead.
KeyComparison byInteger(const Vorn::Config& live, const EditableKey& row, std::int64_t value)
{
    std::string text = integerText(value);
    if (row.comparesParsed)
        return {row.key, std::move(text), value != liveInteger(live, row.key, row.whenMissing)};
    const auto reported = live.find(row.key);
    const bool differs = reported == live.end() ? value != row.whenMissing : text != reported->second;
    return {row.key, std::move(text), differs};
}

// A missing switch counts as off.
KeyComparison bySwitch(const Vorn::Config& live, std::string_view key, bool on)
{
    std::string text = switchText(on);
    const bool differs = text != liveText(live, key, Settings::kSwitchOff);
    return {key, std::move(text), differs};
}

KeyComparison compareKey(const EditorFields& fields, const Vorn::Config& live, std::size_t index)
{
    const EditableKey& row = Settings::kEditableKeys[index];
    const FieldValue& value = fields.at(index);
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return byInteger(live, row, *number);
    if (const auto* on = std::get_if<bool>(&value))
        return bySwitch(live, row.key, *on);
    return byText(live, row.key, std::get<std::string>(value));
}

template <typename Wanted>
std::vector<KeyComparison> compareWhere(const EditorFields& fields, const Vorn::Config& live, Wanted wanted)
{
    std::vector<KeyComparison> keys;
    for (std::size_t index = 0; index < Settings::kEditableKeys.size(); ++index) {
        if (wanted(Settings::kEditableKeys[index]))
            keys.push_back(compareKey(fields, live, index));
    }
    return keys;
}

// The first text field that holds a line break or NUL.
std::optional<Settings::Message> fieldsRefusal(const EditorFields& fields)
{
    for (std::size_t index = 0; index < Settings::kEditableKeys.size(); ++index) {
        const auto* text = std::get_if<std::string>(&fields.at(index));
        if (!text)
            continue;
        if (auto refused = Settings::valueRefusal(Settings::kEditableKeys[index].key, *text))
            return refused;
    }
    return std::nullopt;
}

}  // namespace

EditorFields loadFields(const Vorn::Config& live)
{
    EditorFields fields;
    for (std::size_t index = 0; index < Settings::kEditableKeys.size(); ++index) {
        const EditableKey& row = Settings::kEditableKeys[index];
        FieldValue& value = fields.at(index);
        if (auto* number = std::get_if<std::int64_t>(&value))
            *number = liveInteger(live, row.key, row.whenMissing);
        else if (auto* on = std::get_if<bool>(&value))
            *on = liveText(live, row.key, Settings::kSwitchOff) == Settings::kSwitchOn;
        else
            value = liveText(live, row.key);
    }
    return fields;
}

std::vector<KeyComparison> compareSection(const EditorFields& fields, const Vorn::Config& live,
                                          Settings::Section section)
{
    ++comparisons;
    return compareWhere(fields, live, [&](const EditableKey& row) { return row.section == section; });
}

std::uint64_t sectionComparisons()
{
    return comparisons;
}

std::vector<KeyComparison> compareSettings(const EditorFields& fields, const Vorn::Config& live)
{
    return compareWhere(fields, live, [](const EditableKey& row) { return !row.network(); });
}

Vorn::Config comparedValues(const Vorn::Config& live)
{
    Vorn::Config values;
    for (auto& key : compareSettings(loadFields(live), live))
        values.emplace(key.key, std::move(key.text));
    return values;
}

std::vector<KeyComparison> compareNetwork(const EditorFields& fields, const Vorn::Config& live)
{
    return compareWhere(fields, live, [](const EditableKey& row) { return row.network(); });
}

bool anyDiffers(std::span<const KeyComparison> keys)
{
    return std::any_of(keys.begin(), keys.end(), [](const KeyComparison& key) { return key.differs; });
}

Vorn::Config changesOf(std::span<const KeyComparison> keys)
{
    Vorn::Config changes;
    for (const auto& key : keys) {
        if (key.differs)
            changes.emplace(key.key, key.text);
    }
    return changes;
}

bool networkValid(const EditorFields& fields)
{
    for (const EditableKey& row : Settings::kEditableKeys) {
        if (row.network() && !EditorRules::isDottedQuad(fields.text(row.key)))
            return false;
    }
    return true;
}

std::optional<Settings::Message> sendRefusal(const EditorFields& fields, const Vorn::Config& live,
                                            const Vorn::Config& changes)
{
    if (auto refused = fieldsRefusal(fields))
        return refused;
    // Every differing field replaces the unit's value; the rest goes out as reported.
    return Settings::writeRefusal({}, Settings::overlay(live, changes));
}
