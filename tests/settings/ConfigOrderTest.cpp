// SPDX-License-Identifier: Apache-2.0
#include "ConfigOrder.h"

#include <gtest/gtest.h>

#include "SettingKeys.h"

namespace Settings {
namespace {

TEST(ConfigOrder, WriteKeysComeFirstInTableOrderThenTheOthersByKey)
{
    const Vorn::Config config{{"Version", "2"}, {"Channel", "3"}, {"Aaa", "x"}, {"IPAddress", "10.0.0.1"},
                              {"Serial", "S"}};
    const auto listed = inDisplayOrder(config);
    ASSERT_EQ(listed.size(), 5u);
    EXPECT_EQ(listed[0].first, "IPAddress");
    EXPECT_EQ(listed[1].first, "Channel");
    EXPECT_EQ(listed[2].first, "Serial");
    EXPECT_EQ(listed[3].first, "Aaa");
    EXPECT_EQ(listed[4].first, "Version");
}

TEST(ConfigOrder, DifferingKeysKeepOnlyChangedValuesOfTheGivenKeys)
{
    const Vorn::Config wanted{{"Channel", "5"}, {"TallyType", "2"}, {"IPAddress", "10.0.0.9"}, {"Serial", "S"}};
    const Vorn::Config live{{"Channel", "3"}, {"TallyType", "2"}, {"IPAddress", "10.0.0.1"}};
    const std::string_view keys[] = {SettingKeys::kChannel, SettingKeys::kTallyType, SettingKeys::kCallMagic};
    EXPECT_EQ(differingKeys(wanted, live, keys), (Vorn::Config{{"Channel", "5"}}));
}

TEST(ConfigOrder, KeyMissingLiveCountsAsEmptyText)
{
    const std::string_view keys[] = {SettingKeys::kCallMagic, SettingKeys::kChannel};
    EXPECT_EQ(differingKeys({{"CallMagic", ""}, {"Channel", "1"}}, {}, keys), (Vorn::Config{{"Channel", "1"}}));
}

}  // namespace
}  // namespace Settings
