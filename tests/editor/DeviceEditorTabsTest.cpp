// SPDX-License-Identifier: Apache-2.0
// What the four tabs show: the switcher picker, banks, steppers, the
// communication pickers, the network check and confirmation, the details grid.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "EditorTestKit.h"

using namespace EditorTest;

namespace {

class DeviceEditorTabs : public EditorFixture {
protected:
    QVariantMap entry(int row) { return tally().switcherEntries().value(row).toMap(); }
    QString detailKey(int row) { return editor.details().value(row).toMap().value(QStringLiteral("key")).toString(); }
    QString detailValue(int row)
    {
        return editor.details().value(row).toMap().value(QStringLiteral("value")).toString();
    }
};

const Vorn::Config kNetwork = cleanUnit({{"IPAddress", "127.0.0.2"}, {"Netmask", "255.0.0.0"}, {"Gateway", "127.0.0.1"}});

}  // namespace

TEST_F(DeviceEditorTabs, SwitcherPickerListsTheTwelvePresetsWithBandDotModelTags)
{
    report({{"SwitcherBand", "7"}, {"SwitcherModel", "0"}});
    open();
    ASSERT_EQ(tally().switcherEntries().size(), 12);
    EXPECT_EQ(entry(0).value(QStringLiteral("label")).toString(), QStringLiteral("Blackmagic ATEM"));
    EXPECT_EQ(entry(0).value(QStringLiteral("tag")).toString(), QStringLiteral("7.0"));
    EXPECT_EQ(entry(10).value(QStringLiteral("label")).toString(), QStringLiteral("vMix"));
    EXPECT_EQ(entry(10).value(QStringLiteral("tag")).toString(), QStringLiteral("16.0"));
    EXPECT_EQ(entry(11).value(QStringLiteral("label")).toString(), QStringLiteral("Other"));
    EXPECT_EQ(entry(11).value(QStringLiteral("tag")).toString(), QStringLiteral("0.0"));
    EXPECT_EQ(tally().switcherIndex(), 0);
    EXPECT_EQ(tally().switcherSelection(), QStringLiteral("7.0"));
}

TEST_F(DeviceEditorTabs, BandOneModelFifteenSelectsDatavideoSe2200WithoutAnExtraEntry)
{
    report({{"SwitcherBand", "1"}, {"SwitcherModel", "15"}});
    open();
    EXPECT_EQ(tally().switcherEntries().size(), 12);
    EXPECT_EQ(tally().switcherIndex(), 2);
    EXPECT_EQ(entry(2).value(QStringLiteral("label")).toString(), QStringLiteral("Datavideo SE-2200"));
    EXPECT_EQ(tally().switcherSelection(), QStringLiteral("1.15"));
}

TEST_F(DeviceEditorTabs, BandFiveModelTwoAddsAThirteenthEntryThatIsSelected)
{
    report({{"SwitcherBand", "5"}, {"SwitcherModel", "2"}});
    open();
    ASSERT_EQ(tally().switcherEntries().size(), 13);
    EXPECT_EQ(entry(12).value(QStringLiteral("label")).toString(), QStringLiteral("Band 5 / Model 2"));
    EXPECT_EQ(entry(12).value(QStringLiteral("tag")).toString(), QStringLiteral("5.2"));
    EXPECT_EQ(tally().switcherIndex(), 12);
}

TEST_F(DeviceEditorTabs, UnknownAtemModelShowsAsBlackmagicAtemInTheThirteenthEntry)
{
    report({{"SwitcherBand", "7"}, {"SwitcherModel", "3"}});
    open();
    ASSERT_EQ(tally().switcherEntries().size(), 13);
    EXPECT_EQ(entry(12).value(QStringLiteral("label")).toString(), QStringLiteral("Blackmagic ATEM"));
    EXPECT_EQ(entry(12).value(QStringLiteral("tag")).toString(), QStringLiteral("7.3"));
}

