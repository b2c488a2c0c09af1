// SPDX-License-Identifier: Apache-2.0
// Addresses waiting for a unicast discover, handed out in bursts so that a
// scan or the queries of many remembered units never flood a link: at most
// kBurst datagrams every kInterval. Each address waits at most once.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace Vorn {

class PacedQueue {
public:
    static constexpr std::size_t kBurst = 100;
    static constexpr std::chrono::milliseconds kInterval{50};

    // Appends `address` unless it is waiting already; true when appended.
    bool add(const std::string& address);
    // The next burst, oldest first: up to kBurst addresses, taken out.
    std::vector<std::string> takeBurst();
    // Drops every waiting address for which `drop` is true.
    void removeIf(const std::function<bool(const std::string&)>& drop);

    bool empty() const { return order_.empty(); }
    std::size_t size() const { return order_.size(); }

private:
    std::deque<std::string> order_;
    std::set<std::string> waiting_;
};

}  // namespace Vorn
