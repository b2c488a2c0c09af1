// SPDX-License-Identifier: Apache-2.0
// Start-up, the discovery timer and the packet path, on loopback: the client
// listens on 0.0.0.0:P and "broadcasts" to a fake unit on 127.0.0.2:P.
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTimer>
#include <unistd.h>

#include "ClientTestKit.h"

using namespace ClientTest;
using namespace std::chrono_literals;

namespace {

class ClientDiscovery : public testing::Test {
protected:
    std::uint16_t port = freeUdpPort();
    FakeUnit unit{port};
    std::unique_ptr<VornClient> client = loopbackClient(port);

    void SetUp() override { ASSERT_TRUE(unit.isBound()); }
};

}  // namespace

TEST_F(ClientDiscovery, StartListensAndSendsOneDiscoverWithTheNextSequenceNumber)
{
    client->setSeq(100);
    QSignalSpy statusSpy(client.get(), &VornClient::statusChanged);
    client->start();

    EXPECT_EQ(client->status(), QStringLiteral("listening on %1").arg(port));
    EXPECT_EQ(statusSpy.count(), 1);
    const auto datagrams = unit.receive(1);
    ASSERT_EQ(datagrams.size(), 1u);
    EXPECT_EQ(datagrams[0], Vorn::discoverPacket(101));
    EXPECT_TRUE(unit.receiveWithin(200ms).size() == 1u);
}

TEST_F(ClientDiscovery, StartTwiceSendsOneStartUpDiscoverAndCreatesOneTimer)
{
    client->start();
    client->start();
    EXPECT_EQ(unit.receiveWithin(300ms).size(), 1u);
    EXPECT_EQ(client->findChildren<QTimer*>(QStringLiteral("discoveryTimer")).size(), 1);
}

TEST_F(ClientDiscovery, DiscoveryTimerRepeatsEveryFiveSeconds)
{
    client->start();
    const auto* timer = client->findChild<QTimer*>(QStringLiteral("discoveryTimer"));
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_FALSE(timer->isSingleShot());
    EXPECT_EQ(timer->interval(), 5000);
}

TEST_F(ClientDiscovery, EachTickSendsADiscoverWithTheNextSequenceNumberAndNothingElse)
{
    client->setSeq(7);
    client->start();
    auto* timer = client->findChild<QTimer*>(QStringLiteral("discoveryTimer"));
    ASSERT_NE(timer, nullptr);
    QSignalSpy statusSpy(client.get(), &VornClient::statusChanged);
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);

    QMetaObject::invokeMethod(timer, "timeout");
    QMetaObject::invokeMethod(timer, "timeout");

    const auto datagrams = unit.receive(3);
    ASSERT_EQ(datagrams.size(), 3u);
    EXPECT_EQ(datagrams[0], Vorn::discoverPacket(8));
    EXPECT_EQ(datagrams[1], Vorn::discoverPacket(9));
    EXPECT_EQ(datagrams[2], Vorn::discoverPacket(10));
    EXPECT_EQ(statusSpy.count(), 0);
    EXPECT_EQ(logSpy.count(), 0);
}

TEST_F(ClientDiscovery, DiscoverAfterSequence65535Carries0)
{
    client->setSeq(65535);
    client->sendDiscover(QString::fromLatin1(kUnitAddress));
    const auto datagrams = unit.receive(1);
    ASSERT_EQ(datagrams.size(), 1u);
    EXPECT_EQ(sequenceOf(datagrams[0]), 0);
}

TEST_F(ClientDiscovery, DiscoverToTextThatIsNotAnAddressSendsNothingAndTakesNoSequenceNumber)
{
    client->setSeq(20);
    // The fake unit listens on the loopback "broadcast" address: a fallback
    // to the broadcast would reach it.
    EXPECT_FALSE(client->sendDiscover(QStringLiteral("studio-base-station.local")));
    EXPECT_FALSE(client->sendDiscover(QStringLiteral("127.0.0")));
    EXPECT_FALSE(client->sendDiscover(QStringLiteral("127.0.0.256")));
    EXPECT_EQ(client->seq(), 20);
    EXPECT_TRUE(client->sendDiscover(QStringLiteral("0127.0.0.002")));
    const auto datagrams = unit.receive(1);
    ASSERT_EQ(datagrams.size(), 1u);
    EXPECT_EQ(datagrams[0], Vorn::discoverPacket(21));
    // Everything the unit received in all: that one datagram.
    EXPECT_EQ(unit.receiveWithin(200ms).size(), 1u);
}

TEST_F(ClientDiscovery, CanonicalAddressIsTheDecimalDottedQuadOrNothing)
{
    EXPECT_EQ(VornClient::canonicalAddress(QStringLiteral(" 10.0.0.010\t")), QStringLiteral("10.0.0.10"));
    EXPECT_EQ(VornClient::canonicalAddress(QStringLiteral("010.001.000.1")), QStringLiteral("10.1.0.1"));
    EXPECT_EQ(VornClient::canonicalAddress(QStringLiteral("10.0.0")), QString());
    EXPECT_EQ(VornClient::canonicalAddress(QStringLiteral("10.0.0.1.")), QString());
    EXPECT_EQ(VornClient::canonicalAddress(QStringLiteral("0x0a.0.0.1")), QString());
    EXPECT_EQ(VornClient::canonicalAddress(QStringLiteral("studio")), QString());
    EXPECT_EQ(VornClient::canonicalAddress(QString()), QString());
}