TEST_F(DeviceEditorTabs, ChoosingAPresetReplacesBandAndModelAndDropsTheExtraEntry)
{
    report({{"SwitcherBand", "5"}, {"SwitcherModel", "2"}});
    open();
    // Entries, index and selection change together: the section announces
    // once, and so does the band; the model stays 2 and says nothing.
    QSignalSpy sectionSpy(&tally(), &EditorSection::changed);
    QSignalSpy bandSpy(tally().fieldAs<NumberField>("SwitcherBand"), &EditorField::changed);
    QSignalSpy modelSpy(tally().fieldAs<NumberField>("SwitcherModel"), &EditorField::changed);
    tally().setSwitcherSelection(QStringLiteral("9.2"));
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 9);
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherModel")->value(), 2);
    EXPECT_EQ(tally().switcherEntries().size(), 12);
    EXPECT_EQ(tally().switcherIndex(), 9);
    EXPECT_EQ(tally().switcherSelection(), QStringLiteral("9.2"));
    EXPECT_EQ(sectionSpy.count(), 1);
    EXPECT_EQ(bandSpy.count(), 1);
    EXPECT_EQ(modelSpy.count(), 0);
}

TEST_F(DeviceEditorTabs, SwitcherSelectionWithOneOrThreeIntegersChangesNothing)
{
    report({{"SwitcherBand", "2"}, {"SwitcherModel", "1"}});
    open();
    QSignalSpy bandSpy(tally().fieldAs<NumberField>("SwitcherBand"), &EditorField::changed);
    QSignalSpy selectionSpy(&tally(), &EditorSection::changed);
    tally().setSwitcherSelection(QStringLiteral("3.x"));
    tally().setSwitcherSelection(QStringLiteral("3.1.2"));
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherBand")->value(), 2);
    EXPECT_EQ(tally().fieldAs<NumberField>("SwitcherModel")->value(), 1);
    EXPECT_EQ(bandSpy.count(), 0);
    EXPECT_EQ(selectionSpy.count(), 0);
}

TEST_F(DeviceEditorTabs, TallyBanksReadCamerasWithEnDashes)
{
    EXPECT_EQ(tally().fieldAs<ChoiceField>("AtemExtTally")->options(),
              (QStringList{QStringLiteral("Cameras 1\u201312"), QStringLiteral("Cameras 13\u201324"),
                           QStringLiteral("Cameras 25\u201336"), QStringLiteral("Cameras 37\u201340")}));
}

TEST_F(DeviceEditorTabs, TallyBankIndexIsTheFieldOrMinusOneOutsideTheList)
{
    report({{"SwitcherBand", "7"}, {"AtemExtTally", "1"}});
    open();
    EXPECT_EQ(tally().fieldAs<ChoiceField>("AtemExtTally")->index(), 1);
    tally().fieldAs<ChoiceField>("AtemExtTally")->setValue(4);
    EXPECT_EQ(tally().fieldAs<ChoiceField>("AtemExtTally")->index(), -1);
}

TEST_F(DeviceEditorTabs, TallyTypeTwelveShowsAsTypeTwelveAndStepsDownIntoTheRange)
{
    report({{"SwitcherBand", "7"}, {"TallyType", "12"}});
    open();
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->title(), QStringLiteral("type 12"));
    EXPECT_FALSE(tally().fieldAs<StepperField>("TallyType")->canIncrease());
    EXPECT_TRUE(tally().fieldAs<StepperField>("TallyType")->canDecrease());
    tally().fieldAs<StepperField>("TallyType")->step(+1);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->value(), 12);
    tally().fieldAs<StepperField>("TallyType")->step(-1);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->value(), 9);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->title(), QStringLiteral("type 9"));
}

TEST_F(DeviceEditorTabs, TypeSteppersStopAtZeroAndNine)
{
    report({{"SwitcherBand", "7"}, {"TallyGpioType", "0"}});
    open();
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyGpioType")->title(), QStringLiteral("gpio 0"));
    EXPECT_FALSE(tally().fieldAs<StepperField>("TallyGpioType")->canDecrease());
    tally().fieldAs<StepperField>("TallyGpioType")->step(-1);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyGpioType")->value(), 0);
    // One announcement per step that moved the value; the presses past nine none.
    QSignalSpy upSpy(tally().fieldAs<StepperField>("TallyGpioType"), &EditorField::changed);
    for (int press = 0; press < 12; ++press)
        tally().fieldAs<StepperField>("TallyGpioType")->step(+1);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyGpioType")->value(), 9);
    EXPECT_FALSE(tally().fieldAs<StepperField>("TallyGpioType")->canIncrease());
    EXPECT_EQ(upSpy.count(), 9);
}

