// SPDX-License-Identifier: Apache-2.0
// Loopback UDP helpers shared by the test suites: a free port, plain sockets,
// and datagrams shaped as the units send them.
#pragma once

#include <netinet/in.h>

#include <cstdint>
#include <string>

#include "VornProtocol.h"

namespace UdpTestKit {

// An IPv4 socket address for dotted `address` and `port`.
sockaddr_in endpoint(const char* address, std::uint16_t port);

// A UDP port above 1024, other than the device port, that was free a moment ago.
std::uint16_t freeUdpPort();

// Binds `address`:`port`; without `reuseAddress` it holds the port exclusively.
// Returns the descriptor, or -1.
int bindUdp(const char* address, std::uint16_t port, bool reuseAddress);

// Sends `data` from a fresh socket to address:port.
void sendUdp(const Vorn::Bytes& data, const char* address, std::uint16_t port);

// A configuration report with `unitIp` in its header, as a unit sends it.
Vorn::Bytes reportDatagram(const std::string& unitIp, const Vorn::Config& config,
                           std::uint8_t cmd = Vorn::kCmdReport);

// Sequence number of a request datagram (bytes 14-15, low byte first).
std::uint16_t sequenceOf(const Vorn::Bytes& datagram);

}  // namespace UdpTestKit
