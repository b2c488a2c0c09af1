// SPDX-License-Identifier: Apache-2.0
// Units described in JSON: [{"ip": "...", "config": {...}, faults...}, ...].
// A unit gets exactly the configuration written in the file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Result.h"
#include "Unit.h"

namespace VornSim {

Result<std::vector<Unit>> parseUnitsJson(std::string_view text);
Result<std::vector<Unit>> loadUnitsFile(const std::string& path);

}  // namespace VornSim
