// SPDX-License-Identifier: Apache-2.0
#include "UnitSet.h"

#include "UnitFile.h"
#include "UnitGenerator.h"

namespace VornSim {

std::optional<Error> applyFaultOptions(std::vector<Unit>& units, std::span<const FaultOption> faults)
{
    for (const auto& fault : faults) {
        bool matched = false;
        for (auto& unit : units) {
            if (fault.unit == kAllUnits || unit.ip == fault.unit) {
                fault.overrides.applyTo(unit.faults);
                matched = true;
            }
        }
        if (!matched)
            return Error{"no unit has the address " + fault.unit};
    }
    return std::nullopt;
}

std::optional<Error> addExtraUnits(std::vector<Unit>& units, const Options& options)
{
    for (std::size_t i = 0; i < options.extraUnits.size(); ++i) {
        const auto& extra = options.extraUnits[i];
        // A configuration of its own: generated from another seed per extra unit.
        auto generated = generateUnits(extra.ip, 1, options.seed + 1 + i);
        auto* made = std::get_if<std::vector<Unit>>(&generated);
        if (made == nullptr)
            return std::get<Error>(generated);
        Unit unit = std::move(made->front());
        unit.ip = extra.ip;
        unit.config["IPAddress"] = extra.ip;
        if (!extra.serial.empty())
            unit.config["Serial"] = extra.serial;
        units.push_back(std::move(unit));
    }
    return std::nullopt;
}

Result<std::vector<Unit>> makeUnits(const Options& options)
{
    auto units = options.unitsFile.empty() ? generateUnits(options.firstIp, options.count, options.seed)
                                           : loadUnitsFile(options.unitsFile);
    if (auto* list = std::get_if<std::vector<Unit>>(&units)) {
        if (auto error = addExtraUnits(*list, options))
            return *error;
        if (auto error = applyFaultOptions(*list, options.faults))
            return *error;
    }
    return units;
}

}  // namespace VornSim
