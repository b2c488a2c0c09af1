// SPDX-License-Identifier: Apache-2.0
// Text forms of the simulator's numeric settings, shared by the command line
// and the units file so both accept exactly the same spellings.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace VornSim {

// Decimal ("161") or hexadecimal with 0x/0X ("0xA1"), 0..255.
std::optional<std::uint8_t> parseCommandCode(std::string_view text);

// A decimal fraction in 0..1 ("0.25", "1", ".5").
std::optional<double> parseFraction(std::string_view text);

// Whole milliseconds, 0..kMaxDelay.
std::optional<std::chrono::milliseconds> parseDelay(std::string_view text);
inline constexpr std::chrono::milliseconds kMaxDelay{3'600'000};

// A decimal integer within [min, max].
std::optional<std::int64_t> parseBoundedInt(std::string_view text, std::int64_t min, std::int64_t max);

}  // namespace VornSim
