// Hand-over of decoded replies from the receive thread to the main thread.
// Replies queue up in arrival order; only the first one into an empty inbox
// asks for a drain, so a burst of replies costs one wake-up of the main thread.
#pragma once

#include <mutex>
#include <vector>

#include "VornProtocol.h"

class ReplyInbox {
public:
    // True when the inbox was empty: the caller schedules a drain.
    bool push(Vorn::Reply reply);

    // Everything queued so far, oldest first; the inbox is empty afterwards.
    std::vector<Vorn::Reply> takeAll();

private:
    std::mutex mutex_;
    std::vector<Vorn::Reply> replies_;
};
