// SPDX-License-Identifier: Apache-2.0
// Loopback stand-in for a base station: a socket on 127.0.0.2 at the test
// port (more specific than the client's wildcard bind, so the kernel hands it
// what the client sends there) that records datagrams and sends reports to
// 127.0.0.1 at the same port, where the client listens.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "UdpTestKit.h"
#include "VornProtocol.h"

namespace ClientTest {

inline constexpr const char* kUnitAddress = "127.0.0.2";
inline constexpr const char* kClientAddress = "127.0.0.1";

using UdpTestKit::bindUdp;
using UdpTestKit::freeUdpPort;
using UdpTestKit::reportDatagram;
using UdpTestKit::sequenceOf;

class FakeUnit {
public:
    FakeUnit(std::uint16_t port, const char* address = kUnitAddress, bool reuseAddress = true);
    ~FakeUnit();
    FakeUnit(const FakeUnit&) = delete;
    FakeUnit& operator=(const FakeUnit&) = delete;

    bool isBound() const { return fd_ >= 0; }

    // Everything received so far once `count` datagrams have arrived or
    // `patience` has passed, whichever comes first.
    std::vector<Vorn::Bytes> receive(std::size_t count,
                                     std::chrono::milliseconds patience = std::chrono::seconds(3));

    // Datagrams that arrive within `window`; for checking that nothing came.
    std::vector<Vorn::Bytes> receiveWithin(std::chrono::milliseconds window);

    // Sends one datagram to the client's listening socket.
    void sendToClient(const Vorn::Bytes& datagram) const;

private:
    std::uint16_t port_;
    int fd_ = -1;
    std::vector<Vorn::Bytes> received_;
};

}  // namespace ClientTest
