// SPDX-License-Identifier: Apache-2.0
// Which unit of a backup file the editor of one unit imports.
#include <gtest/gtest.h>

#include "UnitImport.h"

namespace {

Settings::BackupUnit unit(const std::string& serial, const std::string& address)
{
    return {serial, address, "2.4.1", {{"Serial", serial}, {"Channel", "1"}}};
}

TEST(UnitImport, TheUnitWithTheSerialAmongSeveral)
{
    const Settings::Backup backup{"2026-11-23T01:00:00Z", {unit("A", "10.0.0.1"), unit("B", "10.0.0.2")}};
    const auto found = Settings::unitToImport(backup, "B");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->unit.address, "10.0.0.2");
    EXPECT_FALSE(found->otherSerial);
}

TEST(UnitImport, TheOnlyUnitWithAnotherSerialIsNamedAsAnotherUnit)
{
    const Settings::Backup backup{"2026-11-23T01:00:00Z", {unit("A", "10.0.0.1")}};
    EXPECT_EQ(Settings::unitToImport(backup, "Z"), (Settings::ImportChoice{unit("A", "10.0.0.1"), true}));
}

TEST(UnitImport, TheOnlyUnitIsTakenWhenOneSideHasNoSerial)
{
    const Settings::Backup backup{"2026-11-23T01:00:00Z", {unit("A", "10.0.0.1")}};
    EXPECT_EQ(Settings::unitToImport(backup, ""), (Settings::ImportChoice{unit("A", "10.0.0.1"), false}));
    const Settings::Backup anonymous{"2026-11-23T01:00:00Z", {unit("", "10.0.0.1")}};
    EXPECT_EQ(Settings::unitToImport(anonymous, "Z"), (Settings::ImportChoice{unit("", "10.0.0.1"), false}));
}

TEST(UnitImport, NoneWhenSeveralAndNoneHasTheSerial)
{
    const Settings::Backup backup{"2026-11-23T01:00:00Z", {unit("A", "10.0.0.1"), unit("B", "10.0.0.2")}};
    EXPECT_FALSE(Settings::unitToImport(backup, "C"));
}

TEST(UnitImport, AnEmptySerialMatchesNoUnitWithoutOne)
{
    const Settings::Backup backup{"2026-11-23T01:00:00Z", {unit("", "10.0.0.1"), unit("", "10.0.0.2")}};
    EXPECT_FALSE(Settings::unitToImport(backup, ""));
}

TEST(UnitImport, KeysWithoutAFieldAreListedInDisplayOrder)
{
    const Vorn::Config config{{"Serial", "A"},     {"Version", "2.4.1"},       {"Channel", "1"},
                              {"Zeta", "1"},       {"SilenceThreshold", "30"}, {"ManagerIp", "10.0.0.2"},
                              {"IPAddress", "10.0.0.1"}};
    EXPECT_EQ(Settings::keysNotImported(config),
              (std::vector<std::string>{"ManagerIp", "SilenceThreshold", "Zeta"}));
    EXPECT_TRUE(Settings::keysNotImported({{"Channel", "1"}, {"Serial", "A"}}).empty());
}

TEST(UnitImport, NoneFromAnEmptyFile)
{
    EXPECT_FALSE(Settings::unitToImport(Settings::Backup{"2026-11-23T01:00:00Z", {}}, "A"));
}

}  // namespace
