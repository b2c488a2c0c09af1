// SPDX-License-Identifier: Apache-2.0
// A configuration as the store keeps it: one JSON object, keys in order, so
// that equal configurations have equal text.
#pragma once

#include <string>
#include <vector>

#include "VornConfig.h"

namespace Site {

std::string configText(const Vorn::Config& config);
// The configuration of `text`; empty when it is not such an object.
Vorn::Config configFromText(const std::string& text);

std::string keyListText(const std::vector<std::string>& keys);
std::vector<std::string> keyListFromText(const std::string& text);

}  // namespace Site
