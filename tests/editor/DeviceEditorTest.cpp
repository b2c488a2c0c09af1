// The editor object with a client: loading, reloading, replies arriving while
// the user edits, the notifications and a client that goes away.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "EditorTestKit.h"

using namespace EditorTest;

namespace {

const Vorn::Config kFull = {
    {"AtemIp", "10.0.0.5"},   {"AtemPort", "9910"},       {"Channel", "3"},          {"SwitcherBand", "2"},
    {"SwitcherModel", "10"},  {"AtemExtTally", "1"},      {"TallyType", "4"},        {"TallyGpioType", "5"},
    {"IPAddress", "127.0.0.2"}, {"Netmask", "255.0.0.0"}, {"Gateway", "127.0.0.1"}, {"ScenarioType", "2"},
    {"SilenceSuppress", "3"}, {"Wire2Enable", "1"},       {"CallMagic", "secret"},   {"Serial", "KT400ABC123"},
    {"Version", "1.4.2"},
};

class DeviceEditorTest : public EditorFixture {};

}  // namespace

TEST_F(DeviceEditorTest, FreshEditorHoldsTheInitialValues)
{
    EXPECT_EQ(editor.client(), nullptr);
    EXPECT_EQ(editor.ip(), QString());
    EXPECT_EQ(editor.band(), 7);
    EXPECT_EQ(editor.scene(), 1);
    EXPECT_EQ(editor.suppress(), 0);
    EXPECT_FALSE(editor.wire2());
    EXPECT_FALSE(editor.showNetConfirm());
    EXPECT_EQ(editor.tab(), DeviceEditor::DetailTab::Tally);
    EXPECT_EQ(editor.loadedFor(), QString());
    EXPECT_FALSE(editor.online());
}

TEST_F(DeviceEditorTest, OpeningAUnitLoadsEveryFieldFromItsLiveConfiguration)
{
    report(kFull);
    open();
    EXPECT_EQ(editor.atemIp(), QStringLiteral("10.0.0.5"));
    EXPECT_EQ(editor.atemPort(), QStringLiteral("9910"));
    EXPECT_EQ(editor.channel(), QStringLiteral("3"));
    EXPECT_EQ(editor.band(), 2);
    EXPECT_EQ(editor.model(), 10);
    EXPECT_EQ(editor.extTally(), 1);
    EXPECT_EQ(editor.tallyType(), 4);
    EXPECT_EQ(editor.gpioType(), 5);
    EXPECT_EQ(editor.ipAddr(), QStringLiteral("127.0.0.2"));
    EXPECT_EQ(editor.netmask(), QStringLiteral("255.0.0.0"));
    EXPECT_EQ(editor.gateway(), QStringLiteral("127.0.0.1"));
    EXPECT_EQ(editor.scene(), 2);
    EXPECT_EQ(editor.suppress(), 3);
    EXPECT_TRUE(editor.wire2());
    EXPECT_EQ(editor.password(), QStringLiteral("secret"));
    EXPECT_EQ(editor.loadedFor(), QString::fromLatin1(kUnitIp));
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(editor.netDirty());
}

TEST_F(DeviceEditorTest, LiveIsTheConfigurationOfTheUnitsLatestReply)
{
    report(kFull);
    open();
    EXPECT_EQ(editor.live().value(QStringLiteral("Version")).toString(), QStringLiteral("1.4.2"));
    EXPECT_EQ(editor.live().size(), static_cast<qsizetype>(kFull.size()));
}

TEST_F(DeviceEditorTest, UnknownUnitLoadsTheDefaultsAndHasAnEmptyLive)
{
    open("127.0.0.9");
    EXPECT_TRUE(editor.live().isEmpty());
    EXPECT_EQ(editor.band(), 7);
    EXPECT_EQ(editor.atemIp(), QString());
    EXPECT_EQ(editor.title(), QStringLiteral("127.0.0.9"));
    EXPECT_EQ(editor.onlineText(), QStringLiteral("Offline"));
    // Nothing reports SwitcherBand, so the loaded 7 already differs.
    EXPECT_TRUE(editor.dirty());
}