TEST_F(DeviceEditorTabs, NegativeTypeStepsUpIntoTheRange)
{
    report({{"SwitcherBand", "7"}, {"TallyType", "-4"}});
    open();
    EXPECT_FALSE(tally().fieldAs<StepperField>("TallyType")->canDecrease());
    tally().fieldAs<StepperField>("TallyType")->step(+1);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->value(), 0);
}

TEST_F(DeviceEditorTabs, SceneAndSuppressionOptionsUseAMiddleDot)
{
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->options(),
              (QStringList{QStringLiteral("0 \u00B7 Quiet place (whisper)"),
                           QStringLiteral("1 \u00B7 Most scenes (speak loudly)"),
                           QStringLiteral("2 \u00B7 Very noisy (roar)"), QStringLiteral("3 \u00B7 Deafening (loud voice)"),
                           QStringLiteral("4 \u00B7 Deafening (extreme)")}));
    EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->options(),
              (QStringList{QStringLiteral("0 \u00B7 Off"), QStringLiteral("1 \u00B7 1%"), QStringLiteral("2 \u00B7 2%"),
                           QStringLiteral("3 \u00B7 3%"), QStringLiteral("4 \u00B7 4%"), QStringLiteral("5 \u00B7 5%")}));
}

TEST_F(DeviceEditorTabs, ReportedScenarioThreeShowsDeafeningLoudVoice)
{
    report({{"SwitcherBand", "7"}, {"ScenarioType", "3"}});
    open();
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->index(), 3);
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->options().value(communication().fieldAs<ChoiceField>("ScenarioType")->index()), QStringLiteral("3 \u00B7 Deafening (loud voice)"));
}

TEST_F(DeviceEditorTabs, MissingScenarioShowsMostScenesAndIsNoChange)
{
    report(cleanUnit());
    open();
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->index(), 1);
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->options().value(communication().fieldAs<ChoiceField>("ScenarioType")->index()), QStringLiteral("1 \u00B7 Most scenes (speak loudly)"));
    EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->index(), 0);
    EXPECT_FALSE(editor.dirty());
}

TEST_F(DeviceEditorTabs, Wire2ReportedAsTrueShowsOffAndCountsAsChanged)
{
    report(cleanUnit({{"Wire2Enable", "true"}}));
    open();
    EXPECT_FALSE(communication().fieldAs<SwitchField>("Wire2Enable")->checked());
    EXPECT_TRUE(editor.dirty());
}

TEST_F(DeviceEditorTabs, SuppressionNineIsKeptAndSelectsNoOption)
{
    report(cleanUnit({{"SilenceSuppress", "9"}}));
    open();
    EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->value(), 9);
    EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->index(), -1);
    EXPECT_FALSE(editor.dirty());
    communication().fieldAs<ChoiceField>("SilenceSuppress")->setValue(2);
    EXPECT_EQ(communication().fieldAs<ChoiceField>("SilenceSuppress")->index(), 2);
}

TEST_F(DeviceEditorTabs, ValidUnchangedNetworkCannotBeApplied)
{
    report(kNetwork);
    open();
    EXPECT_TRUE(network().valid());
    EXPECT_FALSE(network().dirty());
    EXPECT_FALSE(editor.canApplyNetwork());
    EXPECT_FALSE(network().warning());
}

TEST_F(DeviceEditorTabs, InvalidStoredValuesShowNoWarningUntilSomethingChanges)
{
    report({{"SwitcherBand", "7"}, {"IPAddress", "127.0.0.2"}, {"Netmask", "bad"}});
    open();
    EXPECT_FALSE(network().valid());
    EXPECT_FALSE(network().warning());
    QSignalSpy warningSpy(&network(), &EditorSection::changed);
    network().fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    EXPECT_TRUE(network().warning());
    EXPECT_FALSE(editor.canApplyNetwork());
    EXPECT_EQ(warningSpy.count(), 1);
}

TEST_F(DeviceEditorTabs, ChangedValidNetworkCanBeAppliedAndInvalidEditWarns)
{
    report(kNetwork);
    open();
    QSignalSpy canApplySpy(&editor, &DeviceEditor::canApplyNetworkChanged);
    // The section announces when it turns dirty, then when it turns invalid.
    QSignalSpy sectionSpy(&network(), &EditorSection::changed);
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.254"));
    EXPECT_TRUE(editor.canApplyNetwork());
    EXPECT_FALSE(network().warning());
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0."));
    EXPECT_FALSE(network().valid());
    EXPECT_TRUE(network().warning());
    EXPECT_FALSE(editor.canApplyNetwork());
    EXPECT_EQ(canApplySpy.count(), 2);
    EXPECT_EQ(sectionSpy.count(), 2);
}

