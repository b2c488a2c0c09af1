// SPDX-License-Identifier: Apache-2.0
// Replies held back by the `delay` fault, released in due order by the event
// loop. Time is passed in, so the queue can be driven without waiting.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "Datagram.h"

namespace VornSim {

class ReplyQueue {
public:
    using Clock = std::chrono::steady_clock;

    void schedule(Clock::time_point due, Outgoing reply);

    // Every reply due at or before `now`, earliest first; equal times keep their order.
    std::vector<Outgoing> takeDue(Clock::time_point now);

    // How long poll may wait at `now`: nothing when the queue is empty, 0 when
    // a reply is already due, else the whole milliseconds until the next one, rounded up.
    std::optional<std::chrono::milliseconds> waitAt(Clock::time_point now) const;

    std::size_t size() const { return entries_.size(); }

private:
    struct Entry {
        Clock::time_point due;
        std::uint64_t order;
        Outgoing reply;
    };
    struct Later {
        bool operator()(const Entry& a, const Entry& b) const
        {
            return a.due != b.due ? a.due > b.due : a.order > b.order;
        }
    };

    std::vector<Entry> entries_;  // a heap ordered by Later: the earliest entry first
    std::uint64_t nextOrder_ = 0;
};

}  // namespace VornSim
