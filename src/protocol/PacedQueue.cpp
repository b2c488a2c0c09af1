// SPDX-License-Identifier: Apache-2.0
#include "PacedQueue.h"

#include <algorithm>

namespace Vorn {

bool PacedQueue::add(const std::string& address)
{
    if (!waiting_.insert(address).second)
        return false;
    order_.push_back(address);
    return true;
}

std::vector<std::string> PacedQueue::takeBurst()
{
    const auto count = std::min(kBurst, order_.size());
    std::vector<std::string> burst(std::make_move_iterator(order_.begin()),
                                   std::make_move_iterator(order_.begin() + static_cast<std::ptrdiff_t>(count)));
    order_.erase(order_.begin(), order_.begin() + static_cast<std::ptrdiff_t>(count));
    for (const auto& address : burst)
        waiting_.erase(address);
    return burst;
}

void PacedQueue::removeIf(const std::function<bool(const std::string&)>& drop)
{
    std::erase_if(order_, [&](const std::string& address) {
        if (!drop(address))
            return false;
        waiting_.erase(address);
        return true;
    });
}

}  // namespace Vorn
