// SPDX-License-Identifier: Apache-2.0
#include "DecimalInt.h"

#include <charconv>

namespace Vorn {

std::optional<std::int64_t> parseDecimal(std::string_view text)
{
    // from_chars takes '-' but not '+', so the sign is handled here.
    bool negative = false;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    if (text.empty())
        return std::nullopt;
    for (char c : text) {
        if (c < '0' || c > '9')
            return std::nullopt;
    }
    // Accumulate as unsigned so that INT64_MIN parses without overflow.
    std::uint64_t magnitude = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    constexpr std::uint64_t maxPositive = static_cast<std::uint64_t>(INT64_MAX);
    if (negative) {
        if (magnitude > maxPositive + 1)
            return std::nullopt;
        return magnitude == maxPositive + 1 ? INT64_MIN : -static_cast<std::int64_t>(magnitude);
    }
    if (magnitude > maxPositive)
        return std::nullopt;
    return static_cast<std::int64_t>(magnitude);
}

}  // namespace Vorn
