// SPDX-License-Identifier: Apache-2.0
#include "WriteCheck.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

TEST(WriteCheck, ReplyHoldingTheWrittenValuesConfirmsEveryKey)
{
    const auto checks = checkWrite({{"Channel", "5"}, {"TallyType", "2"}},
                                   Vorn::Config{{"Channel", "5"}, {"TallyType", "2"}, {"Serial", "X"}});
    ASSERT_EQ(checks.size(), 2u);
    EXPECT_EQ(checks[0], (KeyCheck{"Channel", "5", KeyOutcome::Confirmed, "5"}));
    EXPECT_EQ(checks[1], (KeyCheck{"TallyType", "2", KeyOutcome::Confirmed, "2"}));
    EXPECT_TRUE(allConfirmed(checks));
}

TEST(WriteCheck, KeyTheUnitReportsOtherwiseIsNotConfirmed)
{
    const auto checks = checkWrite({{"Channel", "5"}, {"TallyType", "2"}},
                                   Vorn::Config{{"Channel", "3"}, {"TallyType", "2"}});
    EXPECT_EQ(checks[0], (KeyCheck{"Channel", "5", KeyOutcome::ReportsOther, "3"}));
    EXPECT_EQ(checks[1].outcome, KeyOutcome::Confirmed);
    EXPECT_FALSE(allConfirmed(checks));
    EXPECT_EQ(english(describeCheck(checks[0])), "Channel: wrote 5, unit reports 3");
}

TEST(WriteCheck, KeyMissingFromTheReplyIsNotConfirmed)
{
    const auto checks = checkWrite({{"CallMagic", "1234"}}, Vorn::Config{});
    EXPECT_EQ(checks[0], (KeyCheck{"CallMagic", "1234", KeyOutcome::ReportsOther, std::nullopt}));
    EXPECT_EQ(english(describeCheck(checks[0])), "CallMagic: wrote 1234, unit reports no value");
}

TEST(WriteCheck, NoReplyLeavesEveryKeyUnconfirmed)
{
    const auto checks = checkWrite({{"Channel", "5"}, {"TallyType", "2"}}, std::nullopt);
    ASSERT_EQ(checks.size(), 2u);
    EXPECT_EQ(checks[0].outcome, KeyOutcome::NoReply);
    EXPECT_EQ(checks[1].outcome, KeyOutcome::NoReply);
    EXPECT_FALSE(allConfirmed(checks));
    EXPECT_EQ(english(describeCheck(checks[1])), "TallyType: wrote 2, no reply");
}

TEST(WriteCheck, EmptyValueIsConfirmedOnlyByAnEmptyReportedValue)
{
    EXPECT_TRUE(allConfirmed(checkWrite({{"CallMagic", ""}}, Vorn::Config{{"CallMagic", ""}})));
    EXPECT_FALSE(allConfirmed(checkWrite({{"CallMagic", ""}}, Vorn::Config{})));
}

TEST(WriteCheck, EmptyWriteIsConfirmed)
{
    EXPECT_TRUE(checkWrite({}, std::nullopt).empty());
    EXPECT_TRUE(allConfirmed({}));
}

}  // namespace
}  // namespace Settings
