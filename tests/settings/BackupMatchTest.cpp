// SPDX-License-Identifier: Apache-2.0
#include "BackupMatch.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

BackupUnit fileUnit(std::string serial, std::string address)
{
    return {std::move(serial), std::move(address), "", {}};
}

LiveUnit liveUnit(std::string address, std::string serial)
{
    LiveUnit unit{std::move(address), {}};
    if (!serial.empty())
        unit.config.insert_or_assign("Serial", std::move(serial));
    return unit;
}

TEST(BackupMatch, SerialFindsAUnitThatMovedAddress)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.5", "B"), liveUnit("10.0.0.9", "A")};
    EXPECT_EQ(matchUnit(fileUnit("A", "10.0.0.5"), live), (UnitMatch{MatchedBy::Serial, 1}));
}

TEST(BackupMatch, SerialNobodyReportsFallsBackToAUnitWithoutSerialAtTheAddress)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.5", "")};
    EXPECT_EQ(matchUnit(fileUnit("A", "10.0.0.5"), live), (UnitMatch{MatchedBy::Address, 0}));
}

TEST(BackupMatch, AnotherSerialAtTheAddressIsOnlyNamedNeverMatched)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.4", "C"), liveUnit("10.0.0.5", "B")};
    EXPECT_EQ(matchUnit(fileUnit("A", "10.0.0.5"), live), (UnitMatch{MatchedBy::OtherSerial, 1}));
}

TEST(BackupMatch, TheSerialElsewhereWinsOverAnotherSerialAtTheAddress)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.5", "B"), liveUnit("10.0.0.9", "A")};
    EXPECT_EQ(matchUnit(fileUnit("A", "10.0.0.5"), live), (UnitMatch{MatchedBy::Serial, 1}));
}

TEST(BackupMatch, FileUnitWithoutSerialMatchesWhateverSerialAnswersAtItsAddress)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.5", "B")};
    EXPECT_EQ(matchUnit(fileUnit("", "10.0.0.5"), live), (UnitMatch{MatchedBy::Address, 0}));
}

TEST(BackupMatch, ReportedSerialIsTheSerialKeyOrNothing)
{
    EXPECT_EQ(reportedSerial({{"Serial", "KT-1"}}), "KT-1");
    EXPECT_EQ(reportedSerial({{"Channel", "1"}}), "");
}

TEST(BackupMatch, UnitWithoutSerialGoesByAddressOnly)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.4", ""), liveUnit("10.0.0.5", "")};
    EXPECT_EQ(matchUnit(fileUnit("", "10.0.0.5"), live), (UnitMatch{MatchedBy::Address, 1}));
}

TEST(BackupMatch, EmptySerialDoesNotMatchALiveUnitWithoutSerial)
{
    // An empty serial is no identity: only the address counts.
    const std::vector<LiveUnit> live{liveUnit("10.0.0.4", "")};
    EXPECT_EQ(matchUnit(fileUnit("", "10.0.0.5"), live), UnitMatch{});
}

TEST(BackupMatch, NeitherSerialNorAddressAnsweringIsNotFound)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.4", "B")};
    const UnitMatch match = matchUnit(fileUnit("A", "10.0.0.5"), live);
    EXPECT_EQ(match.by, MatchedBy::None);
    EXPECT_FALSE(match.live);
}

TEST(BackupMatch, SameSerialLiveAtTwoAddressesPrefersTheFileAddress)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.2", "A"), liveUnit("10.0.0.7", "A")};
    EXPECT_EQ(matchUnit(fileUnit("A", "10.0.0.7"), live), (UnitMatch{MatchedBy::Serial, 1}));
}

TEST(BackupMatch, SameSerialLiveAtTwoOtherAddressesTakesTheFirstListed)
{
    const std::vector<LiveUnit> live{liveUnit("10.0.0.2", "A"), liveUnit("10.0.0.7", "A")};
    EXPECT_EQ(matchUnit(fileUnit("A", "10.0.0.9"), live), (UnitMatch{MatchedBy::Serial, 0}));
}

TEST(BackupMatch, NoLiveUnitsMatchesNothing)
{
    EXPECT_EQ(matchUnit(fileUnit("A", "10.0.0.1"), {}), UnitMatch{});
}

}  // namespace
}  // namespace Settings
