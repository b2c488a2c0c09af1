// SPDX-License-Identifier: Apache-2.0
// The editor end to end over loopback: on the window's VornClient (through
// its ClientLink), what the unit (the client tests' fake on 127.0.0.2)
// receives, the client's log line of the write, presence by the client's
// clock, and a client that goes away.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "ClientTestKit.h"
#include "EditorTestKit.h"

using namespace EditorTest;
using namespace std::chrono_literals;

namespace {

const Vorn::Config kReported = cleanUnit({{"AtemIp", "10.0.0.5"},
                                          {"Channel", "3"},
                                          {"CallMagic", "secret"},
                                          {"IPAddress", "127.0.0.2"},
                                          {"Netmask", "255.0.0.0"},
                                          {"Gateway", "127.0.0.1"},
                                          {"Serial", "KT400ABC123"}});

// Nothing should arrive; a short wait shows that no datagram was on its way.
constexpr auto kQuietWindow = 300ms;

class DeviceEditorLoopback : public testing::Test {
protected:
    std::uint16_t port = ClientTest::freeUdpPort();
    std::unique_ptr<VornClient> client = ClientTest::loopbackClient(port);
    ClientTest::ManualTime time{client->clock()};
    ClientTest::FakeUnit unit{port};
    DeviceEditor editor;

    void SetUp() override
    {
        ASSERT_TRUE(unit.isBound());
        report(kReported);
        editor.setClient(client.get());
        editor.setIp(QString::fromLatin1(kUnitIp));
    }

    void report(const Vorn::Config& config) { client->ingest(Vorn::Reply{kUnitIp, Vorn::kCmdReport, config}); }

    // Both copies of the write, decoded; fails the test unless exactly the pair came.
    Vorn::Config receivedWrite()
    {
        const auto datagrams = unit.receive(2);
        EXPECT_EQ(datagrams.size(), 2u);
        if (datagrams.size() != 2)
            return {};
        EXPECT_EQ(datagrams[0], datagrams[1]);
        const auto reply = Vorn::parse(datagrams[0]);
        EXPECT_TRUE(reply.has_value());
        if (!reply)
            return {};
        EXPECT_EQ(reply->cmd, Vorn::kCmdWrite);
        return reply->config;
    }

    // The client's latest log line without its time.
    QString lastLogLine() const { return client->log().last().section(QStringLiteral("  "), 1); }
};

}  // namespace

TEST_F(DeviceEditorLoopback, OpeningOnTheClientLoadsOnce)
{
    DeviceEditor other;
    QSignalSpy loadedSpy(&other, &DeviceEditor::loaded);
    other.setClient(client.get());
    other.setIp(QString::fromLatin1(kUnitIp));
    EXPECT_EQ(loadedSpy.count(), 1);
    EXPECT_EQ(other.communication()->fieldAs<TextField>("Channel")->text(), QStringLiteral("3"));
}

TEST_F(DeviceEditorLoopback, SaveSendsTheUnitsConfigurationWithTheChangedKeys)
{
    editor.communication()->fieldAs<TextField>("CallMagic")->setText(QStringLiteral("open sesame"));
    editor.tally()->setSwitcherSelection(QStringLiteral("5.9"));
    editor.save();
    EXPECT_EQ(lastLogLine(), QStringLiteral("write \u2192 127.0.0.2: CallMagic=open sesame SwitcherBand=5 SwitcherModel=9"));
    EXPECT_EQ(receivedWrite(),
              overlaid(kReported, {{"CallMagic", "open sesame"}, {"SwitcherBand", "5"}, {"SwitcherModel", "9"}}));
}

TEST_F(DeviceEditorLoopback, ApplySendsTheChangedNetworkKeys)
{
    editor.network()->fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    editor.network()->fieldAs<TextField>("Netmask")->setText(QStringLiteral("255.255.0.0"));
    editor.applyNetwork();
    EXPECT_EQ(lastLogLine(), QStringLiteral("write \u2192 127.0.0.2: IPAddress=127.0.0.3 Netmask=255.255.0.0"));
    EXPECT_EQ(receivedWrite(), overlaid(kReported, {{"IPAddress", "127.0.0.3"}, {"Netmask", "255.255.0.0"}}));
}

TEST_F(DeviceEditorLoopback, SaveWithNothingChangedSendsNothing)
{
    const QStringList logBefore = client->log();
    const std::uint16_t seqBefore = client->seq();
    editor.save();
    EXPECT_EQ(client->log(), logBefore);
    EXPECT_EQ(client->seq(), seqBefore);
    EXPECT_TRUE(unit.receiveWithin(kQuietWindow).empty());
}

TEST_F(DeviceEditorLoopback, RefusedPasswordSendsNothing)
{
    editor.communication()->fieldAs<TextField>("CallMagic")->setText(QStringLiteral("x\nIPAddress:10.9.9.9"));
    const QStringList logBefore = client->log();
    editor.save();
    EXPECT_EQ(client->log(), logBefore);
    EXPECT_TRUE(unit.receiveWithin(kQuietWindow).empty());
}

TEST_F(DeviceEditorLoopback, ClientRefusesAWriteOfALineFeedEvenWhenAskedDirectly)
{
    client->writeChanges(kUnitIp, {{"CallMagic", "x\nIPAddress:10.9.9.9"}});
    EXPECT_TRUE(unit.receiveWithin(kQuietWindow).empty());
    EXPECT_EQ(lastLogLine(), QStringLiteral("write refused \u2192 127.0.0.2: the value of CallMagic holds a line feed (LF)"));
}

TEST_F(DeviceEditorLoopback, SaveIsConfirmedByTheReplyAfterTheRequery)
{
    editor.communication()->fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
    editor.save();
    time.advance(2s);
    report(overlaid(kReported, {{"Channel", "5"}}));
    EXPECT_EQ(editor.verdict()->kind(), SaveVerdict::Kind::Confirmed);
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorLoopback, OnlineFollowsTheClientsClock)
{
    EXPECT_TRUE(editor.header()->online());
    time.advance(15s);
    client->clock()->tick();
    EXPECT_FALSE(editor.header()->online());
    EXPECT_EQ(editor.header()->onlineText(), QStringLiteral("Offline"));
}

TEST_F(DeviceEditorLoopback, ClientGoneLeavesAnOfflineEditorWithEmptyLive)
{
    QSignalSpy clientSpy(&editor, &DeviceEditor::clientChanged);
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    client.reset();
    EXPECT_EQ(editor.client(), nullptr);
    EXPECT_FALSE(editor.header()->online());
    EXPECT_TRUE(editor.live().isEmpty());
    EXPECT_EQ(clientSpy.count(), 1);
    EXPECT_EQ(liveSpy.count(), 1);
    EXPECT_EQ(editor.tally()->fieldAs<TextField>("AtemIp")->text(), QStringLiteral("10.0.0.5"));
}
