// SPDX-License-Identifier: Apache-2.0
// Reply storms: N simulated units all answering each discover at once. The
// program must list every one of them within a few discovery rounds by
// itself (200 and 1,000 units: within two); how many it lists after each
// round is recorded.
#include <algorithm>

#include "StressTestCase.h"

namespace {

constexpr int kRoundMs = 5000;  // the discovery interval
constexpr int kMaxRounds = 6;

struct Storm {
    int units;
    int roundsAllowed;  // every unit listed by the end of this discovery round
};

class StormOnLan : public StressTestCase, public ::testing::WithParamInterface<Storm> {};

TEST_P(StormOnLan, EveryUnitIsListedWithinAFewRounds)
{
    const int units = GetParam().units;
    LanTest::Simulator simulator(lan(), {"--count", std::to_string(units), "--first-ip", "10.232.1.1"}, dir());
    startWindow();

    // The probe starts with the client, so the reports before 5000 ms belong
    // to the first round, those before 10000 ms to the second, and so on.
    // Wait for three rounds, and on until every unit is listed or kMaxRounds end.
    const auto done = waitForReport(
        [&](const auto& r) {
            return r.atMs >= 3 * kRoundMs - 1000 && (r.rows >= units || r.atMs >= kMaxRounds * kRoundMs);
        },
        std::chrono::seconds(kMaxRounds * kRoundMs / 1000 + 30));
    const auto all = reports();
    ASSERT_FALSE(all.empty()) << windowErrors();
    // A round's figure is the last report before its end, once the reports reach its last second.
    for (int round = 1; round <= kMaxRounds && all.back().atMs >= round * kRoundMs - 1000; ++round) {
        int rows = 0;
        for (const auto& r : all) {
            if (r.atMs < round * kRoundMs)
                rows = r.rows;
        }
        record("listed_after_round_" + std::to_string(round), rows);
    }
    const auto full = std::find_if(all.begin(), all.end(), [&](const auto& r) { return r.rows >= units; });
    const int roundsNeeded = full == all.end() ? 0 : static_cast<int>(full->atMs / kRoundMs) + 1;
    record("rounds_to_list_all", roundsNeeded);
    record("dropped_buffer_full", udpCounters().receiveBufferErrors);

    ASSERT_TRUE(windowRunning()) << windowErrors();
    EXPECT_EQ(done.rows, units) << "listed " << done.rows << " of " << units << " after " << done.atMs << " ms";
    EXPECT_GE(roundsNeeded, 1);
    EXPECT_LE(roundsNeeded, GetParam().roundsAllowed);
}

INSTANTIATE_TEST_SUITE_P(Units, StormOnLan, ::testing::Values(Storm{200, 2}, Storm{1000, 2}, Storm{5000, kMaxRounds}));

}  // namespace
