// SPDX-License-Identifier: Apache-2.0
// The device table, lookup, log and sequence counter, driven through ingest
// without any network traffic.
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <algorithm>
#include <random>
#include <set>

#include "ClientTestKit.h"
#include "LogTime.h"

using namespace ClientTest;
using namespace std::chrono_literals;

namespace {

Vorn::Reply report(const std::string& ip, Vorn::Config config = {})
{
    return Vorn::Reply{ip, Vorn::kCmdReport, std::move(config)};
}

}  // namespace

TEST(ClientState, StartsWithStatusStartingAndEllipsisAndEmptyTableAndLog)
{
    const auto client = loopbackClient();
    EXPECT_EQ(client->status(), QString::fromUtf8("starting\xE2\x80\xA6"));
    EXPECT_TRUE(client->devices().empty());
    EXPECT_TRUE(client->log().isEmpty());
    EXPECT_EQ(client->deviceCount(), 0);
    EXPECT_FALSE(client->socket().isListening());
}

TEST(ClientState, SequenceNumberIsDrawnFrom1To30000)
{
    std::set<std::uint16_t> drawn;
    for (int i = 0; i < 200; ++i) {
        const auto seq = loopbackClient()->seq();
        EXPECT_GE(seq, 1);
        EXPECT_LE(seq, 30000);
        drawn.insert(seq);
    }
    EXPECT_GT(drawn.size(), 1u);
}

TEST(ClientState, SequenceRuleStepsBeforeUseAndWrapsFrom65535To0)
{
    const auto client = loopbackClient();
    client->setSeq(41);
    EXPECT_EQ(client->nextSeq(), 42);
    client->setSeq(65535);
    EXPECT_EQ(client->nextSeq(), 0);
    EXPECT_EQ(client->seq(), 0);
}

TEST(ClientIngest, NewUnitIsAddedWithNowAndLoggedAsFound)
{
    const auto client = loopbackClient();
    ManualTime time(client->clock());
    QSignalSpy countSpy(client.get(), &VornClient::deviceCountChanged);
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);

    client->ingest(report("192.168.1.40", {{"Serial", "KT40012345"}}));

    ASSERT_EQ(client->devices().size(), 1u);
    EXPECT_EQ(client->devices()[0], (Device{"192.168.1.40", {{"Serial", "KT40012345"}}, time.now()}));
    EXPECT_EQ(countSpy.count(), 1);
    EXPECT_EQ(logSpy.count(), 1);
    ASSERT_EQ(client->log().size(), 1);
    EXPECT_TRUE(client->log()[0].endsWith(QStringLiteral("  found 192.168.1.40")));
}

TEST(ClientIngest, LogLineIsLocalTimeWithSecondsTwoBlanksAndMessage)
{
    const auto client = loopbackClient();
    ManualTime time(client->clock());
    client->ingest(report("192.168.1.40"));
    const QString expected = logTimeText(toDateTime(time.now())) + QStringLiteral("  found 192.168.1.40");
    EXPECT_EQ(client->log().value(0), expected);
    // The fixed instant has 27 seconds in every time zone with whole-minute offsets.
    EXPECT_TRUE(client->log().value(0).contains(QStringLiteral("27")));
}

TEST(ClientIngest, KnownUnitGetsItsConfigReplacedWholeAndLastSeenRefreshed)
{
    const auto client = loopbackClient();
    ManualTime time(client->clock());
    client->ingest(report("10.0.0.9", {{"Channel", "3"}, {"Band", "2"}}));
    time.advance(4s);
    QSignalSpy countSpy(client.get(), &VornClient::deviceCountChanged);
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);
    QSignalSpy updatedSpy(client.get(), &VornClient::devicesUpdated);

    client->ingest(report("10.0.0.9", {{"Channel", "5"}}));

    ASSERT_EQ(client->devices().size(), 1u);
    EXPECT_EQ(client->devices()[0].config, (Vorn::Config{{"Channel", "5"}}));
    EXPECT_EQ(client->devices()[0].lastSeen, time.now());
    EXPECT_EQ(countSpy.count(), 0);
    EXPECT_EQ(logSpy.count(), 0);
    ASSERT_EQ(updatedSpy.count(), 1);
    EXPECT_EQ(updatedSpy.at(0).at(0).toInt(), 0);
    EXPECT_EQ(updatedSpy.at(0).at(1).toInt(), 0);
}

