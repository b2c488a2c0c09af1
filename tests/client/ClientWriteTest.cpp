// SPDX-License-Identifier: Apache-2.0
// Configuration writes on loopback: the unit is the fake on 127.0.0.2.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "ClientTestKit.h"

using namespace ClientTest;
using namespace std::chrono_literals;

namespace {

const Vorn::Config kReported = {
    {"IPAddress", "127.0.0.2"}, {"Netmask", "255.0.0.0"}, {"Channel", "1"},
    {"SwitcherBand", "0"},      {"Serial", "KT400ABC123"}, {"Firmware", "2.1"},
};

class ClientWrite : public testing::Test {
protected:
    std::uint16_t port = freeUdpPort();
    FakeUnit unit{port};
    std::unique_ptr<VornClient> client = loopbackClient(port);

    void SetUp() override
    {
        ASSERT_TRUE(unit.isBound());
        client->ingest(Vorn::Reply{kUnitAddress, Vorn::kCmdReport, kReported});
    }

    QString lastLogLine() const { return client->log().value(client->log().size() - 1); }
};

}  // namespace

TEST_F(ClientWrite, SendsTwoByteIdenticalDatagramsCarryingTheOverlaidConfiguration)
{
    client->setSeq(500);
    client->writeChanges(kUnitAddress, {{"Channel", "3"}, {"AtemIp", "10.0.0.5"}});

    const auto datagrams = unit.receive(2);
    ASSERT_EQ(datagrams.size(), 2u);
    EXPECT_EQ(datagrams[0], datagrams[1]);
    Vorn::Config expected = kReported;
    expected["Channel"] = "3";
    expected["AtemIp"] = "10.0.0.5";
    EXPECT_EQ(datagrams[0], Vorn::writePacket(501, expected));
    EXPECT_EQ(client->seq(), 501);
}

TEST_F(ClientWrite, LeavesTheTableAloneUntilTheUnitAnswers)
{
    const Device before = client->devices()[0];
    client->writeChanges(kUnitAddress, {{"Channel", "3"}});
    EXPECT_EQ(client->devices()[0], before);
}

TEST_F(ClientWrite, LogsTheChangedPairsSortedAsText)
{
    QSignalSpy logSpy(client.get(), &VornClient::logChanged);
    client->writeChanges(kUnitAddress, {{"Model", "1"}, {"AtemIp", "10.0.0.5"}});
    EXPECT_EQ(logSpy.count(), 1);
    EXPECT_TRUE(lastLogLine().endsWith(QString::fromUtf8("  write \xE2\x86\x92 127.0.0.2: AtemIp=10.0.0.5 Model=1")));
}

TEST_F(ClientWrite, PiecesAreSortedAsWholeTextNotByKey)
{
    // "A-B=1" sorts before "A=2" because '-' comes before '='.
    client->writeChanges(kUnitAddress, {{"A", "2"}, {"A-B", "1"}});
    EXPECT_TRUE(lastLogLine().endsWith(QStringLiteral(": A-B=1 A=2")));
}

TEST_F(ClientWrite, ChangeEqualToTheReportedValueIsSentAndLoggedLikeAnyOther)
{
    client->writeChanges(kUnitAddress, {{"Channel", "1"}});
    EXPECT_TRUE(lastLogLine().endsWith(QStringLiteral(": Channel=1")));
    EXPECT_EQ(unit.receive(2).size(), 2u);
}

TEST_F(ClientWrite, EmptyChangesSendTheReportedConfigurationAndLogALineEndingInColonBlank)
{
    client->setSeq(9);
    client->writeChanges(kUnitAddress, {});
    EXPECT_TRUE(lastLogLine().endsWith(QString::fromUtf8("write \xE2\x86\x92 127.0.0.2: ")));
    const auto datagrams = unit.receive(2);
    ASSERT_EQ(datagrams.size(), 2u);
    EXPECT_EQ(datagrams[0], Vorn::writePacket(10, kReported));
}

TEST_F(ClientWrite, UnknownAddressGetsOnlyTheChangesAsItsConfiguration)
{
    const auto fresh = loopbackClient(port);
    ASSERT_TRUE(fresh->devices().empty());
    fresh->setSeq(20);
    fresh->writeChanges(kUnitAddress, {{"Channel", "4"}});
    const auto datagrams = unit.receive(2);
    ASSERT_EQ(datagrams.size(), 2u);
    EXPECT_EQ(datagrams[0], Vorn::writePacket(21, {{"Channel", "4"}}));
}

