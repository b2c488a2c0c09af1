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

Result<std::vector<Unit>> makeUnits(const Options& options)
{
    auto units = options.unitsFile.empty() ? generateUnits(options.firstIp, options.count, options.seed)
                                           : loadUnitsFile(options.unitsFile);
    if (auto* list = std::get_if<std::vector<Unit>>(&units)) {
        if (auto error = applyFaultOptions(*list, options.faults))
            return *error;
    }
    return units;
}

}  // namespace VornSim
