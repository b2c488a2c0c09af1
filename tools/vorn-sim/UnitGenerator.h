// SPDX-License-Identifier: Apache-2.0
// Realistic configurations for `count` units at consecutive addresses,
// the same for the same seed on every machine.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "Result.h"
#include "Unit.h"

namespace VornSim {

// Fails when `firstIp` is no address or the address range runs out.
Result<std::vector<Unit>> generateUnits(std::string_view firstIp, int count, std::uint64_t seed);

}  // namespace VornSim
