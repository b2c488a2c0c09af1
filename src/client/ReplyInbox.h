// SPDX-License-Identifier: Apache-2.0
// Hand-over of decoded replies from the receive thread to the main thread.
// Replies queue up in arrival order; only the first one into an empty inbox
// asks for a drain, so a burst of replies costs one wake-up of the main thread.
// The main thread takes them once the burst has paused: a discover makes
// every unit answer at once, and a main thread busy with rows while the
// burst still arrives takes the processor from the receive thread, so the
// kernel's receive buffer overflows and replies are lost. A stream that never
// pauses is taken after a bounded wait, or sooner once it holds many bytes.
#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <vector>

#include "VornProtocol.h"
#include "VornSocket.h"

// A decoded reply and the interface its datagram came in on.
struct HeardReply {
    // Implicit: a reply whose arrival is unknown.
    HeardReply(Vorn::Reply decoded, Vorn::Arrival heardOn = {}) : reply(std::move(decoded)), arrival(heardOn) {}

    Vorn::Reply reply;
    Vorn::Arrival arrival;
};

class ReplyInbox {
public:
    using Clock = std::chrono::steady_clock;

    struct Limits {
        Clock::duration quiet;     // a burst has ended when nothing came for this long
        Clock::duration longest;   // the oldest queued reply waits no longer than this
        std::size_t mostBytes;     // datagram bytes queued before a drain is due at once
    };

    explicit ReplyInbox(Limits limits) : limits_(limits) {}

    // Queues a reply decoded from a datagram of `bytes` bytes. True when the
    // caller should schedule a drain: the inbox was empty, or it has just
    // reached its byte limit.
    bool push(HeardReply reply, std::size_t bytes, Clock::time_point now = Clock::now());

    // How long a drain should still wait at `now`; zero when it is time, or
    // when the inbox is empty.
    Clock::duration settleWait(Clock::time_point now) const;

    // Everything queued so far, oldest first; the inbox is empty afterwards.
    std::vector<HeardReply> takeAll();

private:
    const Limits limits_;
    mutable std::mutex mutex_;
    std::vector<HeardReply> replies_;
    std::size_t bytes_ = 0;
    Clock::time_point firstAt_;
    Clock::time_point lastAt_;
};
