// SPDX-License-Identifier: Apache-2.0
// The editor object on a link: loading once per selection, reloading, replies
// arriving while the user edits, the notifications and the sections' keys.
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

class DeviceEditorTest : public EditorFixture {
protected:
    // Every field holds its value of kFull.
    void expectFullLoaded()
    {
        EXPECT_EQ(tally().fieldAs<TextField>("AtemIp")->text(), QStringLiteral("10.0.0.5"));
        EXPECT_EQ(tally().fieldAs<TextField>("AtemPort")->text(), QStringLiteral("9910"));
        EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), QStringLiteral("3"));
        EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 2);
        EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherModel")->value(), 10);
        EXPECT_EQ(tally().fieldAs<ChoiceField>("AtemExtTally")->value(), 1);
        EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->value(), 4);
        EXPECT_EQ(tally().fieldAs<StepperField>("TallyGpioType")->value(), 5);
        EXPECT_EQ(network().fieldAs<TextField>("IPAddress")->text(), QStringLiteral("127.0.0.2"));
        EXPECT_EQ(network().fieldAs<TextField>("Netmask")->text(), QStringLiteral("255.0.0.0"));
        EXPECT_EQ(network().fieldAs<TextField>("Gateway")->text(), QStringLiteral("127.0.0.1"));
        EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->value(), 2);
        EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->value(), 3);
        EXPECT_TRUE(communication().fieldAs<SwitchField>("Wire2Enable")->checked());
        EXPECT_EQ(communication().fieldAs<TextField>("CallMagic")->text(), QStringLiteral("secret"));
    }
};

}  // namespace

TEST_F(DeviceEditorTest, FreshEditorHoldsTheInitialValues)
{
    EXPECT_EQ(editor.client(), nullptr);
    EXPECT_EQ(editor.ip(), QString());
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 7);
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->value(), 1);
    EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->value(), 0);
    EXPECT_FALSE(communication().fieldAs<SwitchField>("Wire2Enable")->checked());
    EXPECT_EQ(editor.loadedFor(), QString());
    EXPECT_FALSE(header().online());
}

TEST_F(DeviceEditorTest, OpeningAUnitLoadsEveryFieldFromItsLiveConfiguration)
{
    report(kFull);
    open();
    expectFullLoaded();
    EXPECT_EQ(editor.loadedFor(), QString::fromLatin1(kUnitIp));
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(network().dirty());
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
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 7);
    EXPECT_EQ(tally().fieldAs<TextField>("AtemIp")->text(), QString());
    EXPECT_EQ(header().title(), QStringLiteral("127.0.0.9"));
    EXPECT_EQ(header().onlineText(), QStringLiteral("Offline"));
    // Every field holds what a missing key stands for: nothing differs.
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorTest, UnitReportingBandSevenModelZeroAndNoLevelsOrWire2IsCleanAfterLoading)
{
    // The levels, Wire2 and every text key are absent.
    report(cleanUnit());
    open();
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->value(), 1);
    EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->value(), 0);
    EXPECT_FALSE(communication().fieldAs<SwitchField>("Wire2Enable")->checked());
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorTest, UnitReportingOnlyBandAndModelLoadsClean)
{
    // A missing AtemExtTally, TallyType or TallyGpioType holds its default 0.
    report({{"SwitcherBand", "7"}, {"SwitcherModel", "0"}});
    open();
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(editor.canSave());
}

TEST_F(DeviceEditorTest, UnitWithoutSwitcherBandLoadsSevenAndClean)
{
    Vorn::Config noBand = cleanUnit();
    noBand.erase("SwitcherBand");
    report(noBand);
    open();
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 7);
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(tally().fieldAs<NumberField>("SwitcherBand")->dirty());
}

TEST_F(DeviceEditorTest, TallyTypeTwelveIsLoadedWithoutClamping)
{
    report(cleanUnit({{"TallyType", "12"}}));
    open();
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->value(), 12);
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorTest, SignedAndZeroPaddedIntegersLoadTheirValueAndCountAsChanged)
{
    report({{"SwitcherBand", "+5"}, {"SwitcherModel", "09"}});
    open();
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 5);
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherModel")->value(), 9);
    EXPECT_TRUE(editor.dirty());
}

TEST_F(DeviceEditorTest, ReloadRestoresEveryFieldIncludingTheNetworkFields)
{
    report(kFull);
    open();
    tally().fieldAs<TextField>("AtemIp")->setText(QStringLiteral("1.1.1.1"));
    tally().fieldAs<TextField>("AtemPort")->setText(QStringLiteral("1"));
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("99"));
    tally().setSwitcherSelection(QStringLiteral("5.9"));
    tally().fieldAs<ChoiceField>("AtemExtTally")->setValue(3);
    tally().fieldAs<StepperField>("TallyType")->setValue(0);
    tally().fieldAs<StepperField>("TallyGpioType")->setValue(0);
    network().fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    network().fieldAs<TextField>("Netmask")->setText(QStringLiteral("255.255.0.0"));
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.254"));
    communication().fieldAs<ChoiceField>("ScenarioType")->setValue(4);
    communication().fieldAs<ChoiceField>("SilenceSuppress")->setValue(0);
    communication().fieldAs<SwitchField>("Wire2Enable")->setChecked(false);
    communication().fieldAs<TextField>("CallMagic")->setText(QString());
    ASSERT_TRUE(editor.dirty());
    ASSERT_TRUE(network().dirty());

    editor.load();

    expectFullLoaded();
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(network().dirty());
}

