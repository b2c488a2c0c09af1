// SPDX-License-Identifier: Apache-2.0
#include "UnitFile.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <iterator>

#include "Ipv4.h"
#include "ValueParsers.h"

namespace VornSim {
namespace {

using Json = nlohmann::json;

// Thrown inside this file only, turned into an Error at the boundary.
struct Invalid {
    std::string message;
};

std::string describe(std::size_t index, std::string_view problem)
{
    return "unit " + std::to_string(index) + ": " + std::string(problem);
}

std::string configValue(const Json& value, std::string_view key, std::size_t index)
{
    if (value.is_string())
        return value.get<std::string>();
    if (value.is_number_integer())
        return value.dump();
    throw Invalid{describe(index, "config value of '" + std::string(key) + "' must be text or a whole number")};
}

std::string address(const Json& value, std::string_view field, std::size_t index)
{
    const auto text = value.is_string() ? Settings::canonicalIpv4(value.get<std::string>()) : std::nullopt;
    if (!text)
        throw Invalid{describe(index, "\"" + std::string(field) + "\" must be an IPv4 address text")};
    return *text;
}

std::uint8_t commandCode(const Json& value, std::size_t index)
{
    std::optional<std::uint8_t> code;
    if (value.is_number_unsigned() && value.get<std::uint64_t>() <= 255)
        code = static_cast<std::uint8_t>(value.get<std::uint64_t>());
    else if (value.is_string())
        code = parseCommandCode(value.get<std::string>());
    if (!code)
        throw Invalid{describe(index, "\"cmd\" must be 0..255 or text like \"0xA1\"")};
    return *code;
}

void readFault(Unit& unit, const std::string& field, const Json& value, std::size_t index)
{
    if (field == "reportIp") {
        unit.faults.reportIp = address(value, field, index);
    } else if (field == "cmd") {
        unit.faults.cmd = commandCode(value, index);
    } else if (field == "silent") {
        if (!value.is_boolean())
            throw Invalid{describe(index, "\"silent\" must be true or false")};
        unit.faults.silent = value.get<bool>();
    } else if (field == "drop") {
        if (!value.is_number() || !(value.get<double>() >= 0.0 && value.get<double>() <= 1.0))
            throw Invalid{describe(index, "\"drop\" must be a number 0..1")};
        unit.faults.drop = value.get<double>();
    } else if (field == "delayMs") {
        if (!value.is_number_unsigned() || value.get<std::uint64_t>() > static_cast<std::uint64_t>(kMaxDelay.count()))
            throw Invalid{describe(index, "\"delayMs\" must be whole milliseconds 0..3600000")};
        unit.faults.delay = std::chrono::milliseconds(value.get<std::int64_t>());
    } else if (field == "ignoreWrites") {
        if (!value.is_boolean())
            throw Invalid{describe(index, "\"ignoreWrites\" must be true or false")};
        unit.faults.ignoreWrites = value.get<bool>();
    } else if (field == "keepKey") {
        if (!value.is_string() || value.get<std::string>().empty())
            throw Invalid{describe(index, "\"keepKey\" must be a key text")};
        unit.faults.keepKey = value.get<std::string>();
    } else {
        throw Invalid{describe(index, "unknown field \"" + field + "\"")};
    }
}

Unit readUnit(const Json& entry, std::size_t index)
{
    if (!entry.is_object())
        throw Invalid{describe(index, "must be an object")};
    if (!entry.contains("ip"))
        throw Invalid{describe(index, "\"ip\" is missing")};
    Unit unit;
    for (const auto& [field, value] : entry.items()) {
        if (field == "ip") {
            unit.ip = address(value, field, index);
        } else if (field == "config") {
            if (!value.is_object())
                throw Invalid{describe(index, "\"config\" must be an object")};
            for (const auto& [key, setting] : value.items())
                unit.config[key] = configValue(setting, key, index);
        } else {
            readFault(unit, field, value, index);
        }
    }
    return unit;
}

}  // namespace

Result<std::vector<Unit>> parseUnitsJson(std::string_view text)
{
    const auto document = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (document.is_discarded())
        return Error{"not valid JSON"};
    if (!document.is_array() || document.empty())
        return Error{"expected a non-empty JSON array of units"};
    std::vector<Unit> units;
    try {
        for (std::size_t i = 0; i < document.size(); ++i)
            units.push_back(readUnit(document[i], i));
    } catch (const Invalid& invalid) {
        return Error{invalid.message};
    }
    return units;
}

Result<std::vector<Unit>> loadUnitsFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return Error{"cannot read units file '" + path + "'"};
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    auto units = parseUnitsJson(text);
    if (auto* error = std::get_if<Error>(&units))
        error->message = "units file '" + path + "': " + error->message;
    return units;
}

}  // namespace VornSim
