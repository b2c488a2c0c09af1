// SPDX-License-Identifier: Apache-2.0
// An IPv4 address: the one place that turns dotted-quad text into an address
// and back. Parsing follows the editor's dotted-quad rule: exactly four
// pieces between dots, each a strict decimal integer in 0...255 (a sign and
// leading zeros are accepted: "+1", "-0", "010"); nothing else.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Settings {

class Ipv4 {
public:
    constexpr Ipv4() = default;
    // `value` in host byte order: 10.0.0.1 is 0x0A000001.
    constexpr explicit Ipv4(std::uint32_t value) : value_(value) {}
    // First octet first, as the address is written.
    static constexpr Ipv4 fromOctets(std::array<std::uint8_t, 4> octets)
    {
        return Ipv4((std::uint32_t{octets[0]} << 24) | (std::uint32_t{octets[1]} << 16)
                    | (std::uint32_t{octets[2]} << 8) | std::uint32_t{octets[3]});
    }

    static std::optional<Ipv4> parse(std::string_view text);

    constexpr std::uint32_t value() const { return value_; }
    constexpr std::array<std::uint8_t, 4> octets() const
    {
        return {static_cast<std::uint8_t>(value_ >> 24), static_cast<std::uint8_t>(value_ >> 16),
                static_cast<std::uint8_t>(value_ >> 8), static_cast<std::uint8_t>(value_)};
    }
    // Plain dotted decimal: no signs, no leading zeros.
    std::string toString() const;

    friend constexpr auto operator<=>(Ipv4, Ipv4) = default;

private:
    std::uint32_t value_ = 0;
};

// The canonical text of `text` when it is an address, else nothing.
std::optional<std::string> canonicalIpv4(std::string_view text);

}  // namespace Settings
