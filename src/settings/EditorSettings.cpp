// SPDX-License-Identifier: Apache-2.0
#include "EditorSettings.h"

#include <algorithm>

#include "EditorRules.h"
#include "ValueSafety.h"

using namespace SettingKeys;
using EditorRules::integerText;
using EditorRules::liveInteger;
using EditorRules::liveText;

namespace {

using Settings::kBandDefault;
using Settings::kSceneDefault;
constexpr std::string_view kWire2On = Settings::kSwitchOn;
constexpr std::string_view kWire2Off = Settings::kSwitchOff;

std::string wire2Text(bool on)
{
    return std::string(on ? kWire2On : kWire2Off);
}

// A missing key counts as the empty text.
KeyComparison byText(const Vorn::Config& live, std::string_view key, std::string text)
{
    const bool differs = text != liveText(live, key);
    return {key, std::move(text), differs};
}

// An integer compares as canonical text, so a reported "07" differs from 7;
// a missing key does not differ from a field holding the key's default.
KeyComparison byInteger(const Vorn::Config& live, std::string_view key, std::int64_t value,
                        std::int64_t whenMissing)
{
    std::string text = integerText(value);
    const auto reported = live.find(key);
    const bool differs = reported == live.end() ? value != whenMissing : text != reported->second;
    return {key, std::move(text), differs};
}

// The first text field that holds a line break or NUL.
std::optional<Settings::Message> fieldsRefusal(const EditorFields& fields)
{
    const std::pair<std::string_view, const std::string*> texts[] = {
        {kAtemIp, &fields.atemIp},    {kAtemPort, &fields.atemPort}, {kChannel, &fields.channel},
        {kCallMagic, &fields.password}, {kIPAddress, &fields.ipAddr}, {kNetmask, &fields.netmask},
        {kGateway, &fields.gateway},
    };
    for (const auto& [key, text] : texts) {
        if (auto refused = Settings::valueRefusal(key, *text))
            return refused;
    }
    return std::nullopt;
}

}  // namespace

std::int64_t sceneDefault(const Vorn::Config& live)
{
    return liveInteger(live, kScenarioType, kSceneDefault);
}

std::int64_t suppressDefault(const Vorn::Config& live)
{
    return liveInteger(live, kSilenceSuppress, 0);
}

EditorFields loadFields(const Vorn::Config& live)
{
    EditorFields fields;
    fields.atemIp = liveText(live, kAtemIp);
    fields.atemPort = liveText(live, kAtemPort);
    fields.channel = liveText(live, kChannel);
    fields.band = liveInteger(live, kSwitcherBand, kBandDefault);
    fields.model = liveInteger(live, kSwitcherModel, 0);
    fields.extTally = liveInteger(live, kAtemExtTally, 0);
    fields.tallyType = liveInteger(live, kTallyType, 0);
    fields.gpioType = liveInteger(live, kTallyGpioType, 0);
    fields.ipAddr = liveText(live, kIPAddress);
    fields.netmask = liveText(live, kNetmask);
    fields.gateway = liveText(live, kGateway);
    fields.scene = sceneDefault(live);
    fields.suppress = suppressDefault(live);
    fields.wire2 = liveText(live, kWire2Enable, kWire2Off) == kWire2On;
    fields.password = liveText(live, kCallMagic);
    return fields;
}

std::array<KeyComparison, 12> compareSettings(const EditorFields& fields, const Vorn::Config& live)
{
    // The two levels compare as integers with their defaults instead.
    const std::string wire2 = wire2Text(fields.wire2);
    return {{
        byText(live, kAtemIp, fields.atemIp),
        byText(live, kAtemPort, fields.atemPort),
        byText(live, kChannel, fields.channel),
        byInteger(live, kSwitcherBand, fields.band, kBandDefault),
        byInteger(live, kSwitcherModel, fields.model, 0),
        byInteger(live, kAtemExtTally, fields.extTally, 0),
        byInteger(live, kTallyType, fields.tallyType, 0),
        byInteger(live, kTallyGpioType, fields.gpioType, 0),
        {kScenarioType, integerText(fields.scene), fields.scene != sceneDefault(live)},
        {kSilenceSuppress, integerText(fields.suppress), fields.suppress != suppressDefault(live)},
        {kWire2Enable, wire2, wire2 != liveText(live, kWire2Enable, kWire2Off)},
        byText(live, kCallMagic, fields.password),
    }};
}

Vorn::Config comparedValues(const Vorn::Config& live)
{
    Vorn::Config values;
    for (auto& key : compareSettings(loadFields(live), live))
        values.emplace(key.key, std::move(key.text));
    return values;
}

std::array<KeyComparison, 3> compareNetwork(const EditorFields& fields, const Vorn::Config& live)
{
    return {{
        byText(live, kIPAddress, fields.ipAddr),
        byText(live, kNetmask, fields.netmask),
        byText(live, kGateway, fields.gateway),
    }};
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
    return EditorRules::isDottedQuad(fields.ipAddr) && EditorRules::isDottedQuad(fields.netmask)
        && EditorRules::isDottedQuad(fields.gateway);
}

std::optional<Settings::Message> sendRefusal(const EditorFields& fields, const Vorn::Config& live)
{
    if (auto refused = fieldsRefusal(fields))
        return refused;
    // Every differing field replaces the unit's value; the rest goes out as reported.
    Vorn::Config full = live;
    for (const auto& changes : {changesOf(compareSettings(fields, live)), changesOf(compareNetwork(fields, live))}) {
        for (const auto& [key, value] : changes)
            full.insert_or_assign(key, value);
    }
    return Settings::writeRefusal({}, full);
}
