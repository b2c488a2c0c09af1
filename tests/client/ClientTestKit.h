// SPDX-License-Identifier: Apache-2.0
// Helpers shared by the client's tests: clients that can reach loopback only,
// a hand-driven clock and waiting on the Qt event loop.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "FakeUnit.h"
#include "VornClient.h"

namespace ClientTest {

// A client whose discovery goes to the fake unit's address on `port`.
std::unique_ptr<VornClient> loopbackClient(std::uint16_t port = freeUdpPort());

// The listed units' addresses, in the client's order.
std::vector<std::string> addresses(const VornClient& client);

// Runs the event loop until `done` holds or `patience` passes; returns `done()`.
bool processEventsUntil(const std::function<bool()>& done,
                        std::chrono::milliseconds patience = std::chrono::seconds(3));

// Time that moves only when a test says so.
class ManualTime {
public:
    // 2024-03-05 14:03:27 UTC, an arbitrary fixed instant.
    static constexpr WallClock::time_point kStart{std::chrono::seconds(1709647407)};

    explicit ManualTime(PresenceClock* clock);
    WallClock::time_point now() const { return *now_; }
    void set(WallClock::time_point instant) { *now_ = instant; }
    void advance(WallClock::duration step) { *now_ += step; }

private:
    std::shared_ptr<WallClock::time_point> now_;
};

}  // namespace ClientTest
