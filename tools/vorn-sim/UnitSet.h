// SPDX-License-Identifier: Apache-2.0
// The units a run simulates: generated or read from a file, with the
// command line's faults applied.
#pragma once

#include <span>
#include <vector>

#include "Options.h"
#include "Result.h"
#include "Unit.h"

namespace VornSim {

// The generated or file units, then the extra units of --unit, then the faults.
Result<std::vector<Unit>> makeUnits(const Options& options);

// Appends the extra units of `options` to `units`.
std::optional<Error> addExtraUnits(std::vector<Unit>& units, const Options& options);

// Fails naming the first fault whose unit address matches no unit.
std::optional<Error> applyFaultOptions(std::vector<Unit>& units, std::span<const FaultOption> faults);

}  // namespace VornSim
