// SPDX-License-Identifier: Apache-2.0
#include "Ipv4.h"

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
    const auto bytes = octets();
    return std::to_string(bytes[0]) + '.' + std::to_string(bytes[1]) + '.' + std::to_string(bytes[2]) + '.'
        + std::to_string(bytes[3]);
}

std::optional<std::string> canonicalIpv4(std::string_view text)
{
    const auto address = Ipv4::parse(text);
    return address ? std::optional(address->toString()) : std::nullopt;
}

}  // namespace Settings
