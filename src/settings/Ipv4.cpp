// SPDX-License-Identifier: Apache-2.0
#include "Ipv4.h"

#include <charconv>

#include "DecimalInt.h"

namespace Settings {

std::optional<Ipv4> Ipv4::parse(std::string_view text)
{
    std::uint32_t value = 0;
    int pieces = 0;
    std::size_t start = 0;
    for (;;) {
        const std::size_t dot = text.find('.', start);
        const auto piece = text.substr(start, dot == std::string_view::npos ? std::string_view::npos : dot - start);
        const auto octet = Vorn::parseDecimal(piece);
        if (!octet || *octet < 0 || *octet > 255 || ++pieces > 4)
            return std::nullopt;
        value = (value << 8) | static_cast<std::uint32_t>(*octet);
        if (dot == std::string_view::npos)
            break;
        start = dot + 1;
    }
    if (pieces != 4)
        return std::nullopt;
    return Ipv4(value);
}

std::string Ipv4::toString() const
{
    // Written into one buffer: replies name their unit's address, so this runs for every reply.
    char text[16];
    char* end = text;
    for (const std::uint8_t byte : octets()) {
        if (end != text)
            *end++ = '.';
        end = std::to_chars(end, text + sizeof text, byte).ptr;
    }
    return std::string(text, end);
}

std::optional<std::string> canonicalIpv4(std::string_view text)
{
    const auto address = Ipv4::parse(text);
    return address ? std::optional(address->toString()) : std::nullopt;
}

}  // namespace Settings
