// SPDX-License-Identifier: Apache-2.0
// Remembered units, paced unicast discovers and forgetting a unit, on
// loopback: the client "broadcasts" to a fake unit on 127.0.0.2, which never
// answers by itself.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "ClientTestKit.h"
#include "DeviceListModel.h"

using namespace ClientTest;
using namespace std::chrono_literals;

namespace {

class ClientRemembered : public testing::Test {
protected:
    std::uint16_t port = freeUdpPort();
    FakeUnit unit{port};
    std::unique_ptr<VornClient> client = loopbackClient(port);

    void SetUp() override { ASSERT_TRUE(unit.isBound()); }
};

// Addresses of loopback where nothing listens: sends there go nowhere.
std::vector<std::string> quietAddresses(int count)
{
    std::vector<std::string> addresses;
    for (int n = 0; n < count; ++n)
        addresses.push_back("127.0." + std::to_string(10 + n / 250) + "." + std::to_string(1 + n % 250));
    return addresses;
}

}  // namespace

TEST_F(ClientRemembered, RememberedUnitThatMissesTheBroadcastIsAskedByUnicastAfterIt)
{
    client->setRemembered({"127.0.0.2"});
    client->setSeq(40);
    QSignalSpy sent(client.get(), &VornClient::discoversSent);
    client->start();

    QTRY_COMPARE_WITH_TIMEOUT(sent.count(), 1, 3000);
    EXPECT_EQ(sent.at(0).at(0).toStringList(), QStringList{QStringLiteral("127.0.0.2")});
    // The round's broadcast, then the unicast to the unit that did not answer it.
    const auto datagrams = unit.receive(2, 3s);
    ASSERT_EQ(datagrams.size(), 2u);
    EXPECT_EQ(datagrams[0], Vorn::discoverPacket(41));
    EXPECT_EQ(datagrams[1], Vorn::discoverPacket(42));
}

TEST_F(ClientRemembered, RememberedUnitThatAnsweredTheBroadcastIsNotAskedAgain)
{
    client->setRemembered({"127.0.0.2"});
    QSignalSpy sent(client.get(), &VornClient::discoversSent);
    client->start();
    client->ingest(Vorn::Reply{"127.0.0.2", Vorn::kCmdReport, {{"Serial", "KT4-0001B7"}}});

    QTest::qWait(VornClient::kBroadcastAnswerMs + 500);
    EXPECT_EQ(sent.count(), 0);
    EXPECT_EQ(unit.receiveWithin(100ms).size(), 1u);
}

TEST_F(ClientRemembered, RememberingIsByAddressOnce)
{
    client->setRemembered({"10.78.5.129", "10.78.5.129"});
    client->remember("10.78.5.130");
    client->remember("10.78.5.129");
    EXPECT_EQ(client->remembered(), (std::vector<std::string>{"10.78.5.129", "10.78.5.130"}));
}

TEST_F(ClientRemembered, QueuedDiscoversLeaveInBurstsOfAtMostAHundredEachAddressOnce)
{
    QSignalSpy sent(client.get(), &VornClient::discoversSent);
    auto addresses = quietAddresses(249);
    addresses.push_back("127.0.0.2");
    client->queueDiscovers(addresses);
    client->queueDiscovers({"127.0.0.2"});

    QTRY_COMPARE_WITH_TIMEOUT(sent.count(), 3, 5000);
    EXPECT_EQ(sent.at(0).at(0).toStringList().size(), 100);
    EXPECT_EQ(sent.at(1).at(0).toStringList().size(), 100);
    EXPECT_EQ(sent.at(2).at(0).toStringList().size(), 50);
    EXPECT_EQ(sent.at(2).at(0).toStringList().last(), QStringLiteral("127.0.0.2"));
    EXPECT_EQ(unit.receiveWithin(300ms).size(), 1u);
}

TEST_F(ClientRemembered, DroppedDiscoversAreNotSent)
{
    QSignalSpy sent(client.get(), &VornClient::discoversSent);
    auto addresses = quietAddresses(150);
    addresses.push_back("127.0.0.2");
    client->queueDiscovers(addresses);
    // The first burst has gone; the rest waits for the next interval.
    ASSERT_EQ(sent.count(), 1);
    client->dropQueuedDiscovers([](const std::string&) { return true; });

    QTest::qWait(200);
    EXPECT_EQ(sent.count(), 1);
    EXPECT_TRUE(unit.receiveWithin(100ms).empty());
}

TEST_F(ClientRemembered, RememberedUnitsAreListedInOneRunIntoAnEmptyList)
{
    QSignalSpy about(client.get(), &VornClient::deviceAboutToBeAdded);
    QSignalSpy added(client.get(), &VornClient::deviceAdded);
    QSignalSpy count(client.get(), &VornClient::deviceCountChanged);
    const auto now = WallClock::now();
    client->addRemembered({{"10.0.0.9", {{"Channel", "9"}}, now},
                           {"10.0.0.10", {{"Channel", "10"}}, now},
                           {"10.0.0.2", {}, now}});
    EXPECT_EQ(addresses(*client), (std::vector<std::string>{"10.0.0.10", "10.0.0.2", "10.0.0.9"}));
    ASSERT_EQ(about.count(), 1);
    EXPECT_EQ(about.at(0), (QVariantList{0, 2}));
    EXPECT_EQ(added.at(0), (QVariantList{0, 2}));
    EXPECT_EQ(count.count(), 1);
    for (const auto& device : client->devices())
        EXPECT_TRUE(device.remembered) << device.ip;
    EXPECT_EQ(client->device("10.0.0.9")->config.at("Channel"), "9");
}

