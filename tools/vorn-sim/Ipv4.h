// Dotted-quad IPv4 addresses as numbers (host byte order) and back, and the
// walk over consecutive host addresses used to number simulated units.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace VornSim {

// Strictly four decimal octets 0..255, no blanks, no leading zeros.
std::optional<std::uint32_t> parseIpv4(std::string_view text);
std::string formatIpv4(std::uint32_t address);

// The next address whose last octet is neither 0 nor 255; nothing past 255.255.255.254.
std::optional<std::uint32_t> nextHostAddress(std::uint32_t address);

// `address` itself when its last octet is usable, else the next one that is.
std::optional<std::uint32_t> firstHostAddressFrom(std::uint32_t address);

}  // namespace VornSim