TEST_F(ClientDiscovery, ReplyIsMergedThroughThePacketPath)
{
    client->start();
    unit.sendToClient(reportDatagram(kUnitAddress, {{"Serial", "KT400ABC123"}, {"Channel", "3"}}));
    ASSERT_TRUE(processEventsUntil([&] { return client->deviceCount() == 1; }));
    EXPECT_EQ(client->devices()[0].ip, kUnitAddress);
    EXPECT_EQ(client->devices()[0].config.at("Channel"), "3");
    EXPECT_TRUE(client->log().value(0).endsWith(QStringLiteral("  found 127.0.0.2")));
}

TEST_F(ClientDiscovery, ReplyIsFiledUnderTheAddressInsideItNotTheSender)
{
    client->start();
    unit.sendToClient(reportDatagram("10.77.0.5", {{"Channel", "3"}}));
    ASSERT_TRUE(processEventsUntil([&] { return client->deviceCount() == 1; }));
    EXPECT_EQ(client->devices()[0].ip, "10.77.0.5");
}

TEST_F(ClientDiscovery, TwoRepliesFromOneUnitBeforeTheFirstIsMergedGiveOneEntry)
{
    client->start();
    unit.sendToClient(reportDatagram(kUnitAddress, {{"Channel", "1"}}));
    unit.sendToClient(reportDatagram(kUnitAddress, {{"Channel", "2"}}));
    // Both datagrams are decoded and queued before the main thread merges either.
    ::usleep(200000);
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);
    QSignalSpy updatedSpy(client.get(), &VornClient::devicesUpdated);
    ASSERT_TRUE(processEventsUntil([&] { return updatedSpy.count() == 1; }));
    ASSERT_EQ(client->deviceCount(), 1);
    EXPECT_EQ(client->devices()[0].config.at("Channel"), "2");
    EXPECT_EQ(logSpy.count(), 1);
}

TEST_F(ClientDiscovery, ABurstIsMergedAfterItPausesWithOneAnnouncementOfTheUpdatedRows)
{
    client->ingest(Vorn::Reply{"10.0.0.2", Vorn::kCmdReport, {{"Channel", "1"}}});
    client->ingest(Vorn::Reply{"10.0.0.5", Vorn::kCmdReport, {{"Channel", "1"}}});
    client->start();
    QSignalSpy updatedSpy(client.get(), &VornClient::devicesUpdated);
    QSignalSpy addedSpy(client.get(), &VornClient::deviceAdded);
    unit.sendToClient(reportDatagram("10.0.0.5", {{"Channel", "2"}}));
    unit.sendToClient(reportDatagram("10.0.0.1", {{"Channel", "2"}}));
    unit.sendToClient(reportDatagram("10.0.0.2", {{"Channel", "2"}}));
    ASSERT_TRUE(processEventsUntil([&] { return updatedSpy.count() == 1; }));
    // The new unit went in at row 0, so the two updated units are rows 1 and 2.
    EXPECT_EQ(updatedSpy.at(0).at(0).toInt(), 1);
    EXPECT_EQ(updatedSpy.at(0).at(1).toInt(), 2);
    EXPECT_EQ(addedSpy.count(), 1);
    for (const auto& device : client->devices())
        EXPECT_EQ(device.config.at("Channel"), "2") << device.ip;
    QCoreApplication::processEvents();
    EXPECT_EQ(updatedSpy.count(), 1);
}

TEST_F(ClientDiscovery, ForeignDatagramsAndOtherCommandsAreDroppedWithoutATrace)
{
    client->start();
    unit.sendToClient({0x01, 0x02, 0x03});
    unit.sendToClient(reportDatagram("10.77.0.6", {{"Channel", "3"}}, Vorn::kCmdWrite));
    unit.sendToClient(reportDatagram("10.77.0.7", {}));
    ASSERT_TRUE(processEventsUntil([&] { return client->deviceCount() == 1; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(client->devices()[0].ip, "10.77.0.7");
    EXPECT_EQ(client->log().size(), 1);
}

TEST_F(ClientDiscovery, ReplyQueuedForADestroyedClientIsDiscarded)
{
    client->start();
    unit.sendToClient(reportDatagram("10.77.0.8", {}));
    ::usleep(200000);
    client.reset();
    QCoreApplication::processEvents();
    SUCCEED();
}

TEST(ClientBindFailure, PortTakenGivesTheStatusTextNoTimerAndSendsNothing)
{
    const std::uint16_t port = freeUdpPort();
    // Held without SO_REUSEADDR, the port refuses the client's bind; the
    // holder also gets anything the client would send to 127.0.0.2:port.
    FakeUnit holder(port, "0.0.0.0", false);
    ASSERT_TRUE(holder.isBound());
    const auto client = loopbackClient(port);
    QSignalSpy statusSpy(client.get(), &VornClient::statusChanged);

    client->start();
    EXPECT_EQ(client->status(), QStringLiteral("cannot bind UDP %1 (in use?)").arg(port));
    EXPECT_EQ(statusSpy.count(), 1);
    EXPECT_EQ(client->findChild<QTimer*>(QStringLiteral("discoveryTimer")), nullptr);
    EXPECT_FALSE(client->socket().isListening());

    client->start();
    EXPECT_EQ(statusSpy.count(), 1);
    EXPECT_TRUE(holder.receiveWithin(300ms).empty());
}
