// SPDX-License-Identifier: Apache-2.0
#include "UnitWarnings.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

TEST(UnitWarnings, CleanConfigurationHasNoWarnings)
{
    EXPECT_TRUE(unitWarnings({{"SwitcherBand", "7"}, {"TallyType", "3"}, {"IPAddress", "10.0.0.1"},
                              {"Wire2Enable", "1"}, {"Serial", "whatever"}})
                    .empty());
}

TEST(UnitWarnings, EachRuleBreakIsOneSentenceInTableOrder)
{
    const auto warnings = unitWarnings(
        {{"Netmask", "255.255.0"}, {"TallyType", "12"}, {"Wire2Enable", "true"}, {"SwitcherBand", "07x"}});
    ASSERT_EQ(warnings.size(), 4u);
    EXPECT_EQ(warnings[0], "SwitcherBand \"07x\" is not a whole number");
    EXPECT_EQ(warnings[1], "TallyType \"12\" is outside 0\u20139");
    EXPECT_EQ(warnings[2], "Wire2Enable \"true\" is neither 1 (on) nor 0 (off)");
    EXPECT_EQ(warnings[3].rfind("Netmask \"255.255.0\" is not an IPv4 address", 0), 0u);
}

TEST(UnitWarnings, ReportedLineBreakIsWarned)
{
    const auto warnings = unitWarnings({{"CallMagic", "a\r\nb"}});
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], "the value of CallMagic holds a carriage return (CR)");
}

}  // namespace
}  // namespace Settings
