// SPDX-License-Identifier: Apache-2.0
// Checks the strict decimal parser against a plain reference: accepted text
// is exactly sign? digits+ within 64 bits, and the value is the right one.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "DecimalInt.h"

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

// The canonical decimal of sign? digits+, or nothing when the text is not of that shape.
std::optional<std::string> canonical(std::string_view text)
{
    bool negative = false;
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        text.remove_prefix(1);
    }
    if (text.empty())
        return std::nullopt;
    for (char c : text) {
        if (c < '0' || c > '9')
            return std::nullopt;
    }
    while (text.size() > 1 && text[0] == '0')
        text.remove_prefix(1);
    if (text == "0")
        return std::string("0");
    return (negative ? "-" : "") + std::string(text);
}

bool fitsInt64(const std::string& decimal)
{
    const bool negative = decimal[0] == '-';
    const std::string digits = negative ? decimal.substr(1) : decimal;
    const std::string limit = negative ? "9223372036854775808" : "9223372036854775807";
    return digits.size() < limit.size() || (digits.size() == limit.size() && digits <= limit);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto parsed = Vorn::parseDecimal(text);
    const auto expected = canonical(text);
    if (!expected || !fitsInt64(*expected)) {
        require(!parsed);
        return 0;
    }
    require(parsed.has_value());
    require(std::to_string(*parsed) == *expected);
    return 0;
}
