// Save and the network apply on loopback: what the client really sends to
// the unit (the fake on 127.0.0.2) and the changes its write line names.
#include <gtest/gtest.h>

#include "EditorTestKit.h"

using namespace EditorTest;
using namespace std::chrono_literals;

namespace {

const Vorn::Config kReported = {
    {"AtemIp", "10.0.0.5"},     {"AtemPort", "9910"},      {"Channel", "3"},          {"SwitcherBand", "2"},
    {"SwitcherModel", "10"},    {"AtemExtTally", "1"},     {"TallyType", "4"},        {"TallyGpioType", "5"},
    {"IPAddress", "127.0.0.2"}, {"Netmask", "255.0.0.0"},  {"Gateway", "127.0.0.1"}, {"ScenarioType", "2"},
    {"SilenceSuppress", "3"},   {"Wire2Enable", "1"},      {"CallMagic", "secret"},   {"Serial", "KT400ABC123"},
};

// Nothing should arrive; a short wait shows that no datagram was on its way.
constexpr auto kQuietWindow = 300ms;

class DeviceEditorWrite : public EditorFixture {
protected:
    ClientTest::FakeUnit unit{port};

    void SetUp() override { ASSERT_TRUE(unit.isBound()); }

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

    static Vorn::Config overlaid(Vorn::Config config, const Vorn::Config& changes)
    {
        for (const auto& [key, value] : changes)
            config.insert_or_assign(key, value);
        return config;
    }
};

}  // namespace

TEST_F(DeviceEditorWrite, SavingAfterChangingOnlyThePasswordSendsExactlyCallMagic)
{
    report(kReported);
    open();
    editor.setPassword(QStringLiteral("open sesame"));
    editor.save();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: CallMagic=open sesame"));
    EXPECT_EQ(receivedWrite(), overlaid(kReported, {{"CallMagic", "open sesame"}}));
}

TEST_F(DeviceEditorWrite, SavingSendsEveryChangedKeyAndNoOther)
{
    report(kReported);
    open();
    editor.setAtemIp(QStringLiteral("10.0.0.6"));
    editor.setSwitcherSelection(QStringLiteral("5.9"));
    editor.setScene(4);
    editor.setWire2(false);
    editor.setChannel(QStringLiteral("3"));
    editor.save();
    EXPECT_EQ(lastWrite(),
              QStringLiteral("127.0.0.2: AtemIp=10.0.0.6 ScenarioType=4 SwitcherBand=5 SwitcherModel=9 Wire2Enable=0"));
    EXPECT_EQ(receivedWrite(), overlaid(kReported, {{"AtemIp", "10.0.0.6"},
                                                    {"SwitcherBand", "5"},
                                                    {"SwitcherModel", "9"},
                                                    {"ScenarioType", "4"},
                                                    {"Wire2Enable", "0"}}));
}

TEST_F(DeviceEditorWrite, UnitWithoutSwitcherBandGetsSevenOnSave)
{
    Vorn::Config noBand = cleanUnit({{"Channel", "1"}});
    noBand.erase("SwitcherBand");
    report(noBand);
    open();
    editor.save();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: SwitcherBand=7"));
    EXPECT_EQ(receivedWrite(), cleanUnit({{"Channel", "1"}}));
}

TEST_F(DeviceEditorWrite, UntouchedMissingScenarioIsNotSent)
{
    report(cleanUnit());
    open();
    editor.setChannel(QStringLiteral("5"));
    editor.save();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: Channel=5"));
}

TEST_F(DeviceEditorWrite, Wire2ReportedAsTrueIsSavedAsZero)
{
    report(cleanUnit({{"Wire2Enable", "true"}}));
    open();
    editor.save();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: Wire2Enable=0"));
    EXPECT_EQ(receivedWrite(), cleanUnit({{"Wire2Enable", "0"}}));
}

TEST_F(DeviceEditorWrite, ClearingThePasswordSendsCallMagicWithTheEmptyText)
{
    report(kReported);
    open();
    editor.setPassword(QString());
    editor.save();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: CallMagic="));
    // The wire leaves empty values out, so the unit's copy lacks the key.
    Vorn::Config expected = kReported;
    expected.erase("CallMagic");
    EXPECT_EQ(receivedWrite(), expected);
}

