// SPDX-License-Identifier: Apache-2.0
#include "RestorePlan.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

BackupUnit fileUnit(std::string serial, std::string address, Vorn::Config config)
{
    return {std::move(serial), std::move(address), "", std::move(config)};
}

TEST(RestorePlan, EmptyFilePlansNothing)
{
    const std::vector<LiveUnit> live{{"10.0.0.1", {{"Channel", "1"}}}};
    EXPECT_TRUE(planRestore(Backup{}, live, false).empty());
}

TEST(RestorePlan, DifferingEditableKeysAreWrittenWithTheBackupValue)
{
    const Backup backup{"", {fileUnit("A", "10.0.0.1", {{"Serial", "A"}, {"Channel", "5"}, {"CallMagic", "pw"},
                                                          {"Version", "9.9"}, {"TallyType", "2"}})}};
    const std::vector<LiveUnit> live{
        {"10.0.0.1", {{"Serial", "A"}, {"Channel", "3"}, {"CallMagic", "pw"}, {"Version", "1.0"}}}};
    const auto plan = planRestore(backup, live, false);
    ASSERT_EQ(plan.size(), 1u);
    EXPECT_EQ(plan[0].match, (UnitMatch{MatchedBy::Serial, 0}));
    EXPECT_EQ(plan[0].liveAddress, "10.0.0.1");
    // Version and Serial are not editable; TallyType is missing live, so it differs.
    EXPECT_EQ(plan[0].changes, (Vorn::Config{{"Channel", "5"}, {"TallyType", "2"}}));
    EXPECT_TRUE(plan[0].heldBack.empty());
    EXPECT_FALSE(plan[0].sharesTarget);
}

TEST(RestorePlan, NetworkKeysAreHeldBackUnlessIncluded)
{
    const Backup backup{"", {fileUnit("A", "10.0.0.1", {{"Serial", "A"}, {"Gateway", "10.0.0.254"},
                                                          {"IPAddress", "10.0.0.1"}, {"Channel", "5"}})}};
    const std::vector<LiveUnit> live{
        {"10.0.0.1", {{"Serial", "A"}, {"Gateway", "10.0.0.1"}, {"IPAddress", "10.0.0.1"}, {"Channel", "3"}}}};

    const auto without = planRestore(backup, live, false);
    EXPECT_EQ(without[0].changes, (Vorn::Config{{"Channel", "5"}}));
    EXPECT_EQ(without[0].heldBack, (Vorn::Config{{"Gateway", "10.0.0.254"}}));

    const auto with = planRestore(backup, live, true);
    EXPECT_EQ(with[0].changes, (Vorn::Config{{"Channel", "5"}, {"Gateway", "10.0.0.254"}}));
    EXPECT_TRUE(with[0].heldBack.empty());
}

TEST(RestorePlan, UnitsOfTheFileNotAnsweringAreListedUnmatched)
{
    const Backup backup{"", {fileUnit("A", "10.0.0.1", {{"Channel", "5"}}),
                             fileUnit("B", "10.0.0.2", {{"Channel", "6"}})}};
    const std::vector<LiveUnit> live{{"10.0.0.2", {{"Serial", "B"}, {"Channel", "6"}}}};
    const auto plan = planRestore(backup, live, false);
    ASSERT_EQ(plan.size(), 2u);
    EXPECT_EQ(plan[0].fileUnit, 0u);
    EXPECT_EQ(plan[0].match.by, MatchedBy::None);
    EXPECT_TRUE(plan[0].liveAddress.empty());
    EXPECT_TRUE(plan[0].changes.empty());
    EXPECT_EQ(plan[1].match, (UnitMatch{MatchedBy::Serial, 0}));
    EXPECT_TRUE(plan[1].changes.empty());
}

TEST(RestorePlan, MovedUnitIsMatchedBySerialAndComparedWithItsLiveValues)
{
    const Backup backup{"", {fileUnit("A", "10.0.0.1", {{"Serial", "A"}, {"Channel", "5"}})}};
    const std::vector<LiveUnit> live{{"10.0.0.1", {{"Serial", "Z"}, {"Channel", "5"}}},
                                     {"10.0.0.8", {{"Serial", "A"}, {"Channel", "2"}}}};
    const auto plan = planRestore(backup, live, false);
    EXPECT_EQ(plan[0].match, (UnitMatch{MatchedBy::Serial, 1}));
    EXPECT_EQ(plan[0].liveAddress, "10.0.0.8");
    EXPECT_EQ(plan[0].changes, (Vorn::Config{{"Channel", "5"}}));
}

TEST(RestorePlan, DuplicateSerialsInTheFileMarkTheSecondAsSharingItsTarget)
{
    const Backup backup{"", {fileUnit("A", "10.0.0.1", {{"Channel", "5"}}),
                             fileUnit("A", "10.0.0.3", {{"Channel", "6"}})}};
    const std::vector<LiveUnit> live{{"10.0.0.1", {{"Serial", "A"}, {"Channel", "1"}}}};
    const auto plan = planRestore(backup, live, false);
    ASSERT_EQ(plan.size(), 2u);
    EXPECT_EQ(plan[0].liveAddress, "10.0.0.1");
    EXPECT_FALSE(plan[0].sharesTarget);
    EXPECT_EQ(plan[1].liveAddress, "10.0.0.1");
    EXPECT_TRUE(plan[1].sharesTarget);
}

TEST(RestorePlan, DifferenceLinesShowLiveThenBackupInDisplayOrder)
{
    const Vorn::Config changes{{"TallyType", "2"}, {"Channel", "5"}};
    const Vorn::Config live{{"Channel", "3"}};
    EXPECT_EQ(differenceLines(changes, live),
              (std::vector<std::string>{"Channel: 3 \u2192 5", "TallyType:  \u2192 2"}));
}

}  // namespace
}  // namespace Settings