TEST_F(DeviceEditorTest, UnitReportingBandSevenModelZeroAndNoLevelsOrWire2IsCleanAfterLoading)
{
    // The levels, Wire2 and every text key are absent.
    report(cleanUnit());
    open();
    EXPECT_EQ(editor.scene(), 1);
    EXPECT_EQ(editor.suppress(), 0);
    EXPECT_FALSE(editor.wire2());
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorTest, UnitReportingOnlyBandAndModelIsDirtyForItsMissingIntegerKeys)
{
    // A missing AtemExtTally, TallyType or TallyGpioType is the empty text,
    // which the loaded 0 never equals.
    report({{"SwitcherBand", "7"}, {"SwitcherModel", "0"}});
    open();
    EXPECT_TRUE(editor.dirty());
}

TEST_F(DeviceEditorTest, UnitWithoutSwitcherBandLoadsSevenAndIsDirtyAtOnce)
{
    Vorn::Config noBand = cleanUnit();
    noBand.erase("SwitcherBand");
    report(noBand);
    open();
    EXPECT_EQ(editor.band(), 7);
    EXPECT_TRUE(editor.dirty());
}

TEST_F(DeviceEditorTest, TallyTypeTwelveIsLoadedWithoutClamping)
{
    report(cleanUnit({{"TallyType", "12"}}));
    open();
    EXPECT_EQ(editor.tallyType(), 12);
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorTest, SignedAndZeroPaddedIntegersLoadTheirValueAndCountAsChanged)
{
    report({{"SwitcherBand", "+5"}, {"SwitcherModel", "09"}});
    open();
    EXPECT_EQ(editor.band(), 5);
    EXPECT_EQ(editor.model(), 9);
    EXPECT_TRUE(editor.dirty());
}

TEST_F(DeviceEditorTest, ReloadRestoresEveryFieldIncludingTheNetworkFields)
{
    report(kFull);
    open();
    editor.setAtemIp(QStringLiteral("1.1.1.1"));
    editor.setAtemPort(QStringLiteral("1"));
    editor.setChannel(QStringLiteral("99"));
    editor.setSwitcherSelection(QStringLiteral("5.9"));
    editor.setExtTally(3);
    editor.setTallyType(0);
    editor.setGpioType(0);
    editor.setIpAddr(QStringLiteral("127.0.0.3"));
    editor.setNetmask(QStringLiteral("255.255.0.0"));
    editor.setGateway(QStringLiteral("127.0.0.254"));
    editor.setScene(4);
    editor.setSuppress(0);
    editor.setWire2(false);
    editor.setPassword(QString());
    ASSERT_TRUE(editor.dirty());
    ASSERT_TRUE(editor.netDirty());

    editor.load();

    EXPECT_EQ(editor.atemIp(), QStringLiteral("10.0.0.5"));
    EXPECT_EQ(editor.atemPort(), QStringLiteral("9910"));
    EXPECT_EQ(editor.channel(), QStringLiteral("3"));
    EXPECT_EQ(editor.band(), 2);
    EXPECT_EQ(editor.model(), 10);
    EXPECT_EQ(editor.extTally(), 1);
    EXPECT_EQ(editor.tallyType(), 4);
    EXPECT_EQ(editor.gpioType(), 5);
    EXPECT_EQ(editor.ipAddr(), QStringLiteral("127.0.0.2"));
    EXPECT_EQ(editor.netmask(), QStringLiteral("255.0.0.0"));
    EXPECT_EQ(editor.gateway(), QStringLiteral("127.0.0.1"));
    EXPECT_EQ(editor.scene(), 2);
    EXPECT_EQ(editor.suppress(), 3);
    EXPECT_TRUE(editor.wire2());
    EXPECT_EQ(editor.password(), QStringLiteral("secret"));
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(editor.netDirty());
}