TEST_F(ClientRemembered, RememberedUnitsGoInAsOneRunBetweenEachPairOfListedUnitsAndListedOnesStay)
{
    client->ingest(Vorn::Reply{"10.0.0.3", Vorn::kCmdReport, {{"Channel", "1"}}});
    client->ingest(Vorn::Reply{"10.0.0.6", Vorn::kCmdReport, {{"Channel", "1"}}});
    QSignalSpy about(client.get(), &VornClient::deviceAboutToBeAdded);
    const auto now = WallClock::now();
    client->addRemembered({{"10.0.0.7", {}, now},
                           {"10.0.0.1", {}, now},
                           {"10.0.0.4", {}, now},
                           {"10.0.0.6", {{"Channel", "2"}}, now},
                           {"10.0.0.2", {}, now},
                           {"10.0.0.5", {}, now},
                           {"10.0.0.2", {}, now}});
    EXPECT_EQ(addresses(*client), (std::vector<std::string>{"10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4",
                                                            "10.0.0.5", "10.0.0.6", "10.0.0.7"}));
    // Before 10.0.0.3, between it and 10.0.0.6, after 10.0.0.6.
    ASSERT_EQ(about.count(), 3);
    EXPECT_EQ(about.at(0), (QVariantList{0, 1}));
    EXPECT_EQ(about.at(1), (QVariantList{3, 4}));
    EXPECT_EQ(about.at(2), (QVariantList{6, 6}));
    // The unit heard in this run keeps what it said; every address is remembered once.
    EXPECT_FALSE(client->device("10.0.0.6")->remembered);
    EXPECT_EQ(client->device("10.0.0.6")->config.at("Channel"), "1");
    EXPECT_EQ(client->remembered().size(), 6u);
}

TEST_F(ClientRemembered, AForgottenUnitLeavesTheTableAndIsNoLongerAsked)
{
    client->addRemembered({{"127.0.0.2", {{"Serial", "KT4-0001B7"}}, WallClock::now() - 1h},
                           {"10.78.5.129", {{"Serial", "KT4-R00001"}}, WallClock::now() - 1h}});
    DeviceListModel model;
    model.setClient(client.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy forgotten(client.get(), &VornClient::unitForgotten);
    QSignalSpy counted(client.get(), &VornClient::deviceCountChanged);

    EXPECT_TRUE(client->forget(QStringLiteral("127.0.0.2")));

    EXPECT_EQ(client->deviceCount(), 1);
    EXPECT_EQ(client->indexOf("127.0.0.2"), -1);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.data(model.index(0), DeviceListModel::IpRole).toString(), QStringLiteral("10.78.5.129"));
    EXPECT_EQ(client->remembered(), std::vector<std::string>{"10.78.5.129"});
    ASSERT_EQ(forgotten.count(), 1);
    EXPECT_EQ(counted.count(), 1);
    EXPECT_TRUE(client->log().last().endsWith(QStringLiteral("forgot 127.0.0.2")));
    // An address that is not listed is not forgotten twice.
    EXPECT_FALSE(client->forget(QStringLiteral("127.0.0.2")));
    EXPECT_EQ(forgotten.count(), 1);

    // The round asks only the unit still remembered: nothing reaches 127.0.0.2 but the broadcast.
    QSignalSpy sent(client.get(), &VornClient::discoversSent);
    client->start();
    QTRY_COMPARE_WITH_TIMEOUT(sent.count(), 1, 3000);
    EXPECT_EQ(sent.at(0).at(0).toStringList(), QStringList{QStringLiteral("10.78.5.129")});
    EXPECT_EQ(unit.receiveWithin(300ms).size(), 1u);
}

TEST_F(ClientRemembered, AForgottenUnitThatAnswersIsListedAgainAsANewUnit)
{
    client->ingest(Vorn::Reply{"127.0.0.2", Vorn::kCmdReport, {{"Serial", "KT4-0001B7"}}});
    ASSERT_TRUE(client->forget(QStringLiteral("127.0.0.2")));
    ASSERT_EQ(client->deviceCount(), 0);

    client->ingest(Vorn::Reply{"127.0.0.2", Vorn::kCmdReport, {{"Serial", "KT4-0001B7"}}});

    ASSERT_EQ(client->deviceCount(), 1);
    EXPECT_FALSE(client->devices()[0].remembered);
    EXPECT_TRUE(client->log().last().endsWith(QStringLiteral("found 127.0.0.2")));
}

TEST_F(ClientRemembered, AForgottenUnitsQueuedDiscoverIsDropped)
{
    QSignalSpy sent(client.get(), &VornClient::discoversSent);
    auto addresses = quietAddresses(100);
    addresses.push_back("127.0.0.2");
    client->queueDiscovers(addresses);
    ASSERT_EQ(sent.count(), 1);  // the first hundred; 127.0.0.2 waits for the next burst

    client->forget(QStringLiteral("127.0.0.2"));

    QTest::qWait(200);
    EXPECT_EQ(sent.count(), 1);
    EXPECT_TRUE(unit.receiveWithin(100ms).empty());
}
