// SPDX-License-Identifier: Apache-2.0
// The editor of several units on the fake link: values all units share show,
// differing ones are mixed, and a save writes each unit only the keys the
// user set, over that unit's own configuration; the batch list follows the
// replies. No socket is opened.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "EditorTestKit.h"
#include "MultiEditor.h"

using namespace EditorTest;
using namespace std::chrono_literals;

namespace {

constexpr const char* kFirst = "127.0.0.2";
constexpr const char* kSecond = "127.0.0.3";
constexpr const char* kThird = "127.0.0.4";

class MultiEditorTest : public testing::Test {
protected:
    FakeLink link;
    MultiEditor editor;

    TallySection& tally() { return *editor.tally(); }
    CommunicationSection& communication() { return *editor.communication(); }

    // Three units sharing a switcher and a password, on channels 1, 2 and 3.
    void reportThree()
    {
        link.report(cleanUnit({{"Channel", "1"}, {"CallMagic", "secret"}, {"AtemIp", "10.0.0.9"}}), kFirst);
        link.report(cleanUnit({{"Channel", "2"}, {"CallMagic", "secret"}, {"AtemIp", "10.0.0.9"}}), kSecond);
        link.report(cleanUnit({{"Channel", "3"}, {"CallMagic", "secret"}, {"AtemIp", "10.0.0.9"},
                               {"ScenarioType", "3"}, {"SwitcherModel", "2"}}),
                    kThird);
    }
    void open(const QStringList& addresses = {kFirst, kSecond, kThird})
    {
        editor.setLink(&link);
        editor.setAddresses(addresses);
    }
    std::vector<FakeLink::Write> writesTo(const std::string& ip) const
    {
        std::vector<FakeLink::Write> found;
        for (const auto& write : link.writes)
            if (write.ip == ip)
                found.push_back(write);
        return found;
    }
};

TEST_F(MultiEditorTest, SharedValueShowsAndDifferingValueIsMixed)
{
    reportThree();
    open();
    EXPECT_EQ(communication().fieldAs<TextField>("CallMagic")->text(), "secret");
    EXPECT_FALSE(communication().fieldAs<TextField>("CallMagic")->mixed());
    EXPECT_EQ(tally().fieldAs<TextField>("AtemIp")->text(), "10.0.0.9");
    EXPECT_TRUE(communication().fieldAs<TextField>("Channel")->mixed());
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), "");
    EXPECT_TRUE(communication().fieldAs<ChoiceField>("ScenarioType")->mixed());
    EXPECT_FALSE(communication().fieldAs<ChoiceField>("SilenceSuppress")->mixed());
    EXPECT_FALSE(communication().fieldAs<SwitchField>("Wire2Enable")->mixed());
    EXPECT_FALSE(tally().fieldAs<StepperField>("TallyType")->mixed());
}

TEST_F(MultiEditorTest, SwitcherIsMixedWhenEitherNumberDiffers)
{
    reportThree();
    open();
    EXPECT_TRUE(tally().fieldAs<NumberField>("SwitcherBand")->mixed());
    EXPECT_TRUE(tally().fieldAs<NumberField>("SwitcherModel")->mixed());
    open({kFirst, kSecond});
    EXPECT_FALSE(tally().fieldAs<NumberField>("SwitcherBand")->mixed());
    EXPECT_FALSE(tally().fieldAs<NumberField>("SwitcherModel")->mixed());
    EXPECT_FALSE(communication().fieldAs<ChoiceField>("ScenarioType")->mixed());
}

TEST_F(MultiEditorTest, MixedIsDecidedOnTheComparedValues)
{
    // A missing ScenarioType is level 1, a missing TallyType holds 0: the same
    // as the reported texts, so nothing is mixed.
    Vorn::Config reportsNothing = cleanUnit({{"Channel", "4"}});
    reportsNothing.erase("ScenarioType");
    reportsNothing.erase("TallyType");
    link.report(reportsNothing, kFirst);
    link.report(cleanUnit({{"Channel", "4"}, {"ScenarioType", "1"}, {"TallyType", "0"}}), kSecond);
    open({kFirst, kSecond});
    EXPECT_FALSE(communication().fieldAs<ChoiceField>("ScenarioType")->mixed());
    EXPECT_EQ(communication().fieldAs<ChoiceField>("ScenarioType")->value(), 1);
    EXPECT_FALSE(tally().fieldAs<StepperField>("TallyType")->mixed());
}

