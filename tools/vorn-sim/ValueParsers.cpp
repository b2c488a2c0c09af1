// SPDX-License-Identifier: Apache-2.0
#include "ValueParsers.h"

#include <charconv>

#include "DecimalInt.h"

namespace VornSim {

std::optional<std::uint8_t> parseCommandCode(std::string_view text)
{
    if (text.starts_with("0x") || text.starts_with("0X")) {
        const auto digits = text.substr(2);
        unsigned value = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        if (digits.empty() || error != std::errc{} || end != digits.data() + digits.size() || value > 255)
            return std::nullopt;
        return static_cast<std::uint8_t>(value);
    }
    const auto value = parseBoundedInt(text, 0, 255);
    if (!value)
        return std::nullopt;
    return static_cast<std::uint8_t>(*value);
}

std::optional<double> parseFraction(std::string_view text)
{
    double value = 0.0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    if (!(value >= 0.0 && value <= 1.0))
        return std::nullopt;
    return value;
}

std::optional<std::chrono::milliseconds> parseDelay(std::string_view text)
{
    const auto value = parseBoundedInt(text, 0, kMaxDelay.count());
    if (!value)
        return std::nullopt;
    return std::chrono::milliseconds(*value);
}

std::optional<std::int64_t> parseBoundedInt(std::string_view text, std::int64_t min, std::int64_t max)
{
    const auto value = Vorn::parseDecimal(text);
    if (!value || *value < min || *value > max)
        return std::nullopt;
    return value;
}

}  // namespace VornSim
