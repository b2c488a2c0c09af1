// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <thread>

#include "ReplyInbox.h"

using namespace std::chrono_literals;

namespace {

constexpr ReplyInbox::Limits kLimits{20ms, 250ms, 1000};
constexpr std::size_t kBytes = 100;  // each test datagram's size
const ReplyInbox::Clock::time_point kStart{1h};

Vorn::Reply reportFrom(const std::string& ip)
{
    return Vorn::Reply{ip, Vorn::kCmdReport, {{"Serial", ip}}};
}

}  // namespace

TEST(ReplyInbox, OnlyTheFirstReplyIntoAnEmptyInboxAsksForADrain)
{
    ReplyInbox inbox(kLimits);
    EXPECT_TRUE(inbox.push(reportFrom("10.0.0.1"), kBytes, kStart));
    EXPECT_FALSE(inbox.push(reportFrom("10.0.0.2"), kBytes, kStart));
    EXPECT_EQ(inbox.takeAll().size(), 2u);
    EXPECT_TRUE(inbox.push(reportFrom("10.0.0.3"), kBytes, kStart));
}

TEST(ReplyInbox, TakesEverythingInArrivalOrderAndEmpties)
{
    ReplyInbox inbox(kLimits);
    for (const auto* ip : {"10.0.0.9", "10.0.0.10", "10.0.0.1"})
        inbox.push(reportFrom(ip), kBytes, kStart);
    const auto taken = inbox.takeAll();
    ASSERT_EQ(taken.size(), 3u);
    EXPECT_EQ(taken[0].reply.deviceIp, "10.0.0.9");
    EXPECT_EQ(taken[1].reply.deviceIp, "10.0.0.10");
    EXPECT_EQ(taken[2].reply.deviceIp, "10.0.0.1");
    EXPECT_TRUE(inbox.takeAll().empty());
}

TEST(ReplyInbox, EachReplyKeepsItsArrivalInterface)
{
    ReplyInbox inbox(kLimits);
    inbox.push(HeardReply(reportFrom("10.0.0.1"), Vorn::Arrival{3, 0x0a4d0105}), kBytes, kStart);
    inbox.push(reportFrom("10.0.0.2"), kBytes, kStart);
    const auto taken = inbox.takeAll();
    ASSERT_EQ(taken.size(), 2u);
    EXPECT_EQ(taken[0].arrival, (Vorn::Arrival{3, 0x0a4d0105}));
    EXPECT_FALSE(taken[1].arrival.known());
}

TEST(ReplyInbox, AnEmptyInboxNeverWaits)
{
    ReplyInbox inbox(kLimits);
    EXPECT_EQ(inbox.settleWait(kStart), 0ms);
}

TEST(ReplyInbox, WaitsUntilTheBurstHasBeenQuiet)
{
    ReplyInbox inbox(kLimits);
    inbox.push(reportFrom("10.0.0.1"), kBytes, kStart);
    EXPECT_EQ(inbox.settleWait(kStart), 20ms);
    EXPECT_EQ(inbox.settleWait(kStart + 5ms), 15ms);
    // Each new reply starts the quiet time again.
    inbox.push(reportFrom("10.0.0.2"), kBytes, kStart + 15ms);
    EXPECT_EQ(inbox.settleWait(kStart + 20ms), 15ms);
    EXPECT_EQ(inbox.settleWait(kStart + 35ms), 0ms);
    EXPECT_EQ(inbox.settleWait(kStart + 1s), 0ms);
}

TEST(ReplyInbox, AStreamThatNeverPausesIsTakenAfterTheLongestWait)
{
    ReplyInbox inbox(kLimits);
    for (auto at = kStart; at < kStart + 400ms; at += 1ms)
        inbox.push(reportFrom("10.0.0.1"), 0, at);
    EXPECT_EQ(inbox.settleWait(kStart + 240ms), 10ms);
    EXPECT_EQ(inbox.settleWait(kStart + 250ms), 0ms);
    // The next burst is timed from its own first reply.
    inbox.takeAll();
    inbox.push(reportFrom("10.0.0.1"), kBytes, kStart + 400ms);
    EXPECT_EQ(inbox.settleWait(kStart + 400ms), 20ms);
}

TEST(ReplyInbox, ManyQueuedBytesMakeTheDrainDueAtOnce)
{
    ReplyInbox inbox(kLimits);
    EXPECT_TRUE(inbox.push(reportFrom("10.0.0.1"), 400, kStart));
    EXPECT_FALSE(inbox.push(reportFrom("10.0.0.2"), 400, kStart));
    EXPECT_EQ(inbox.settleWait(kStart), 20ms);
    // Reaching the limit asks for a drain once, and the wait is over.
    EXPECT_TRUE(inbox.push(reportFrom("10.0.0.3"), 400, kStart));
    EXPECT_FALSE(inbox.push(reportFrom("10.0.0.4"), 400, kStart));
    EXPECT_EQ(inbox.settleWait(kStart), 0ms);
    // Taking them starts the count again.
    EXPECT_EQ(inbox.takeAll().size(), 4u);
    EXPECT_TRUE(inbox.push(reportFrom("10.0.0.5"), 400, kStart));
    EXPECT_EQ(inbox.settleWait(kStart), 20ms);
}

TEST(ReplyInbox, TheReceiveThreadPushesWhileTheMainThreadTakes)
{
    ReplyInbox inbox(kLimits);
    constexpr int kReplies = 20000;
    int drainsAsked = 0;
    std::thread receiver([&] {
        for (int i = 0; i < kReplies; ++i) {
            if (inbox.push(reportFrom(std::to_string(i)), kBytes))
                ++drainsAsked;
        }
    });
    std::vector<Vorn::Reply> seen;
    while (seen.size() < kReplies) {
        for (auto& reply : inbox.takeAll())
            seen.push_back(std::move(reply.reply));
    }
    receiver.join();
    for (int i = 0; i < kReplies; ++i)
        ASSERT_EQ(seen[static_cast<std::size_t>(i)].deviceIp, std::to_string(i));
    EXPECT_GE(drainsAsked, 1);
}