TEST_F(MultiEditorTest, FirstStepOfAMixedStepperStartsFromTheFirstSelectedUnit)
{
    link.report(cleanUnit({{"TallyType", "5"}}), kFirst);
    link.report(cleanUnit({{"TallyType", "2"}}), kSecond);
    link.report(cleanUnit({{"TallyType", "8"}}), kThird);
    open({kFirst, kSecond, kThird});
    EXPECT_TRUE(tally().fieldAs<StepperField>("TallyType")->mixed());
    tally().fieldAs<StepperField>("TallyType")->step(1);
    EXPECT_FALSE(tally().fieldAs<StepperField>("TallyType")->mixed());
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->value(), 6);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyType")->title(), QStringLiteral("type 6"));
    editor.save();
    ASSERT_EQ(link.writes.size(), 3u);
    for (const auto& write : link.writes)
        EXPECT_EQ(write.changes, (Vorn::Config{{"TallyType", "6"}})) << write.ip;
}

TEST_F(MultiEditorTest, FirstStepDownGoesFromTheFirstSelectedUnitInListOrder)
{
    link.report(cleanUnit({{"TallyGpioType", "5"}}), kFirst);
    link.report(cleanUnit({{"TallyGpioType", "2"}}), kSecond);
    open({kSecond, kFirst});
    tally().fieldAs<StepperField>("TallyGpioType")->step(-1);
    EXPECT_EQ(tally().fieldAs<StepperField>("TallyGpioType")->value(), 1);
}

TEST_F(MultiEditorTest, MixedSwitchFlipsTheFirstSelectedUnitsValue)
{
    link.report(cleanUnit({{"Wire2Enable", "1"}}), kFirst);
    link.report(cleanUnit({{"Wire2Enable", "0"}}), kSecond);
    open({kFirst, kSecond});
    EXPECT_TRUE(communication().fieldAs<SwitchField>("Wire2Enable")->mixed());
    EXPECT_TRUE(communication().fieldAs<SwitchField>("Wire2Enable")->checked());
}

TEST_F(MultiEditorTest, NothingChangedCannotBeSaved)
{
    reportThree();
    open();
    EXPECT_FALSE(editor.dirty());
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(link.writes.empty());
}

TEST_F(MultiEditorTest, OnlyTouchedKeysAreWrittenToEachUnit)
{
    reportThree();
    open();
    QSignalSpy state(&editor, &MultiEditor::stateChanged);
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("7"));
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("showtime"));
    EXPECT_TRUE(editor.canSave());
    EXPECT_GE(state.count(), 1);
    editor.save();
    ASSERT_EQ(link.writes.size(), 3u);
    for (const char* ip : {kFirst, kSecond, kThird}) {
        const auto writes = writesTo(ip);
        ASSERT_EQ(writes.size(), 1u) << ip;
        EXPECT_EQ(writes.front().changes, (Vorn::Config{{"Channel", "7"}, {"CallMagic", "showtime"}})) << ip;
    }
}

TEST_F(MultiEditorTest, UnitAlreadyHoldingTheValueIsNotWritten)
{
    reportThree();
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("2"));
    editor.save();
    EXPECT_EQ(writesTo(kFirst).size(), 1u);
    EXPECT_TRUE(writesTo(kSecond).empty());
    EXPECT_EQ(writesTo(kThird).size(), 1u);
    EXPECT_EQ(editor.writer()->count(), 3);
}

TEST_F(MultiEditorTest, UntouchedNonCanonicalKeyIsLeftAlone)
{
    // A single editor would offer SwitcherBand "7" here; the batch only sends what the user set.
    link.report({{"Channel", "1"}}, kFirst);
    link.report({{"Channel", "1"}}, kSecond);
    open({kFirst, kSecond});
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("x"));
    editor.save();
    ASSERT_EQ(link.writes.size(), 2u);
    for (const auto& write : link.writes)
        EXPECT_EQ(write.changes, (Vorn::Config{{"CallMagic", "x"}}));
}

