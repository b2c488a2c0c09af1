#include "Ipv4.h"

#include <arpa/inet.h>

namespace VornSim {
namespace {

bool isHostOctet(std::uint32_t address)
{
    const auto last = address & 0xFF;
    return last != 0 && last != 255;
}

}  // namespace

std::optional<std::uint32_t> parseIpv4(std::string_view text)
{
    // inet_pton is strict about form (exactly four parts, no leading zeros)
    // but needs a terminated string.
    const std::string terminated(text);
    in_addr parsed{};
    if (inet_pton(AF_INET, terminated.c_str(), &parsed) != 1)
        return std::nullopt;
    return ntohl(parsed.s_addr);
}

std::string formatIpv4(std::uint32_t address)
{
    return std::to_string(address >> 24) + '.' + std::to_string((address >> 16) & 0xFF) + '.' +
           std::to_string((address >> 8) & 0xFF) + '.' + std::to_string(address & 0xFF);
}

std::optional<std::uint32_t> nextHostAddress(std::uint32_t address)
{
    while (address < 0xFFFFFFFEu) {
        ++address;
        if (isHostOctet(address))
            return address;
    }
    return std::nullopt;
}

std::optional<std::uint32_t> firstHostAddressFrom(std::uint32_t address)
{
    return isHostOctet(address) ? std::optional(address) : nextHostAddress(address);
}

}  // namespace VornSim