TEST_F(DeviceEditorTest, ReloadShowsTheLatestReplyNotTheOneFirstLoaded)
{
    report(kFull);
    open();
    Vorn::Config newer = kFull;
    newer["Channel"] = "8";
    report(newer);
    EXPECT_EQ(editor.channel(), QStringLiteral("3"));
    editor.load();
    EXPECT_EQ(editor.channel(), QStringLiteral("8"));
}

TEST_F(DeviceEditorTest, NewReplyOfTheSameUnitKeepsTheEditedFieldsAndFlipsDirty)
{
    report(kFull);
    open();
    editor.setChannel(QStringLiteral("7"));
    ASSERT_TRUE(editor.dirty());

    QSignalSpy channelSpy(&editor, &DeviceEditor::channelChanged);
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    QSignalSpy loadedSpy(&editor, &DeviceEditor::loadedForChanged);
    Vorn::Config saved = kFull;
    saved["Channel"] = "7";
    report(saved);

    EXPECT_EQ(editor.channel(), QStringLiteral("7"));
    EXPECT_FALSE(editor.dirty());
    EXPECT_EQ(dirtySpy.count(), 1);
    EXPECT_EQ(channelSpy.count(), 0);
    EXPECT_EQ(loadedSpy.count(), 0);
}

TEST_F(DeviceEditorTest, ReplyWithAValueChangedElsewhereMakesTheUntouchedFieldDiffer)
{
    report(kFull);
    open();
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    QSignalSpy atemSpy(&editor, &DeviceEditor::atemIpChanged);
    Vorn::Config changedElsewhere = kFull;
    changedElsewhere["AtemIp"] = "10.0.0.6";
    report(changedElsewhere);
    EXPECT_EQ(editor.atemIp(), QStringLiteral("10.0.0.5"));
    EXPECT_TRUE(editor.dirty());
    EXPECT_EQ(dirtySpy.count(), 1);
    EXPECT_EQ(atemSpy.count(), 0);
}

TEST_F(DeviceEditorTest, ReplyFollowsIntoChipsDetailsAndLiveAtOnce)
{
    report(kFull);
    open();
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    QSignalSpy chipSpy(&editor, &DeviceEditor::channelChipChanged);
    QSignalSpy firmwareSpy(&editor, &DeviceEditor::firmwareChipChanged);
    QSignalSpy detailsSpy(&editor, &DeviceEditor::detailsChanged);
    Vorn::Config newer = kFull;
    newer["Channel"] = "9";
    newer["Version"] = "1.5.0";
    report(newer);
    EXPECT_EQ(editor.channelChip(), QStringLiteral("Ch 9"));
    EXPECT_EQ(editor.firmwareChip(), QStringLiteral("fw 1.5.0"));
    EXPECT_EQ(editor.live().value(QStringLiteral("Channel")).toString(), QStringLiteral("9"));
    EXPECT_EQ(liveSpy.count(), 1);
    EXPECT_EQ(chipSpy.count(), 1);
    EXPECT_EQ(firmwareSpy.count(), 1);
    EXPECT_EQ(detailsSpy.count(), 1);
}

TEST_F(DeviceEditorTest, IdenticalReplyAnnouncesNothing)
{
    report(kFull);
    open();
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    QSignalSpy detailsSpy(&editor, &DeviceEditor::detailsChanged);
    report(kFull);
    EXPECT_EQ(liveSpy.count(), 0);
    EXPECT_EQ(dirtySpy.count(), 0);
    EXPECT_EQ(detailsSpy.count(), 0);
}

TEST_F(DeviceEditorTest, ReplyOfAnotherUnitLeavesTheEditorAlone)
{
    report(kFull);
    open();
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    report({{"Channel", "1"}}, "127.0.0.1");
    report({{"Channel", "2"}}, "127.0.0.3");
    EXPECT_EQ(liveSpy.count(), 0);
    EXPECT_EQ(editor.channelChip(), QStringLiteral("Ch 3"));
}

