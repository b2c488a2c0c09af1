// SPDX-License-Identifier: Apache-2.0
// The walk over consecutive host addresses used to number simulated units.
#pragma once

#include <optional>

#include "Ipv4.h"

namespace VornSim {

// The next address whose last octet is neither 0 nor 255; nothing past 255.255.255.254.
std::optional<Settings::Ipv4> nextHostAddress(Settings::Ipv4 address);

// `address` itself when its last octet is usable, else the next one that is.
std::optional<Settings::Ipv4> firstHostAddressFrom(Settings::Ipv4 address);

}  // namespace VornSim