TEST_F(MultiEditorTest, PickingAMixedChoiceWritesItEvenWhereItEqualsTheShownDefault)
{
    reportThree();
    open();
    // Units 1 and 2 report no ScenarioType (level 1), unit 3 reports 3.
    communication().fieldAs<ChoiceField>("ScenarioType")->setValue(1);
    EXPECT_TRUE(communication().fieldAs<ChoiceField>("ScenarioType")->touched());
    EXPECT_FALSE(communication().fieldAs<ChoiceField>("ScenarioType")->mixed());
    editor.save();
    ASSERT_EQ(link.writes.size(), 1u);
    EXPECT_EQ(link.writes.front().ip, kThird);
    EXPECT_EQ(link.writes.front().changes, (Vorn::Config{{"ScenarioType", "1"}}));
}

TEST_F(MultiEditorTest, PickingAMixedSwitcherWritesBothNumbers)
{
    reportThree();
    open();
    tally().setSwitcherSelection(QStringLiteral("7.0"));
    editor.save();
    // Units 1 and 2 already follow 7.0; unit 3 reports model 2.
    ASSERT_EQ(link.writes.size(), 1u);
    EXPECT_EQ(link.writes.front().changes, (Vorn::Config{{"SwitcherModel", "0"}}));
}

TEST_F(MultiEditorTest, InvalidTouchedFieldDisablesSave)
{
    reportThree();
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("7"));
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("two\nlines"));
    EXPECT_TRUE(editor.dirty());
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(link.writes.empty());
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("one line"));
    EXPECT_TRUE(editor.canSave());
}

TEST_F(MultiEditorTest, VerdictsFollowEachUnitsReply)
{
    reportThree();
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("7"));
    editor.save();
    BatchWriter& writer = *editor.writer();
    EXPECT_EQ(writer.waiting(), 3);
    // Past the re-query, so the replies count.
    link.advance(SaveVerdict::kFirstCountedReply + 100ms);
    link.report(cleanUnit({{"Channel", "7"}, {"CallMagic", "secret"}, {"AtemIp", "10.0.0.9"}}), kFirst);
    link.report(cleanUnit({{"Channel", "2"}, {"CallMagic", "secret"}, {"AtemIp", "10.0.0.9"}}), kSecond);
    EXPECT_EQ(writer.confirmed(), 1);
    EXPECT_EQ(writer.data(writer.index(1), BatchWriter::KindRole).toInt(),
              static_cast<int>(SaveVerdict::Kind::NotConfirmed));
    link.advance(SaveVerdict::kAnswerDeadline);
    link.tick();
    EXPECT_EQ(writer.waiting(), 0);
    EXPECT_EQ(writer.data(writer.index(2), BatchWriter::KindRole).toInt(),
              static_cast<int>(SaveVerdict::Kind::NoAnswer));
}

TEST_F(MultiEditorTest, AnotherSelectionForgetsTheEdits)
{
    reportThree();
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("7"));
    open({kFirst, kSecond});
    EXPECT_FALSE(communication().fieldAs<TextField>("Channel")->touched());
    EXPECT_TRUE(communication().fieldAs<TextField>("Channel")->mixed());
    EXPECT_FALSE(editor.dirty());
}

}  // namespace

TEST_F(MultiEditorTest, AKeystrokeComparesOnlyItsSectionOnceAndAReplyNone)
{
    reportThree();
    open();
    std::uint64_t before = sectionComparisons();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("9"));
    EXPECT_EQ(sectionComparisons() - before, 1u);
    EXPECT_TRUE(editor.dirty());

    before = sectionComparisons();
    tally().setSwitcherSelection(QStringLiteral("5.9"));
    EXPECT_EQ(sectionComparisons() - before, 1u);

    // A reply changes what would be sent, not what the sections hold.
    before = sectionComparisons();
    link.report(cleanUnit({{"Channel", "9"}, {"CallMagic", "secret"}, {"AtemIp", "10.0.0.9"}}), kFirst);
    EXPECT_EQ(sectionComparisons() - before, 0u);

    before = sectionComparisons();
    editor.load();
    EXPECT_EQ(sectionComparisons() - before, 2u);
}