TEST_F(DeviceEditorTest, ReloadShowsTheLatestReplyNotTheOneFirstLoaded)
{
    report(kFull);
    open();
    Vorn::Config newer = kFull;
    newer["Channel"] = "8";
    report(newer);
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), QStringLiteral("3"));
    editor.load();
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), QStringLiteral("8"));
}

TEST_F(DeviceEditorTest, NewReplyOfTheSameUnitKeepsTheEditedFieldsAndFlipsDirty)
{
    report(kFull);
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("7"));
    ASSERT_TRUE(editor.dirty());

    QSignalSpy channelSpy(communication().fieldAs<TextField>("Channel"), &EditorField::changed);
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    QSignalSpy loadedSpy(&editor, &DeviceEditor::loadedForChanged);
    Vorn::Config saved = kFull;
    saved["Channel"] = "7";
    report(saved);

    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), QStringLiteral("7"));
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(communication().fieldAs<TextField>("Channel")->dirty());
    EXPECT_TRUE(communication().fieldAs<TextField>("Channel")->touched());
    EXPECT_EQ(dirtySpy.count(), 1);
    // The field announces once: its value stays, its dirty flag clears.
    EXPECT_EQ(channelSpy.count(), 1);
    EXPECT_EQ(loadedSpy.count(), 0);
}

TEST_F(DeviceEditorTest, ReplyWithAValueChangedElsewhereMakesTheUntouchedFieldDiffer)
{
    report(kFull);
    open();
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    QSignalSpy atemSpy(tally().fieldAs<TextField>("AtemIp"), &EditorField::changed);
    Vorn::Config changedElsewhere = kFull;
    changedElsewhere["AtemIp"] = "10.0.0.6";
    report(changedElsewhere);
    EXPECT_EQ(tally().fieldAs<TextField>("AtemIp")->text(), QStringLiteral("10.0.0.5"));
    EXPECT_TRUE(editor.dirty());
    EXPECT_TRUE(tally().fieldAs<TextField>("AtemIp")->dirty());
    EXPECT_FALSE(tally().fieldAs<TextField>("AtemIp")->touched());
    EXPECT_EQ(dirtySpy.count(), 1);
    // The field announces once: its value stays, it now differs.
    EXPECT_EQ(atemSpy.count(), 1);
}

TEST_F(DeviceEditorTest, ReplyFollowsIntoChipsDetailsAndLiveAtOnce)
{
    report(kFull);
    open();
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    QSignalSpy chipSpy(&header(), &EditorHeader::changed);
    QSignalSpy firmwareSpy(&header(), &EditorHeader::changed);
    QSignalSpy detailsSpy(&editor, &DeviceEditor::liveChanged);
    Vorn::Config newer = kFull;
    newer["Channel"] = "9";
    newer["Version"] = "1.5.0";
    report(newer);
    EXPECT_EQ(header().channelChip(), QStringLiteral("Ch 9"));
    EXPECT_EQ(header().firmwareChip(), QStringLiteral("fw 1.5.0"));
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
    QSignalSpy detailsSpy(&editor, &DeviceEditor::liveChanged);
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
    EXPECT_EQ(header().channelChip(), QStringLiteral("Ch 3"));
}

TEST_F(DeviceEditorTest, FirstReplyOfTheOpenUnitFillsLiveButNotTheFields)
{
    open();
    QSignalSpy liveSpy(&editor, &DeviceEditor::liveChanged);
    QSignalSpy onlineSpy(&header(), &EditorHeader::changed);
    report(kFull);
    EXPECT_EQ(liveSpy.count(), 1);
    EXPECT_EQ(onlineSpy.count(), 1);
    EXPECT_TRUE(header().online());
    EXPECT_EQ(tally().fieldAs<TextField>("AtemIp")->text(), QString());
    EXPECT_EQ(header().title(), QStringLiteral("KT400 \u00B7ABC123"));
}

TEST_F(DeviceEditorTest, SelectingAnotherUnitLoadsItAndDropsTheEdits)
{
    report(kFull);
    report({{"Channel", "42"}, {"SwitcherBand", "0"}}, "127.0.0.3");
    open();
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("typed"));
    QSignalSpy loadedSpy(&editor, &DeviceEditor::loadedForChanged);
    QSignalSpy ipSpy(&editor, &DeviceEditor::ipChanged);

    editor.setIp(QStringLiteral("127.0.0.3"));

    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), QStringLiteral("42"));
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 0);
    EXPECT_EQ(communication().fieldAs<TextField>("CallMagic")->text(), QString());
    EXPECT_EQ(editor.loadedFor(), QStringLiteral("127.0.0.3"));
    EXPECT_EQ(loadedSpy.count(), 1);
    EXPECT_EQ(ipSpy.count(), 1);
}

