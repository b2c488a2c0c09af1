// SPDX-License-Identifier: Apache-2.0
#include "FleetValues.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

constexpr std::string_view kKeys[] = {"Channel", "CallMagic", "TallyType"};

TEST(FleetValues, KeyEqualOnEveryUnitShowsItsValue)
{
    const std::vector<Vorn::Config> units{{{"Channel", "4"}, {"CallMagic", "a"}, {"TallyType", "1"}},
                                          {{"Channel", "4"}, {"CallMagic", "b"}, {"TallyType", "1"}}};
    const FleetValues values = fleetValues(units, kKeys);
    EXPECT_EQ(values.equal, (Vorn::Config{{"Channel", "4"}, {"TallyType", "1"}}));
    EXPECT_EQ(values.mixed, (std::vector<std::string>{"CallMagic"}));
}

TEST(FleetValues, MissingKeyCountsAsEmptyText)
{
    const std::vector<Vorn::Config> units{{{"Channel", ""}}, {}, {{"CallMagic", "x"}}};
    const FleetValues values = fleetValues(units, kKeys);
    EXPECT_EQ(values.equal, (Vorn::Config{{"Channel", ""}, {"TallyType", ""}}));
    EXPECT_EQ(values.mixed, (std::vector<std::string>{"CallMagic"}));
}

TEST(FleetValues, OneUnitIsNeverMixed)
{
    const std::vector<Vorn::Config> units{{{"Channel", "4"}}};
    EXPECT_TRUE(fleetValues(units, kKeys).mixed.empty());
}

TEST(FleetValues, NoUnitsGiveEmptyValues)
{
    const FleetValues values = fleetValues({}, kKeys);
    EXPECT_EQ(values.equal.size(), 3u);
    EXPECT_TRUE(values.mixed.empty());
}

TEST(FleetValues, BatchSendsOnlyTouchedKeysThatDifferOnThatUnit)
{
    const Vorn::Config touched{{"Channel", "7"}, {"CallMagic", "pw"}};
    EXPECT_EQ(batchChanges(touched, {{"Channel", "7"}, {"CallMagic", "old"}, {"TallyType", "3"}}),
              (Vorn::Config{{"CallMagic", "pw"}}));
    EXPECT_EQ(batchChanges(touched, {{"Channel", "1"}}), touched);
}

TEST(FleetValues, BatchWithEveryTouchedKeyAlreadyEqualSendsNothing)
{
    EXPECT_TRUE(batchChanges({{"Channel", "7"}}, {{"Channel", "7"}, {"CallMagic", "x"}}).empty());
}

TEST(FleetValues, TouchedEmptyTextClearsAKeyTheUnitHolds)
{
    EXPECT_EQ(batchChanges({{"CallMagic", ""}}, {{"CallMagic", "x"}}), (Vorn::Config{{"CallMagic", ""}}));
    EXPECT_TRUE(batchChanges({{"CallMagic", ""}}, {}).empty());
}

TEST(FleetValues, OverlayKeepsTheUnitsOwnValuesAndReplacesTheChangedOnes)
{
    const Vorn::Config live{{"Channel", "1"}, {"Serial", "S1"}, {"IPAddress", "10.0.0.1"}};
    EXPECT_EQ(overlay(live, {{"Channel", "7"}, {"CallMagic", "pw"}}),
              (Vorn::Config{{"Channel", "7"}, {"Serial", "S1"}, {"IPAddress", "10.0.0.1"}, {"CallMagic", "pw"}}));
}

}  // namespace
}  // namespace Settings
