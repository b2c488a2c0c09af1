// SPDX-License-Identifier: Apache-2.0
#include "HostAddresses.h"

namespace VornSim {
namespace {

bool isHostOctet(std::uint32_t address)
{
    const auto last = address & 0xFF;
    return last != 0 && last != 255;
}

}  // namespace

std::optional<Settings::Ipv4> nextHostAddress(Settings::Ipv4 address)
{
    std::uint32_t value = address.value();
    while (value < 0xFFFFFFFEu) {
        ++value;
        if (isHostOctet(value))
            return Settings::Ipv4(value);
    }
    return std::nullopt;
}

std::optional<Settings::Ipv4> firstHostAddressFrom(Settings::Ipv4 address)
{
    return isHostOctet(address.value()) ? std::optional(address) : nextHostAddress(address);
}

}  // namespace VornSim
