// SPDX-License-Identifier: Apache-2.0
// What caused each version, decided from versions and writes alone.
#include <gtest/gtest.h>

#include "SiteHistory.h"
#include "SiteTestKit.h"

using namespace SiteTest;

namespace {

Site::WriteRecord write(int seconds, Vorn::Config sent)
{
    return {at(seconds), "vornlink", "desk", "kim", "A", "10.0.0.1", std::move(sent), Site::Verdict::Confirmed, {}};
}

}  // namespace

TEST(SiteHistory, KeyChangesListWriteKeysInTableOrderThenOthers)
{
    const Vorn::Config before{{"Channel", "3"}, {"Zeta", "1"}, {"AtemIp", "10.0.0.2"}};
    const Vorn::Config after{{"Channel", "9"}, {"Zeta", "2"}, {"AtemIp", "10.0.0.3"}, {"Alpha", "new"}};

    const auto changes = Site::keyChanges(before, after);

    ASSERT_EQ(changes.size(), 4u);
    EXPECT_EQ(changes[0], (Site::KeyChange{"AtemIp", "10.0.0.2", "10.0.0.3"}));
    EXPECT_EQ(changes[1], (Site::KeyChange{"Channel", "3", "9"}));
    EXPECT_EQ(changes[2], (Site::KeyChange{"Alpha", "", "new"}));
    EXPECT_EQ(changes[3], (Site::KeyChange{"Zeta", "1", "2"}));
}

TEST(SiteHistory, AWriteBeforeTheVersionBeforeDoesNotExplainALaterChange)
{
    const std::vector<Site::StoredVersion> versions{
        {at(0), {{"Channel", "3"}}}, {at(20), {{"Channel", "9"}}}, {at(40), {{"Channel", "3"}}}};

    const auto history = Site::buildHistory(versions, {write(10, {{"Channel", "9"}})});

    ASSERT_EQ(history.size(), 3u);
    EXPECT_EQ(history[0].cause, Site::Cause::Outside);
    EXPECT_EQ(history[1].cause, Site::Cause::Written);
    EXPECT_EQ(history[2].cause, Site::Cause::FirstSeen);
}

TEST(SiteHistory, AWriteOfOtherValuesLeavesTheChangeOutside)
{
    const std::vector<Site::StoredVersion> versions{{at(0), {{"Channel", "3"}}}, {at(20), {{"Channel", "7"}}}};

    const auto history = Site::buildHistory(versions, {write(10, {{"Channel", "9"}})});

    EXPECT_EQ(history[0].cause, Site::Cause::Outside);
}

TEST(SiteHistory, TheLatestOfTwoWritesIsNamed)
{
    const std::vector<Site::StoredVersion> versions{{at(0), {{"Channel", "3"}}}, {at(20), {{"Channel", "9"}}}};
    auto first = write(5, {{"Channel", "9"}});
    auto second = write(15, {{"Channel", "9"}});
    second.program = "vornctl";

    const auto history = Site::buildHistory(versions, {first, second});

    ASSERT_TRUE(history[0].write);
    EXPECT_EQ(history[0].write->program, "vornctl");
}

TEST(SiteHistory, AWriteSentInTheSameMillisecondAsTheVersionBeforeExplainsTheChange)
{
    const std::vector<Site::StoredVersion> versions{{at(0), {{"Channel", "3"}}}, {at(2), {{"Channel", "9"}}}};

    const auto history = Site::buildHistory(versions, {write(0, {{"Channel", "9"}})});

    EXPECT_EQ(history[0].cause, Site::Cause::Written);
}