TEST_F(ClientWrite, TextThatIsNotAnAddressIsRefusedAndNothingIsSent)
{
    client->setSeq(30);
    client->writeChanges("studio-base-station.local", {{"Channel", "4"}});
    EXPECT_TRUE(lastLogLine().endsWith(
        QString::fromUtf8("  write refused \xE2\x86\x92 studio-base-station.local: not an IPv4 address")));
    EXPECT_EQ(client->seq(), 30);
    // The fake unit listens on the loopback "broadcast" address.
    EXPECT_TRUE(unit.receiveWithin(300ms).empty());
}

TEST_F(ClientWrite, QmlFacingWriteTakesVariantValuesAsText)
{
    client->setSeq(30);
    client->write(QString::fromLatin1(kUnitAddress), {{"Channel", 3}, {"Wire2Enable", QStringLiteral("1")}});
    Vorn::Config expected = kReported;
    expected["Channel"] = "3";
    expected["Wire2Enable"] = "1";
    const auto datagrams = unit.receive(2);
    ASSERT_EQ(datagrams.size(), 2u);
    EXPECT_EQ(datagrams[0], Vorn::writePacket(31, expected));
}

TEST_F(ClientWrite, ReQueriesTheUnitWithItsOwnSequenceNumber)
{
    client->setSeq(1000);
    client->writeChanges(kUnitAddress, {{"Channel", "3"}});
    ASSERT_EQ(unit.receive(2).size(), 2u);
    std::vector<Vorn::Bytes> datagrams;
    ASSERT_TRUE(processEventsUntil([&] { return (datagrams = unit.receive(3, 10ms)).size() == 3; }));
    EXPECT_EQ(datagrams[2], Vorn::discoverPacket(1002));
}

TEST_F(ClientWrite, SequenceAt65534GivesTheWrite65535AndTheReQuery0)
{
    client->setSeq(65534);
    client->writeChanges(kUnitAddress, {{"Channel", "3"}});
    std::vector<Vorn::Bytes> datagrams;
    ASSERT_TRUE(processEventsUntil([&] { return (datagrams = unit.receive(3, 10ms)).size() == 3; }));
    EXPECT_EQ(sequenceOf(datagrams[0]), 65535);
    EXPECT_EQ(sequenceOf(datagrams[1]), 65535);
    EXPECT_EQ(datagrams[2], Vorn::discoverPacket(0));
}

TEST_F(ClientWrite, ReQueryFindingTheClientGoneSendsNothing)
{
    client->writeChanges(kUnitAddress, {{"Channel", "3"}});
    client.reset();
    // Longer than the re-query delay, with the event loop running.
    processEventsUntil([] { return false; }, 2500ms);
    EXPECT_EQ(unit.receiveWithin(100ms).size(), 2u);
}

TEST_F(ClientWrite, TheUnitsAnswerReplacesTheStoredConfiguration)
{
    client->start();
    client->writeChanges(kUnitAddress, {{"Channel", "3"}});
    Vorn::Config applied = kReported;
    applied["Channel"] = "3";
    unit.sendToClient(reportDatagram(kUnitAddress, applied));
    ASSERT_TRUE(processEventsUntil([&] { return client->devices()[0].config == applied; }));
    EXPECT_EQ(client->deviceCount(), 1);
}

TEST_F(ClientWrite, AddressChangeGoesToTheOldAddressAndTheOldEntryStays)
{
    client->start();
    ASSERT_EQ(unit.receive(1).size(), 1u);  // the start-up discover
    client->setSeq(40);
    client->writeChanges(kUnitAddress, {{"IPAddress", "127.0.0.3"}});
    std::vector<Vorn::Bytes> datagrams;
    // Write, write, then the re-query: all three to the old address.
    ASSERT_TRUE(processEventsUntil([&] { return (datagrams = unit.receive(4, 10ms)).size() == 4; }));
    Vorn::Config moved = kReported;
    moved["IPAddress"] = "127.0.0.3";
    EXPECT_EQ(datagrams[1], Vorn::writePacket(41, moved));
    EXPECT_EQ(datagrams[3], Vorn::discoverPacket(42));

    unit.sendToClient(reportDatagram("127.0.0.3", moved));
    ASSERT_TRUE(processEventsUntil([&] { return client->deviceCount() == 2; }));
    EXPECT_EQ(client->device(kUnitAddress)->config, kReported);
    EXPECT_EQ(client->device("127.0.0.3")->config, moved);
}
