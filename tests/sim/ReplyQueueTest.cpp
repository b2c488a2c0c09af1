// SPDX-License-Identifier: Apache-2.0
#include "ReplyQueue.h"

#include <gtest/gtest.h>

namespace VornSim {
namespace {

using std::chrono::milliseconds;
const ReplyQueue::Clock::time_point kStart{std::chrono::seconds(1000)};

Outgoing replyTo(std::string ip)
{
    return Outgoing{{0x01}, "10.0.0.1", std::move(ip), milliseconds(0)};
}

TEST(ReplyQueue, EmptyQueueLetsPollWaitForever)
{
    ReplyQueue queue;
    EXPECT_EQ(queue.waitAt(kStart), std::nullopt);
    EXPECT_TRUE(queue.takeDue(kStart).empty());
}

TEST(ReplyQueue, ReplyIsHeldUntilItsTime)
{
    ReplyQueue queue;
    queue.schedule(kStart + milliseconds(200), replyTo("a"));
    EXPECT_EQ(queue.waitAt(kStart), milliseconds(200));
    EXPECT_TRUE(queue.takeDue(kStart + milliseconds(199)).empty());
    const auto due = queue.takeDue(kStart + milliseconds(200));
    ASSERT_EQ(due.size(), 1u);
    EXPECT_EQ(due[0].toIp, "a");
    EXPECT_EQ(queue.size(), 0u);
}

TEST(ReplyQueue, WaitRoundsUpToWholeMilliseconds)
{
    ReplyQueue queue;
    queue.schedule(kStart + std::chrono::microseconds(1500), replyTo("a"));
    EXPECT_EQ(queue.waitAt(kStart), milliseconds(2));
    EXPECT_EQ(queue.waitAt(kStart + milliseconds(5)), milliseconds(0));
}

TEST(ReplyQueue, DueRepliesComeEarliestFirstAndTiesKeepTheirOrder)
{
    ReplyQueue queue;
    queue.schedule(kStart + milliseconds(300), replyTo("late"));
    queue.schedule(kStart + milliseconds(100), replyTo("first"));
    queue.schedule(kStart + milliseconds(100), replyTo("second"));
    queue.schedule(kStart + milliseconds(900), replyTo("later still"));
    EXPECT_EQ(queue.waitAt(kStart), milliseconds(100));
    const auto due = queue.takeDue(kStart + milliseconds(500));
    ASSERT_EQ(due.size(), 3u);
    EXPECT_EQ(due[0].toIp, "first");
    EXPECT_EQ(due[1].toIp, "second");
    EXPECT_EQ(due[2].toIp, "late");
    EXPECT_EQ(queue.size(), 1u);
    EXPECT_EQ(queue.waitAt(kStart + milliseconds(500)), milliseconds(400));
}

}  // namespace
}  // namespace VornSim
