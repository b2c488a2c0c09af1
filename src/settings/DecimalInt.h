// SPDX-License-Identifier: Apache-2.0
// Strict decimal parsing shared by the codec, the self-test and the editor:
// an optional '+' or '-', then one or more ASCII digits, nothing else.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Vorn {

// Empty, blank-padded, non-digit or out-of-range text gives nothing.
std::optional<std::int64_t> parseDecimal(std::string_view text);

}  // namespace Vorn