TEST(ClientIngest, IdenticalReplyStillRefreshesLastSeen)
{
    const auto client = loopbackClient();
    ManualTime time(client->clock());
    client->ingest(report("10.0.0.9", {{"Channel", "3"}}));
    const Device before = client->devices()[0];
    time.advance(1s);
    client->ingest(report("10.0.0.9", {{"Channel", "3"}}));
    EXPECT_EQ(client->devices()[0].lastSeen, before.lastSeen + 1s);
    EXPECT_NE(client->devices()[0], before);
}

TEST(ClientIngest, ReplyWithAnotherCommandIsIgnored)
{
    const auto client = loopbackClient();
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);
    QSignalSpy statusSpy(client.get(), &VornClient::statusChanged);
    client->ingest(Vorn::Reply{"10.0.0.9", Vorn::kCmdWrite, {{"Channel", "3"}}});
    client->ingest(Vorn::Reply{"10.0.0.9", std::nullopt, {{"Channel", "3"}}});
    EXPECT_TRUE(client->devices().empty());
    EXPECT_EQ(logSpy.count(), 0);
    EXPECT_EQ(statusSpy.count(), 0);
}

TEST(ClientIngest, HostsOwnDiscoverReadAsReplyIsIgnored)
{
    const auto client = loopbackClient();
    const auto own = Vorn::parse(Vorn::discoverPacket(7));
    ASSERT_TRUE(own.has_value());
    client->ingest(*own);
    EXPECT_TRUE(client->devices().empty());
}

TEST(ClientIngest, TableIsOrderedByAddressTextNotByNumber)
{
    const auto client = loopbackClient();
    for (const char* ip : {"192.168.1.20", "10.0.0.9", "192.168.1.100", "10.0.0.10", "192.168.1.3"})
        client->ingest(report(ip));
    EXPECT_EQ(addresses(*client), (std::vector<std::string>{"10.0.0.10", "10.0.0.9", "192.168.1.100",
                                                            "192.168.1.20", "192.168.1.3"}));
}

TEST(ClientIngest, NewUnitAt10_0_0_10JoiningTableWith10_0_0_9IsPlacedBeforeIt)
{
    const auto client = loopbackClient();
    client->ingest(report("10.0.0.9"));
    QSignalSpy aboutSpy(client.get(), &VornClient::deviceAboutToBeAdded);
    client->ingest(report("10.0.0.10"));
    EXPECT_EQ(addresses(*client), (std::vector<std::string>{"10.0.0.10", "10.0.0.9"}));
    ASSERT_EQ(aboutSpy.count(), 1);
    EXPECT_EQ(aboutSpy.at(0).at(0).toInt(), 0);
}

TEST(ClientIngest, ManyUnitsInRandomOrderEndInTextOrderWithOneEntryEach)
{
    const auto client = loopbackClient();
    std::vector<std::string> ips;
    for (int third = 0; third < 12; ++third)
        for (int fourth = 0; fourth < 40; ++fourth)
            ips.push_back("10.232." + std::to_string(third) + "." + std::to_string(fourth));
    std::vector<std::string> arrival = ips;
    arrival.insert(arrival.end(), ips.begin(), ips.begin() + 100);
    std::shuffle(arrival.begin(), arrival.end(), std::mt19937(12345));
    for (const auto& ip : arrival)
        client->ingest(report(ip));
    std::sort(ips.begin(), ips.end());
    EXPECT_EQ(addresses(*client), ips);
}

