// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "ClientTestKit.h"

using namespace ClientTest;
using namespace std::chrono_literals;

TEST(Presence, OnlineWhileTheLastReplyIsYoungerThanFifteenSeconds)
{
    const WallClock::time_point seen = ManualTime::kStart;
    EXPECT_TRUE(isPresent(seen, seen));
    EXPECT_TRUE(isPresent(seen, seen + 14999ms));
    EXPECT_FALSE(isPresent(seen, seen + 15s));
    EXPECT_FALSE(isPresent(seen, seen + 1h));
}

TEST(Presence, LastReplyInTheFutureCountsAsPresent)
{
    EXPECT_TRUE(isPresent(ManualTime::kStart + 1h, ManualTime::kStart));
}

TEST(PresenceClock, TellsTheTimeItIsGiven)
{
    PresenceClock clock;
    ManualTime time(&clock);
    EXPECT_EQ(clock.now(), ManualTime::kStart);
    EXPECT_EQ(clock.nowDateTime(), toDateTime(ManualTime::kStart));
    time.advance(14s);
    EXPECT_EQ(clock.nowDateTime(), toDateTime(ManualTime::kStart + 14s));
}

TEST(PresenceClock, EachTickNotifiesOnce)
{
    PresenceClock clock;
    QSignalSpy ticked(&clock, &PresenceClock::ticked);
    clock.tick();
    clock.tick();
    EXPECT_EQ(ticked.count(), 2);
}

TEST(PresenceClock, DateTimeConversionKeepsMilliseconds)
{
    const auto instant = ManualTime::kStart + 123ms;
    EXPECT_EQ(toTimePoint(toDateTime(instant)), instant);
}