TEST_F(DeviceEditorTest, SettingTheSameUnitAgainKeepsTheEdits)
{
    report(kFull);
    open();
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("typed"));
    QSignalSpy ipSpy(&editor, &DeviceEditor::ipChanged);
    editor.setIp(QString::fromLatin1(kUnitIp));
    EXPECT_EQ(communication().fieldAs<TextField>("CallMagic")->text(), QStringLiteral("typed"));
    EXPECT_EQ(ipSpy.count(), 0);
}

TEST_F(DeviceEditorTest, SettingAFieldToItsValueEmitsNothing)
{
    report(kFull);
    open();
    QSignalSpy channelSpy(communication().fieldAs<TextField>("Channel"), &EditorField::changed);
    QSignalSpy bandSpy(tally().fieldAs<NumberField>("SwitcherBand"), &EditorField::changed);
    QSignalSpy wireSpy(communication().fieldAs<SwitchField>("Wire2Enable"), &EditorField::changed);
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("3"));
    tally().fieldAs<NumberField>("SwitcherBand")->setValue(2);
    communication().fieldAs<SwitchField>("Wire2Enable")->setChecked(true);
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
    QSignalSpy channelSpy(communication().fieldAs<TextField>("Channel"), &EditorField::changed);
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("31"));
    EXPECT_TRUE(editor.dirty());
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("32"));
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("3"));
    EXPECT_FALSE(editor.dirty());
    EXPECT_EQ(dirtySpy.count(), 2);
    EXPECT_EQ(channelSpy.count(), 3);
}

TEST_F(DeviceEditorTest, OpeningAUnitLoadsOnceWhicheverIsSetFirst)
{
    report(kFull);
    QSignalSpy loadedSpy(&editor, &DeviceEditor::loaded);
    editor.setLink(&link);
    EXPECT_EQ(loadedSpy.count(), 0);
    editor.setIp(QString::fromLatin1(kUnitIp));
    EXPECT_EQ(loadedSpy.count(), 1);

    DeviceEditor other;
    QSignalSpy otherSpy(&other, &DeviceEditor::loaded);
    other.setIp(QString::fromLatin1(kUnitIp));
    EXPECT_EQ(otherSpy.count(), 0);
    other.setLink(&link);
    EXPECT_EQ(otherSpy.count(), 1);
    EXPECT_EQ(other.communication()->fieldAs<TextField>("Channel")->text(), QStringLiteral("3"));
}

TEST_F(DeviceEditorTest, RepliesAndTicksNeverLoad)
{
    report(kFull);
    open();
    QSignalSpy loadedSpy(&editor, &DeviceEditor::loaded);
    report(kFull);
    link.advance(std::chrono::seconds(1));
    link.tick();
    EXPECT_EQ(loadedSpy.count(), 0);
    editor.load();
    EXPECT_EQ(loadedSpy.count(), 1);
}

TEST_F(DeviceEditorTest, AUserEditMarksOnlyThatFieldTouchedUntilTheNextLoad)
{
    report(kFull);
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("3"));
    EXPECT_FALSE(communication().fieldAs<TextField>("Channel")->touched());
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("4"));
    EXPECT_TRUE(communication().fieldAs<TextField>("Channel")->touched());
    EXPECT_FALSE(tally().fieldAs<TextField>("AtemIp")->touched());
    editor.load();
    EXPECT_FALSE(communication().fieldAs<TextField>("Channel")->touched());
}

TEST_F(DeviceEditorTest, EachSectionOwnsItsKeysOfTheComparison)
{
    report(kFull);
    open();
    tally().fieldAs<TextField>("AtemIp")->setText(QStringLiteral("10.0.0.6"));
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("4"));
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.9"));
    const auto keysOf = [](const EditorSection& section) {
        std::vector<std::string_view> keys;
        for (const auto& key : section.comparison())
            keys.push_back(key.key);
        return keys;
    };
    // The rows that name the section, in table order.
    const auto rowsOf = [](Settings::Section section) {
        std::vector<std::string_view> keys;
        for (const auto& row : Settings::kEditableKeys)
            if (row.section == section)
                keys.push_back(row.key);
        return keys;
    };
    EXPECT_EQ(keysOf(tally()), rowsOf(Settings::Section::Tally));
    EXPECT_EQ(keysOf(communication()), rowsOf(Settings::Section::Communication));
    EXPECT_EQ(keysOf(network()), rowsOf(Settings::Section::Network));
    EXPECT_EQ(keysOf(network()).front(), "IPAddress");
    EXPECT_TRUE(tally().dirty());
    EXPECT_TRUE(communication().dirty());
    EXPECT_TRUE(network().dirty());
    tally().fieldAs<TextField>("AtemIp")->setText(QStringLiteral("10.0.0.5"));
    EXPECT_FALSE(tally().dirty());
    EXPECT_TRUE(editor.dirty());
}
