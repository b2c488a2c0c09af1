// SPDX-License-Identifier: Apache-2.0
// Save and the network apply: the changes the editor hands to its link, as the
// fake link records them. What goes on the wire is checked over loopback in
// DeviceEditorLoopbackTest.
#include <gtest/gtest.h>

#include "EditorTestKit.h"

using namespace EditorTest;

namespace {

const Vorn::Config kReported = {
    {"AtemIp", "10.0.0.5"},     {"AtemPort", "9910"},      {"Channel", "3"},          {"SwitcherBand", "2"},
    {"SwitcherModel", "10"},    {"AtemExtTally", "1"},     {"TallyType", "4"},        {"TallyGpioType", "5"},
    {"IPAddress", "127.0.0.2"}, {"Netmask", "255.0.0.0"},  {"Gateway", "127.0.0.1"}, {"ScenarioType", "2"},
    {"SilenceSuppress", "3"},   {"Wire2Enable", "1"},      {"CallMagic", "secret"},   {"Serial", "KT400ABC123"},
};

using Changes = std::optional<Vorn::Config>;

class DeviceEditorWrite : public EditorFixture {};

}  // namespace

TEST_F(DeviceEditorWrite, SavingAfterChangingOnlyThePasswordSendsExactlyCallMagic)
{
    report(kReported);
    open();
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("open sesame"));
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"CallMagic", "open sesame"}}}));
    EXPECT_EQ(link.writes.size(), 1u);
}

TEST_F(DeviceEditorWrite, SavingSendsEveryChangedKeyAndNoOther)
{
    report(kReported);
    open();
    tally().fieldAs<TextField>("AtemIp")->setText(QStringLiteral("10.0.0.6"));
    tally().setSwitcherSelection(QStringLiteral("5.9"));
    communication().fieldAs<ChoiceField>("ScenarioType")->setValue(4);
    communication().fieldAs<SwitchField>("Wire2Enable")->setChecked(false);
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("3"));
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"AtemIp", "10.0.0.6"},
                                     {"ScenarioType", "4"},
                                     {"SwitcherBand", "5"},
                                     {"SwitcherModel", "9"},
                                     {"Wire2Enable", "0"}}}));
}

TEST_F(DeviceEditorWrite, UnitWithoutSwitcherBandIsSentOnlyTheChangedKey)
{
    Vorn::Config noBand = cleanUnit({{"Channel", "1"}});
    noBand.erase("SwitcherBand");
    report(noBand);
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"Channel", "5"}}}));
}

TEST_F(DeviceEditorWrite, UntouchedMissingScenarioIsNotSent)
{
    report(cleanUnit());
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"Channel", "5"}}}));
}

TEST_F(DeviceEditorWrite, Wire2ReportedAsTrueIsSavedAsZero)
{
    report(cleanUnit({{"Wire2Enable", "true"}}));
    open();
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"Wire2Enable", "0"}}}));
}

TEST_F(DeviceEditorWrite, ClearingThePasswordSendsCallMagicWithTheEmptyText)
{
    report(kReported);
    open();
    communication().fieldAs<TextField>("CallMagic")->setText(QString());
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"CallMagic", ""}}}));
}

TEST_F(DeviceEditorWrite, SavingWithNothingChangedSendsNothing)
{
    report(kReported);
    open();
    editor.save();
    EXPECT_TRUE(link.writes.empty());
}

TEST_F(DeviceEditorWrite, SavingNeverSendsTheNetworkKeys)
{
    report(kReported);
    open();
    network().fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.254"));
    editor.save();
    EXPECT_TRUE(link.writes.empty());
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("4"));
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"Channel", "4"}}}));
}

TEST_F(DeviceEditorWrite, SaveLeavesTheFieldsAndDirtyUntilTheUnitAnswers)
{
    report(kReported);
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("4"));
    editor.save();
    EXPECT_TRUE(editor.dirty());
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), QStringLiteral("4"));
    report(overlaid(kReported, {{"Channel", "4"}}));
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorWrite, UnknownUnitSaveSendsOnlyTheFieldThatDiffers)
{
    // The integer fields hold what their missing keys stand for: no difference.
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("2"));
    editor.save();
    EXPECT_EQ(lastWrite(), (Changes{{{"Channel", "2"}}}));
}

TEST_F(DeviceEditorWrite, ApplyingAfterChangingOnlyTheGatewaySendsExactlyGateway)
{
    report(kReported);
    open();
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.254"));
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("9"));
    editor.applyNetwork();
    EXPECT_EQ(lastWrite(), (Changes{{{"Gateway", "127.0.0.254"}}}));
}

TEST_F(DeviceEditorWrite, ApplyingSendsTheChangedNetworkKeysToTheCurrentAddress)
{
    report(kReported);
    open();
    network().fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    network().fieldAs<TextField>("Netmask")->setText(QStringLiteral("255.255.0.0"));
    editor.applyNetwork();
    EXPECT_EQ(lastWrite(), (Changes{{{"IPAddress", "127.0.0.3"}, {"Netmask", "255.255.0.0"}}}));
}

TEST_F(DeviceEditorWrite, ApplyingWithAnInvalidFieldSendsNothing)
{
    report(kReported);
    open();
    network().fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0"));
    editor.applyNetwork();
    EXPECT_TRUE(link.writes.empty());
}

TEST_F(DeviceEditorWrite, ApplyingWithNothingChangedSendsNothing)
{
    report(kReported);
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("9"));
    editor.applyNetwork();
    EXPECT_TRUE(link.writes.empty());
}

TEST_F(DeviceEditorWrite, EditorWithoutALinkWritesNothingAndStaysQuiet)
{
    DeviceEditor detached;
    detached.setIp(QString::fromLatin1(kUnitIp));
    detached.communication()->fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
    detached.save();
    EXPECT_EQ(detached.verdict()->kind(), SaveVerdict::Kind::None);
}
