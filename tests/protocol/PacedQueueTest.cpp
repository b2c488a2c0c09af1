// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "PacedQueue.h"

namespace {

std::string address(int n)
{
    return "10.78." + std::to_string(n / 256) + "." + std::to_string(n % 256);
}

}  // namespace

TEST(PacedQueue, HandsOutAtMostOneBurstOfAHundredOldestFirst)
{
    Vorn::PacedQueue queue;
    for (int n = 0; n < 254; ++n)
        EXPECT_TRUE(queue.add(address(n)));
    const auto first = queue.takeBurst();
    ASSERT_EQ(first.size(), 100u);
    EXPECT_EQ(first.front(), address(0));
    EXPECT_EQ(first.back(), address(99));
    EXPECT_EQ(queue.takeBurst().size(), 100u);
    const auto last = queue.takeBurst();
    ASSERT_EQ(last.size(), 54u);
    EXPECT_EQ(last.back(), address(253));
    EXPECT_TRUE(queue.empty());
    EXPECT_TRUE(queue.takeBurst().empty());
}

TEST(PacedQueue, AnAddressWaitsOnlyOnceButMayComeBackAfterItsTurn)
{
    Vorn::PacedQueue queue;
    EXPECT_TRUE(queue.add("10.78.5.1"));
    EXPECT_FALSE(queue.add("10.78.5.1"));
    EXPECT_EQ(queue.size(), 1u);
    EXPECT_EQ(queue.takeBurst(), std::vector<std::string>{"10.78.5.1"});
    EXPECT_TRUE(queue.add("10.78.5.1"));
}

TEST(PacedQueue, RemovedAddressesAreNotSentAndMayBeAddedAgain)
{
    Vorn::PacedQueue queue;
    for (int n = 0; n < 6; ++n)
        queue.add(address(n));
    queue.removeIf([](const std::string& a) { return a.back() % 2 == 1; });
    EXPECT_EQ(queue.takeBurst(), (std::vector<std::string>{address(0), address(2), address(4)}));
    EXPECT_TRUE(queue.add(address(1)));
}