TEST_F(DeviceEditorTabs, EditingANetworkFieldNeverMakesTheEditorDirty)
{
    report(kNetwork);
    open();
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    network().fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    network().fieldAs<TextField>("Netmask")->setText(QStringLiteral("x"));
    EXPECT_FALSE(editor.dirty());
    EXPECT_TRUE(network().dirty());
    EXPECT_EQ(dirtySpy.count(), 0);
}

TEST_F(DeviceEditorTabs, ConfirmationNamesTheCurrentAddressAndTheNewValues)
{
    report(kNetwork);
    open();
    network().fieldAs<TextField>("IPAddress")->setText(QStringLiteral("127.0.0.3"));
    EXPECT_EQ(header().confirmTitle(), QStringLiteral("Apply network settings to 127.0.0.2?"));
    EXPECT_EQ(header().confirmMessage(),
              QStringLiteral("New: IP 127.0.0.3, mask 255.0.0.0, gateway 127.0.0.1.\n\n"
                             "If the IP changes, the unit reappears in the list under its new address. "
                             "A wrong value can strip it off-network (serial DB9 recovery)."));
}

TEST_F(DeviceEditorTabs, UnitReportingNoneOfTheFifteenKeysHasAnEmptyGrid)
{
    report({{"Wire2Enable", "1"}, {"ScenarioType", "2"}});
    open();
    EXPECT_TRUE(editor.details().isEmpty());
}

TEST_F(DeviceEditorTabs, UnitReportingOnlySerialAndVersionHasTwoCellsSerialFirst)
{
    report({{"Version", "1.0"}, {"Serial", "KT400XYZ"}});
    open();
    ASSERT_EQ(editor.details().size(), 2);
    EXPECT_EQ(detailKey(0), QStringLiteral("Serial"));
    EXPECT_EQ(detailValue(0), QStringLiteral("KT400XYZ"));
    EXPECT_EQ(detailKey(1), QStringLiteral("Version"));
    EXPECT_EQ(detailValue(1), QStringLiteral("1.0"));
}

TEST_F(DeviceEditorTabs, KeysOutsideTheListAreNotShown)
{
    report({{"Wire2Enable", "1"}, {"Channel", "4"}, {"Firmware", "x"}});
    open();
    ASSERT_EQ(editor.details().size(), 1);
    EXPECT_EQ(detailKey(0), QStringLiteral("Channel"));
}

TEST_F(DeviceEditorTabs, KeyReportedWithEmptyTextGivesACellWithAnEmptyValue)
{
    report({{"CallMagic", ""}});
    open();
    ASSERT_EQ(editor.details().size(), 1);
    EXPECT_EQ(detailKey(0), QStringLiteral("CallMagic"));
    EXPECT_EQ(detailValue(0), QString());
    EXPECT_TRUE(editor.details().value(0).toMap().contains(QStringLiteral("value")));
}

TEST_F(DeviceEditorTabs, GridFollowsTheListOrderAndShowsRawValues)
{
    report({{"Version", "2"}, {"Serial", "S"}, {"AtemExtTally", "1"}, {"TallyGpioType", "0"}, {"TallyType", "3"},
            {"CallMagic", "pw"}, {"Channel", "5"}, {"SwitcherModel", "0"}, {"SwitcherBand", "7"}, {"AtemPort", "9910"},
            {"AtemIp", "10.0.0.5"}, {"ManagerIp", "10.0.0.2"}, {"Gateway", "g"}, {"Netmask", "m"}, {"IPAddress", "i"}});
    open();
    QStringList keys;
    for (int row = 0; row < editor.details().size(); ++row)
        keys.append(detailKey(row));
    EXPECT_EQ(keys, (QStringList{"IPAddress", "Netmask", "Gateway", "ManagerIp", "AtemIp", "AtemPort", "SwitcherBand",
                                 "SwitcherModel", "Channel", "CallMagic", "TallyType", "TallyGpioType", "AtemExtTally",
                                 "Serial", "Version"}));
    EXPECT_EQ(detailValue(6), QStringLiteral("7"));
}
