// SPDX-License-Identifier: Apache-2.0
// Loopback test kit: a free UDP port, and a fake unit that sits on 127.0.0.2
// (more specific than the endpoint's wildcard bind, so the kernel hands it the
// datagrams sent there) and answers every datagram it receives.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "UdpTestKit.h"
#include "VornProtocol.h"

namespace TestKit {

inline constexpr const char* kPeerAddress = "127.0.0.2";

using UdpTestKit::bindUdp;
using UdpTestKit::freeUdpPort;
using UdpTestKit::reportDatagram;
using UdpTestKit::sendUdp;

struct Received {
    Vorn::Bytes data;
    std::string sourceIp;
    std::uint16_t sourcePort = 0;
};

class LoopbackPeer {
public:
    // For each received datagram, `answer` returns the datagrams to send back
    // to the sender's address at `port`.
    using Answer = std::function<std::vector<Vorn::Bytes>(const Received&)>;

    LoopbackPeer(std::uint16_t port, Answer answer);
    ~LoopbackPeer();

    // Waits up to two seconds for at least `count` datagrams.
    std::vector<Received> waitForDatagrams(std::size_t count);
    std::vector<Received> received();

private:
    void run();

    std::uint16_t port_;
    Answer answer_;
    int fd_ = -1;
    std::atomic<bool> stop_{false};
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::vector<Received> received_;
    std::thread thread_;
};

}  // namespace TestKit
