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
    EXPECT_EQ(found->address, "10.0.0.2");
}

TEST(UnitImport, TheOnlyUnitWhateverItsSerial)
{
    const Settings::Backup backup{"2026-11-23T01:00:00Z", {unit("A", "10.0.0.1")}};
    EXPECT_EQ(Settings::unitToImport(backup, "Z"), unit("A", "10.0.0.1"));
    EXPECT_EQ(Settings::unitToImport(backup, ""), unit("A", "10.0.0.1"));
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

TEST(UnitImport, NoneFromAnEmptyFile)
{
    EXPECT_FALSE(Settings::unitToImport(Settings::Backup{"2026-11-23T01:00:00Z", {}}, "A"));
}

}  // namespace
