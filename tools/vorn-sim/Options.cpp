// SPDX-License-Identifier: Apache-2.0
#include "Options.h"

#include <algorithm>
#include <array>
#include <optional>

#include "Ipv4.h"
#include "SettingKeys.h"
#include "ValueParsers.h"

namespace VornSim {
namespace {

using Apply = std::optional<Error> (*)(Options&, std::string_view name, std::string_view value);

struct OptionHandler {
    std::string_view name;
    Apply apply;
};

Error invalid(std::string_view name, std::string_view value, std::string_view expected)
{
    return Error{"invalid value '" + std::string(value) + "' for " + std::string(name) + " (expected " +
                 std::string(expected) + ")"};
}

// Stores the address in its plain form, so it compares equal to the units' own.
std::optional<Error> setAddress(std::string& target, std::string_view name, std::string_view value)
{
    auto address = Settings::canonicalIpv4(value);
    if (!address)
        return invalid(name, value, "an IPv4 address like 10.232.1.1");
    target = std::move(*address);
    return std::nullopt;
}

// "all" or a unit's address in its plain form.
std::optional<std::string> unitTarget(std::string_view text)
{
    if (text == kAllUnits)
        return std::string(text);
    return Settings::canonicalIpv4(text);
}

// A fault without a value, for the unit (or "all") named by `text`.
std::optional<Error> addFlagFault(Options& options, std::string_view name, std::string_view text,
                                  std::optional<bool> FaultOverrides::*field)
{
    const auto unit = unitTarget(text);
    if (!unit)
        return invalid(name, text, "a unit's address or 'all'");
    FaultOption fault{*unit, {}};
    fault.overrides.*field = true;
    options.faults.push_back(std::move(fault));
    return std::nullopt;
}

// "UNIT=VALUE" for the fault options; UNIT is "all" or an address.
std::optional<Error> splitUnitValue(std::string_view name, std::string_view text, std::string& unit,
                                    std::string_view& value)
{
    const auto equals = text.find('=');
    if (equals == std::string_view::npos)
        return Error{"option " + std::string(name) + " needs UNIT=VALUE, got '" + std::string(text) + "'"};
    value = text.substr(equals + 1);
    const auto target = unitTarget(text.substr(0, equals));
    if (!target)
        return invalid(name, text.substr(0, equals), "a unit's address or 'all'");
    unit = *target;
    return std::nullopt;
}

// Parses VALUE with `parse` into the one override field that `field` names.
template <auto field, class Parse>
std::optional<Error> addFault(Options& options, std::string_view name, std::string_view text, Parse parse,
                              std::string_view expected)
{
    FaultOption fault;
    std::string_view value;
    if (auto error = splitUnitValue(name, text, fault.unit, value))
        return error;
    const auto parsed = parse(value);
    if (!parsed)
        return invalid(name, value, expected);
    fault.overrides.*field = *parsed;
    options.faults.push_back(std::move(fault));
    return std::nullopt;
}

constexpr std::array<OptionHandler, 16> kOptions = {{
    {"--port",
     [](Options& o, std::string_view n, std::string_view v) -> std::optional<Error> {
         const auto port = parseBoundedInt(v, 1, 65535);
         if (!port)
             return invalid(n, v, "a port 1..65535");
         o.port = static_cast<std::uint16_t>(*port);
         return std::nullopt;
     }},
    {"--bind",
     [](Options& o, std::string_view n, std::string_view v) { return setAddress(o.bindAddress, n, v); }},
    {"--log",
     [](Options& o, std::string_view, std::string_view v) -> std::optional<Error> {
         o.logPath = v;
         return std::nullopt;
     }},
    {"--ready-file",
     [](Options& o, std::string_view, std::string_view v) -> std::optional<Error> {
         o.readyFile = v;
         return std::nullopt;
     }},
    {"--count",
     [](Options& o, std::string_view n, std::string_view v) -> std::optional<Error> {
         const auto count = parseBoundedInt(v, 1, kMaxCount);
         if (!count)
             return invalid(n, v, "a unit count 1.." + std::to_string(kMaxCount));
         o.count = static_cast<int>(*count);
         return std::nullopt;
     }},
    {"--first-ip",
     [](Options& o, std::string_view n, std::string_view v) { return setAddress(o.firstIp, n, v); }},
    {"--seed",
     [](Options& o, std::string_view n, std::string_view v) -> std::optional<Error> {
         const auto seed = parseBoundedInt(v, 0, INT64_MAX);
         if (!seed)
             return invalid(n, v, "a non-negative whole number");
         o.seed = static_cast<std::uint64_t>(*seed);
         return std::nullopt;
     }},
    {"--units",
     [](Options& o, std::string_view, std::string_view v) -> std::optional<Error> {
         o.unitsFile = v;
         return std::nullopt;
     }},
    {"--unit",
     [](Options& o, std::string_view n, std::string_view v) -> std::optional<Error> {
         const auto equals = v.find('=');
         ExtraUnit unit{std::string(v.substr(0, equals)), {}};
         if (equals != std::string_view::npos) {
             unit.serial = v.substr(equals + 1);
             if (unit.serial.empty())
                 return invalid(n, v, "ADDR or ADDR=SERIAL");
         }
         if (auto error = setAddress(unit.ip, n, unit.ip))
             return error;
         o.extraUnits.push_back(std::move(unit));
         return std::nullopt;
     }},
    {"--report-ip",
     [](Options& o, std::string_view n, std::string_view v) {
         return addFault<&FaultOverrides::reportIp>(
             o, n, v, [](std::string_view a) { return Settings::canonicalIpv4(a); },
             "an IPv4 address");
     }},
    {"--cmd",
     [](Options& o, std::string_view n, std::string_view v) {
         return addFault<&FaultOverrides::cmd>(o, n, v, parseCommandCode, "a command code 0..255 or 0x00..0xFF");
     }},
    {"--silent",
     [](Options& o, std::string_view n, std::string_view v) {
         return addFlagFault(o, n, v, &FaultOverrides::silent);
     }},
    {"--ignore-writes",
     [](Options& o, std::string_view n, std::string_view v) {
         return addFlagFault(o, n, v, &FaultOverrides::ignoreWrites);
     }},
    {"--keep-key",
     [](Options& o, std::string_view n, std::string_view v) {
         return addFault<&FaultOverrides::keepKey>(
             o, n, v, [](std::string_view key) { return key.empty() ? std::nullopt : std::optional(std::string(key)); },
             "a configuration key like Channel");
     }},
    {"--drop",
     [](Options& o, std::string_view n, std::string_view v) {
         return addFault<&FaultOverrides::drop>(o, n, v, parseFraction, "a fraction 0..1");
     }},
    {"--delay",
     [](Options& o, std::string_view n, std::string_view v) {
         return addFault<&FaultOverrides::delay>(o, n, v, parseDelay, "milliseconds 0..3600000");
     }},
}};

}  // namespace

Result<Options> parseOptions(std::span<const std::string_view> args)
{
    Options options;
    bool rangeGiven = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const auto arg = args[i];
        if (arg == "--help" || arg == "-h") {
            options.help = true;
            continue;
        }
        if (!arg.starts_with("--"))
            return Error{"unexpected argument '" + std::string(arg) + "'"};
        const auto equals = arg.find('=');
        const auto name = arg.substr(0, equals);
        const auto option = std::find_if(kOptions.begin(), kOptions.end(),
                                       [&](const OptionHandler& s) { return s.name == name; });
        if (option == kOptions.end())
            return Error{"unknown option '" + std::string(name) + "'"};
        std::string_view value;
        if (equals != std::string_view::npos)
            value = arg.substr(equals + 1);
        else if (i + 1 < args.size())
            value = args[++i];
        else
            return Error{"option " + std::string(name) + " needs a value"};
        if (value.empty())
            return Error{"option " + std::string(name) + " needs a non-empty value"};
        if (auto error = option->apply(options, name, value))
            return *error;
        rangeGiven = rangeGiven || name == "--count" || name == "--first-ip";
    }
    if (rangeGiven && !options.unitsFile.empty())
        return Error{"--units cannot be combined with --count or --first-ip"};
    return options;
}

}  // namespace VornSim