TEST_F(DeviceEditorWrite, SavingWithNothingChangedSendsNothing)
{
    report(kReported);
    open();
    const QStringList logBefore = client->log();
    const std::uint16_t seqBefore = client->seq();
    editor.save();
    EXPECT_EQ(client->log(), logBefore);
    EXPECT_EQ(client->seq(), seqBefore);
    EXPECT_TRUE(unit.receiveWithin(kQuietWindow).empty());
}

TEST_F(DeviceEditorWrite, SavingNeverSendsTheNetworkKeys)
{
    report(kReported);
    open();
    editor.setIpAddr(QStringLiteral("127.0.0.3"));
    editor.setGateway(QStringLiteral("127.0.0.254"));
    const QStringList logBefore = client->log();
    editor.save();
    EXPECT_EQ(client->log(), logBefore);
    editor.setChannel(QStringLiteral("4"));
    editor.save();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: Channel=4"));
    EXPECT_EQ(receivedWrite(), overlaid(kReported, {{"Channel", "4"}}));
}

TEST_F(DeviceEditorWrite, SaveLeavesTheFieldsAndDirtyUntilTheUnitAnswers)
{
    report(kReported);
    open();
    editor.setChannel(QStringLiteral("4"));
    editor.save();
    EXPECT_TRUE(editor.dirty());
    EXPECT_EQ(editor.channel(), QStringLiteral("4"));
    report(overlaid(kReported, {{"Channel", "4"}}));
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorWrite, UnknownUnitSaveSendsEveryFieldThatDiffersFromTheEmptyText)
{
    open();
    editor.setChannel(QStringLiteral("2"));
    editor.save();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: AtemExtTally=0 Channel=2 SwitcherBand=7 SwitcherModel=0 "
                                          "TallyGpioType=0 TallyType=0"));
    EXPECT_EQ(receivedWrite(), cleanUnit({{"Channel", "2"}}));
}

TEST_F(DeviceEditorWrite, ApplyingAfterChangingOnlyTheGatewaySendsExactlyGateway)
{
    report(kReported);
    open();
    editor.setGateway(QStringLiteral("127.0.0.254"));
    editor.setChannel(QStringLiteral("9"));
    editor.applyNetwork();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: Gateway=127.0.0.254"));
    EXPECT_EQ(receivedWrite(), overlaid(kReported, {{"Gateway", "127.0.0.254"}}));
}

TEST_F(DeviceEditorWrite, ApplyingSendsTheChangedNetworkKeysToTheCurrentAddress)
{
    report(kReported);
    open();
    editor.setIpAddr(QStringLiteral("127.0.0.3"));
    editor.setNetmask(QStringLiteral("255.255.0.0"));
    editor.applyNetwork();
    EXPECT_EQ(lastWrite(), QStringLiteral("127.0.0.2: IPAddress=127.0.0.3 Netmask=255.255.0.0"));
    EXPECT_EQ(receivedWrite(), overlaid(kReported, {{"IPAddress", "127.0.0.3"}, {"Netmask", "255.255.0.0"}}));
}

TEST_F(DeviceEditorWrite, ApplyingWithAnInvalidFieldSendsNothing)
{
    report(kReported);
    open();
    editor.setIpAddr(QStringLiteral("127.0.0.3"));
    editor.setGateway(QStringLiteral("127.0.0"));
    const QStringList logBefore = client->log();
    editor.applyNetwork();
    EXPECT_EQ(client->log(), logBefore);
    EXPECT_TRUE(unit.receiveWithin(kQuietWindow).empty());
}

TEST_F(DeviceEditorWrite, ApplyingWithNothingChangedSendsNothing)
{
    report(kReported);
    open();
    editor.setChannel(QStringLiteral("9"));
    const QStringList logBefore = client->log();
    editor.applyNetwork();
    EXPECT_EQ(client->log(), logBefore);
    EXPECT_TRUE(unit.receiveWithin(kQuietWindow).empty());
}
