// SPDX-License-Identifier: Apache-2.0
// A datagram as the simulator sees it on the way in, and one it will send.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "VornProtocol.h"

namespace VornSim {

struct Datagram {
    Vorn::Bytes bytes;
    std::string srcIp;
    std::uint16_t srcPort = 0;
    std::string dstIp;  // the address it was sent to (a unit's, or a broadcast)

    bool operator==(const Datagram&) const = default;
};

// Sent to toIp at the listening port, from fromIp when that address is local.
struct Outgoing {
    Vorn::Bytes bytes;
    std::string fromIp;
    std::string toIp;
    std::chrono::milliseconds delay{0};

    bool operator==(const Outgoing&) const = default;
};

}  // namespace VornSim
