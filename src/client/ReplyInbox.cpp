// SPDX-License-Identifier: Apache-2.0
#include "ReplyInbox.h"

#include <algorithm>

bool ReplyInbox::push(HeardReply reply, std::size_t bytes, Clock::time_point now)
{
    std::lock_guard lock(mutex_);
    replies_.push_back(std::move(reply));
    lastAt_ = now;
    const bool wasFull = bytes_ >= limits_.mostBytes;
    bytes_ += bytes;
    if (replies_.size() == 1) {
        firstAt_ = now;
        return true;
    }
    return !wasFull && bytes_ >= limits_.mostBytes;
}

ReplyInbox::Clock::duration ReplyInbox::settleWait(Clock::time_point now) const
{
    std::lock_guard lock(mutex_);
    if (replies_.empty() || bytes_ >= limits_.mostBytes)
        return Clock::duration::zero();
    const auto due = std::min(lastAt_ + limits_.quiet, firstAt_ + limits_.longest);
    return std::max(due - now, Clock::duration::zero());
}

std::vector<HeardReply> ReplyInbox::takeAll()
{
    std::vector<HeardReply> taken;
    std::lock_guard lock(mutex_);
    taken.swap(replies_);
    bytes_ = 0;
    return taken;
}
