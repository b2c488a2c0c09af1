// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "Commands.h"

namespace VornCtl {
namespace {

std::string problemOf(const std::vector<std::string>& pairs, bool yes = false)
{
    const auto request = parseSetRequest("10.0.0.1", pairs, yes);
    const auto* problem = std::get_if<std::string>(&request);
    return problem ? *problem : "(accepted)";
}

TEST(SetRequest, PairsBecomeChangesWithIntegersInPlainDecimal)
{
    const auto request = parseSetRequest("10.0.0.1", {"Channel=05", "TallyType=+3", "CallMagic=a=b"}, false);
    ASSERT_TRUE(std::holds_alternative<SetRequest>(request));
    EXPECT_EQ(std::get<SetRequest>(request).address, "10.0.0.1");
    EXPECT_EQ(std::get<SetRequest>(request).changes,
              (Vorn::Config{{"Channel", "05"}, {"TallyType", "3"}, {"CallMagic", "a=b"}}));
}

TEST(SetRequest, EmptyValueIsAValue)
{
    const auto request = parseSetRequest("10.0.0.1", {"CallMagic="}, false);
    ASSERT_TRUE(std::holds_alternative<SetRequest>(request));
    EXPECT_EQ(std::get<SetRequest>(request).changes, (Vorn::Config{{"CallMagic", ""}}));
}

TEST(SetRequest, NetworkKeysNeedYes)
{
    EXPECT_EQ(problemOf({"Netmask=255.255.0.0"}), "Netmask changes how the unit is reached; add --yes to write it");
    EXPECT_EQ(problemOf({"Netmask=255.255.0.0"}, true), "(accepted)");
}

TEST(SetRequest, KeyGivenTwiceIsRefused)
{
    EXPECT_EQ(problemOf({"Channel=1", "Channel=2"}), "Channel is given twice");
}

TEST(SetRequest, KeysTheEditorCannotWriteAreUnknown)
{
    EXPECT_EQ(problemOf({"Serial=X"}), "unknown key Serial");
    EXPECT_EQ(problemOf({"ManagerIp=10.0.0.1"}), "unknown key ManagerIp");
    EXPECT_EQ(problemOf({"=1"}), "'=1' is not KEY=VALUE");
}

}  // namespace
}  // namespace VornCtl