TEST_F(DeviceEditorTest, FirstReplyOfTheOpenUnitFillsLiveButNotTheFields)
{
    open();
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    QSignalSpy onlineSpy(&editor, &DeviceEditor::onlineChanged);
    report(kFull);
    EXPECT_EQ(liveSpy.count(), 1);
    EXPECT_EQ(onlineSpy.count(), 1);
    EXPECT_TRUE(editor.online());
    EXPECT_EQ(editor.atemIp(), QString());
    EXPECT_EQ(editor.title(), QStringLiteral("KT400 \u00B7ABC123"));
}

TEST_F(DeviceEditorTest, SelectingAnotherUnitLoadsItAndDropsTheEdits)
{
    report(kFull);
    report({{"Channel", "42"}, {"SwitcherBand", "0"}}, "127.0.0.3");
    open();
    editor.setPassword(QStringLiteral("typed"));
    QSignalSpy loadedSpy(&editor, &DeviceEditor::loadedForChanged);
    QSignalSpy ipSpy(&editor, &DeviceEditor::ipChanged);

    editor.setIp(QStringLiteral("127.0.0.3"));

    EXPECT_EQ(editor.channel(), QStringLiteral("42"));
    EXPECT_EQ(editor.band(), 0);
    EXPECT_EQ(editor.password(), QString());
    EXPECT_EQ(editor.loadedFor(), QStringLiteral("127.0.0.3"));
    EXPECT_EQ(loadedSpy.count(), 1);
    EXPECT_EQ(ipSpy.count(), 1);
}

TEST_F(DeviceEditorTest, SettingTheSameUnitAgainKeepsTheEdits)
{
    report(kFull);
    open();
    editor.setPassword(QStringLiteral("typed"));
    QSignalSpy ipSpy(&editor, &DeviceEditor::ipChanged);
    editor.setIp(QString::fromLatin1(kUnitIp));
    EXPECT_EQ(editor.password(), QStringLiteral("typed"));
    EXPECT_EQ(ipSpy.count(), 0);
}

TEST_F(DeviceEditorTest, SettingAFieldToItsValueEmitsNothing)
{
    report(kFull);
    open();
    QSignalSpy channelSpy(&editor, &DeviceEditor::channelChanged);
    QSignalSpy bandSpy(&editor, &DeviceEditor::bandChanged);
    QSignalSpy wireSpy(&editor, &DeviceEditor::wire2Changed);
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    editor.setChannel(QStringLiteral("3"));
    editor.setBand(2);
    editor.setWire2(true);
    editor.load();
    EXPECT_EQ(channelSpy.count(), 0);
    EXPECT_EQ(bandSpy.count(), 0);
    EXPECT_EQ(wireSpy.count(), 0);
    EXPECT_EQ(dirtySpy.count(), 0);
}

TEST_F(DeviceEditorTest, EditingAndRevertingAFieldTogglesDirtyTwice)
{
    report(kFull);
    open();
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    QSignalSpy channelSpy(&editor, &DeviceEditor::channelChanged);
    editor.setChannel(QStringLiteral("31"));
    EXPECT_TRUE(editor.dirty());
    editor.setChannel(QStringLiteral("32"));
    editor.setChannel(QStringLiteral("3"));
    EXPECT_FALSE(editor.dirty());
    EXPECT_EQ(dirtySpy.count(), 2);
    EXPECT_EQ(channelSpy.count(), 3);
}

TEST_F(DeviceEditorTest, ClientGoneLeavesAnOfflineEditorWithEmptyLive)
{
    report(kFull);
    open();
    QSignalSpy clientSpy(&editor, &DeviceEditor::clientChanged);
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    client.reset();
    EXPECT_EQ(editor.client(), nullptr);
    EXPECT_FALSE(editor.online());
    EXPECT_TRUE(editor.live().isEmpty());
    EXPECT_EQ(clientSpy.count(), 1);
    EXPECT_EQ(liveSpy.count(), 1);
    EXPECT_EQ(editor.atemIp(), QStringLiteral("10.0.0.5"));
}
