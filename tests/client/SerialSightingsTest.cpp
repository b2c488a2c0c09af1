// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "SerialSightings.h"

using namespace std::chrono_literals;

namespace {

const SerialSightings::Clock::time_point kStart{std::chrono::seconds(1709647407)};

}  // namespace

TEST(SerialSightings, OneSerialHeardAgainAndAgainIsNoConflict)
{
    SerialSightings sightings;
    for (int second = 0; second < 40; second += 5)
        sightings.record("KT4-0001B7", kStart + std::chrono::seconds(second));
    EXPECT_FALSE(sightings.conflict(kStart + 40s));
    EXPECT_EQ(sightings.seenWithin(kStart + 40s), std::vector<std::string>{"KT4-0001B7"});
}

TEST(SerialSightings, TwoSerialsWithinFifteenSecondsAreAConflict)
{
    SerialSightings sightings;
    sightings.record("KT4-0001B7", kStart);
    sightings.record("KT4-0002C9", kStart + 14s);
    EXPECT_TRUE(sightings.conflict(kStart + 14s));
    EXPECT_EQ(sightings.seenWithin(kStart + 14s), (std::vector<std::string>{"KT4-0001B7", "KT4-0002C9"}));
}

TEST(SerialSightings, TwoSerialsFifteenSecondsApartAreNot)
{
    SerialSightings sightings;
    sightings.record("KT4-0001B7", kStart);
    sightings.record("KT4-0002C9", kStart + 15s);
    EXPECT_FALSE(sightings.conflict(kStart + 15s));
    EXPECT_EQ(sightings.seenWithin(kStart + 15s), std::vector<std::string>{"KT4-0002C9"});
}

TEST(SerialSightings, ConflictClearsFifteenSecondsAfterTheOtherSerialWasLastHeard)
{
    SerialSightings sightings;
    sightings.record("KT4-0001B7", kStart);
    sightings.record("KT4-0002C9", kStart + 1s);
    // Only the first keeps answering.
    for (int second = 5; second <= 15; second += 5)
        sightings.record("KT4-0001B7", kStart + std::chrono::seconds(second));
    EXPECT_TRUE(sightings.conflict(kStart + 15s));
    EXPECT_FALSE(sightings.conflict(kStart + 16s)) << "judged by time alone, without a new reply";
    EXPECT_EQ(sightings.seenWithin(kStart + 16s), std::vector<std::string>{"KT4-0001B7"});
}

TEST(SerialSightings, SerialsKeepFirstHeardOrderWhileTheyAlternate)
{
    SerialSightings sightings;
    sightings.record("B", kStart);
    sightings.record("A", kStart + 1s);
    sightings.record("B", kStart + 2s);
    sightings.record("C", kStart + 3s);
    sightings.record("A", kStart + 4s);
    EXPECT_EQ(sightings.seenWithin(kStart + 4s), (std::vector<std::string>{"B", "A", "C"}));
}

TEST(SerialSightings, ASerialThatReturnsAfterTheWindowCountsAsNewlyHeard)
{
    SerialSightings sightings;
    sightings.record("A", kStart);
    sightings.record("B", kStart + 10s);
    sightings.record("A", kStart + 20s);
    EXPECT_EQ(sightings.seenWithin(kStart + 20s), (std::vector<std::string>{"B", "A"}));
}
