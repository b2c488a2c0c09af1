#include "ReplyInbox.h"

bool ReplyInbox::push(Vorn::Reply reply)
{
    std::lock_guard lock(mutex_);
    replies_.push_back(std::move(reply));
    return replies_.size() == 1;
}

std::vector<Vorn::Reply> ReplyInbox::takeAll()
{
    std::vector<Vorn::Reply> taken;
    std::lock_guard lock(mutex_);
    taken.swap(replies_);
    return taken;
}
