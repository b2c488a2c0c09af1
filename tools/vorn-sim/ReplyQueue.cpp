// SPDX-License-Identifier: Apache-2.0
#include "ReplyQueue.h"

#include <algorithm>

namespace VornSim {

void ReplyQueue::schedule(Clock::time_point due, Outgoing reply)
{
    entries_.push_back(Entry{due, nextOrder_++, std::move(reply)});
    std::push_heap(entries_.begin(), entries_.end(), Later{});
}

std::vector<Outgoing> ReplyQueue::takeDue(Clock::time_point now)
{
    std::vector<Outgoing> due;
    while (!entries_.empty() && entries_.front().due <= now) {
        std::pop_heap(entries_.begin(), entries_.end(), Later{});
        due.push_back(std::move(entries_.back().reply));
        entries_.pop_back();
    }
    return due;
}

std::optional<std::chrono::milliseconds> ReplyQueue::waitAt(Clock::time_point now) const
{
    if (entries_.empty())
        return std::nullopt;
    const auto next = entries_.front().due;
    if (next <= now)
        return std::chrono::milliseconds(0);
    return std::chrono::ceil<std::chrono::milliseconds>(next - now);
}

}  // namespace VornSim
