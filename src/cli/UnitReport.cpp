// SPDX-License-Identifier: Apache-2.0
#include "UnitReport.h"

#include <algorithm>

#include "ConfigOrder.h"
#include "Device.h"
#include "EditableKeys.h"
#include "EditorRules.h"
#include "Ipv4.h"
#include "SettingKeys.h"
#include "SwitcherCatalog.h"
#include "UnitWarnings.h"

namespace VornCtl {

std::string orDash(const std::string& text)
{
    return text.empty() ? std::string("-") : text;
}

namespace {

std::string switcherName(const Vorn::Config& config)
{
    // As the window's header shows it: missing or unparsable numbers are the defaults.
    const auto band = EditorRules::liveInteger(config, SettingKeys::kSwitcherBand, Settings::kBandDefault);
    const auto model = EditorRules::liveInteger(config, SettingKeys::kSwitcherModel, 0);
    return Settings::english(SwitcherCatalog::label(band, model));
}

std::string joined(const std::vector<std::string>& parts, std::string_view separator)
{
    std::string text;
    for (const auto& part : parts) {
        if (!text.empty())
            text += separator;
        text += part;
    }
    return text;
}

}  // namespace

std::string unitTitle(const Sighting& unit)
{
    return Device{unit.address, unit.config, {}}.title().toStdString();
}

std::string unitInterface(const Sighting& unit)
{
    return unit.interface;
}

std::vector<std::string> unitWarnings(const Sighting& unit)
{
    std::vector<std::string> warnings;
    if (unit.wrongSubnet)
        warnings.push_back("wrong subnet: heard on " + unit.interface + ", needs an address in " + unit.interfaceSubnet);
    if (unit.serials.size() > 1)
        warnings.push_back("address conflict: serials " + joined(unit.serials, ", "));
    for (auto& warning : Settings::unitWarnings(unit.config))
        warnings.push_back(std::move(warning));
    return warnings;
}

std::string unitLine(const Sighting& unit)
{
    const auto channel = unit.config.find(SettingKeys::kChannel);
    const std::string channelText = channel != unit.config.end() ? "Ch " + channel->second : "Ch \u2013";
    return unit.address + "  " + unitTitle(unit) + "  " + switcherName(unit.config) + "  " + channelText + "  "
        + orDash(unitInterface(unit)) + "  " + orDash(joined(unitWarnings(unit), "; "));
}

nlohmann::ordered_json unitJson(const Sighting& unit)
{
    nlohmann::ordered_json config = nlohmann::ordered_json::object();
    for (const auto& [key, value] : Settings::inDisplayOrder(unit.config))
        config[key] = value;
    return {{"address", unit.address},
            {"serial", EditorRules::liveText(unit.config, SettingKeys::kSerial)},
            {"title", unitTitle(unit)},
            {"firmware", EditorRules::liveText(unit.config, SettingKeys::kVersion)},
            {"interface", unitInterface(unit)},
            {"warnings", unitWarnings(unit)},
            {"config", std::move(config)}};
}

std::vector<std::string> configLines(const Vorn::Config& config)
{
    std::vector<std::string> lines;
    for (const auto& [key, value] : Settings::inDisplayOrder(config))
        lines.push_back(key + ": " + value);
    return lines;
}

std::tuple<bool, Settings::Ipv4, std::string> addressOrder(const std::string& text)
{
    const auto address = Settings::Ipv4::parse(text);
    return std::tuple(!address.has_value(), address.value_or(Settings::Ipv4()), text);
}

std::vector<Sighting> sortedByAddress(std::vector<Sighting> units)
{
    std::stable_sort(units.begin(), units.end(), [](const Sighting& a, const Sighting& b) {
        return addressOrder(a.address) < addressOrder(b.address);
    });
    return units;
}

}  // namespace VornCtl