TEST(ClientLookup, DeviceMatchesTheAddressTextExactly)
{
    const auto client = loopbackClient();
    client->ingest(report("10.0.0.1", {{"Channel", "3"}}));
    client->ingest(report("10.0.0.10"));
    ASSERT_TRUE(client->device("10.0.0.1").has_value());
    EXPECT_EQ(client->device("10.0.0.1")->config.at("Channel"), "3");
    EXPECT_FALSE(client->device("10.0.0.01").has_value());
    EXPECT_FALSE(client->device(" 10.0.0.1").has_value());
    EXPECT_FALSE(client->device("10.0.0.2").has_value());
    EXPECT_EQ(client->indexOf("10.0.0.1"), 0);
    EXPECT_EQ(client->indexOf("10.0.0.10"), 1);
    EXPECT_EQ(client->indexOf("10.0.0.100"), -1);
}

TEST(ClientLookup, DeviceDataGivesViewsTheRecordAsQtValues)
{
    const auto client = loopbackClient();
    ManualTime time(client->clock());
    client->ingest(report("10.0.0.1", {{"Serial", "KT400ABCDEF"}, {"Channel", "3"}}));
    const QVariantMap data = client->deviceData(QStringLiteral("10.0.0.1"));
    EXPECT_EQ(data.value("ip").toString(), QStringLiteral("10.0.0.1"));
    EXPECT_EQ(data.value("title").toString(), QStringLiteral("KT400 \u00B7ABCDEF"));
    EXPECT_EQ(data.value("lastSeen").toDateTime(), toDateTime(time.now()));
    EXPECT_EQ(data.value("config").toMap().value("Channel").toString(), QStringLiteral("3"));
    EXPECT_TRUE(client->deviceData(QStringLiteral("10.0.0.2")).isEmpty());
}

TEST(ClientLog, The201stLinePushesTheFirstOneOut)
{
    const auto client = loopbackClient();
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);
    for (int i = 0; i < 200; ++i)
        client->ingest(report("10.1." + std::to_string(i / 100) + "." + std::to_string(i % 100)));
    ASSERT_EQ(client->log().size(), 200);
    EXPECT_TRUE(client->log().first().endsWith(QStringLiteral("found 10.1.0.0")));

    client->ingest(report("10.2.0.0"));
    EXPECT_EQ(client->log().size(), 200);
    EXPECT_TRUE(client->log().first().endsWith(QStringLiteral("found 10.1.0.1")));
    EXPECT_TRUE(client->log().last().endsWith(QStringLiteral("found 10.2.0.0")));
    EXPECT_EQ(logSpy.count(), 201);

    for (int i = 0; i < 50; ++i)
        client->ingest(report("10.3.0." + std::to_string(i)));
    EXPECT_EQ(client->log().size(), 200);
}

TEST(ClientLog, ABurstOf2500NewUnitsTakenTogetherChangesTheLogOnce)
{
    const auto client = loopbackClient();
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);
    QSignalSpy inserted(client->activity(), &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(client->activity(), &QAbstractItemModel::modelReset);
    QSignalSpy countSpy(client.get(), &VornClient::deviceCountChanged);
    std::vector<HeardReply> burst;
    for (int i = 0; i < 2500; ++i)
        burst.emplace_back(report("10.4." + std::to_string(i / 250) + "." + std::to_string(i % 250)));
    client->ingestAll(std::move(burst));
    EXPECT_EQ(client->deviceCount(), 2500);
    EXPECT_EQ(countSpy.count(), 1);
    EXPECT_EQ(logSpy.count(), 1);
    EXPECT_EQ(inserted.count() + reset.count(), 1);
    EXPECT_EQ(client->log().size(), 200);
    EXPECT_EQ(client->activity()->rowCount(), 200);
    EXPECT_TRUE(client->log().last().endsWith(QStringLiteral("found 10.4.9.249")));
}

TEST(ClientLog, ABatchOfRepliesFromKnownUnitsLeavesTheLogAlone)
{
    const auto client = loopbackClient();
    client->ingest(report("10.5.0.1"));
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);
    std::vector<HeardReply> batch;
    batch.emplace_back(report("10.5.0.1", {{"Channel", "2"}}));
    client->ingestAll(std::move(batch));
    EXPECT_EQ(logSpy.count(), 0);
    EXPECT_EQ(client->log().size(), 1);
}
