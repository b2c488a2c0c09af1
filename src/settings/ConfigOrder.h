// SPDX-License-Identifier: Apache-2.0
// Configurations as the tools list and compare them: the keys of the write
// key table in its order first, then the others in key order.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "VornConfig.h"

namespace Settings {

std::vector<std::pair<std::string, std::string>> inDisplayOrder(const Vorn::Config& config);

// The keys among `keys` that `wanted` holds with another value than `live`
// (a key `live` lacks counts as the empty text), with the wanted value.
Vorn::Config differingKeys(const Vorn::Config& wanted, const Vorn::Config& live,
                           std::span<const std::string_view> keys);

}  // namespace Settings
