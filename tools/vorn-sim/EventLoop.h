// SPDX-License-Identifier: Apache-2.0
// The simulator's single thread: waits on the listening socket, a stop pipe
// and the next delayed reply; logs every datagram, lets the units respond,
// sends their replies now or when due.
#pragma once

#include <cstdint>
#include <ostream>
#include <set>
#include <vector>

#include "SimDice.h"
#include "FileDescriptor.h"
#include "ReplyQueue.h"
#include "UdpEndpoint.h"
#include "Unit.h"

namespace VornSim {

class EventLoop {
public:
    // `log` may be null (no log); it is written from the loop's thread only.
    EventLoop(UdpEndpoint endpoint, std::vector<Unit> units, std::uint64_t seed, std::ostream* log);
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    // Runs until requestStop(); false when waiting itself failed.
    bool run();

    // Safe from a signal handler or another thread: one write() to a pipe.
    void requestStop();

    const std::vector<Unit>& units() const { return units_; }

private:
    void receiveWaiting();
    void handle(const Datagram& datagram);
    void send(const Outgoing& reply);
    void reportSendFailure(const Outgoing& reply, int error);

    UdpEndpoint endpoint_;
    std::vector<Unit> units_;
    SimDice dice_;
    ReplyQueue delayed_;
    std::ostream* log_;
    FileDescriptor stopRead_;
    FileDescriptor stopWrite_;
    std::set<int> reportedErrors_;
};

}  // namespace VornSim
