// SPDX-License-Identifier: Apache-2.0
// vornctl on a console with an office link and a subnet behind a router,
// which broadcasts never reach: discover --range asks each address by unicast.
#include <nlohmann/json.hpp>

#include "VornctlTestCase.h"

namespace {

using LanTest::IsolatedLan;

class VornctlWithRoutedSubnet : public VornctlTestCase {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::Routed; }

    LanTest::Simulator officeUnits() const { return LanTest::Simulator(lan(), {"--count", "1"}, dir()); }
    LanTest::Simulator routedUnits() const
    {
        return LanTest::Simulator(lan().routedNs(), {"--count", "1", "--first-ip", IsolatedLan::kFirstRoutedUnitAddress},
                                  dir());
    }
};

TEST_F(VornctlWithRoutedSubnet, BroadcastDiscoverDoesNotReachTheRoutedUnit)
{
    auto office = officeUnits();
    auto routed = routedUnits();

    const auto run = vornctl({"discover", "--json", "--timeout", "1"});

    ASSERT_EQ(run.status, 0) << run.err;
    const auto units = nlohmann::json::parse(run.out);
    ASSERT_EQ(units.size(), 1u) << run.out;
    EXPECT_EQ(units[0]["address"], IsolatedLan::kFirstUnitAddress);
}

TEST_F(VornctlWithRoutedSubnet, RangeOfTheRoutedSubnetFindsItsUnitThroughTheRouterWithoutWarning)
{
    auto office = officeUnits();
    auto routed = routedUnits();

    const auto run = vornctl({"discover", "--json", "--range", IsolatedLan::kRoutedSubnet});

    ASSERT_EQ(run.status, 0) << run.err;
    const auto units = nlohmann::json::parse(run.out);
    ASSERT_EQ(units.size(), 1u) << run.out;
    EXPECT_EQ(units[0]["address"], IsolatedLan::kFirstRoutedUnitAddress);
    EXPECT_EQ(units[0]["interface"],
              lan().routerLink() + " \u00B7 " + IsolatedLan::kRouterLinkConsoleAddress + "/24");
    EXPECT_EQ(units[0]["warnings"], nlohmann::json::array());
    // No broadcast went out: the office unit heard nothing.
    EXPECT_TRUE(withCommand(office.stopAndReadLog(), kDiscover).empty());
}

TEST_F(VornctlWithRoutedSubnet, RepeatedRangesAreAllAskedEachAddressOnce)
{
    auto routed = routedUnits();

    const auto run = vornctl({"discover", "--range", "10.78.5.120-10.78.5.130", "--range", "10.78.5.128/30",
                              "--timeout", "1"});

    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find(IsolatedLan::kFirstRoutedUnitAddress), std::string::npos) << run.out;
    EXPECT_NE(run.err.find("asking 11 address(es)"), std::string::npos) << run.err;
    const auto asked = withCommand(routed.stopAndReadLog(), kDiscover);
    // 10.78.5.128 to .130 are the namespace's own addresses among the eleven.
    ASSERT_EQ(asked.size(), 3u);
}

TEST_F(VornctlWithRoutedSubnet, TooLargeReversedOrMalformedRangeIsAUsageError)
{
    const auto tooLarge = vornctl({"discover", "--range", "10.78.0.0/19"});
    EXPECT_EQ(tooLarge.status, 2);
    EXPECT_NE(tooLarge.err.find("covers 8192 addresses; at most 4096"), std::string::npos) << tooLarge.err;

    const auto reversed = vornctl({"discover", "--range", "10.78.5.99-10.78.5.10"});
    EXPECT_EQ(reversed.status, 2);
    EXPECT_NE(reversed.err.find("ends before it starts"), std::string::npos) << reversed.err;

    const auto malformed = vornctl({"discover", "--range", "10.78.5.0/33"});
    EXPECT_EQ(malformed.status, 2);
    EXPECT_NE(malformed.err.find("neither a CIDR block"), std::string::npos) << malformed.err;

    const auto together = vornctl({"discover", "--range", "10.78.0.0/20", "--range", "10.79.0.0/24"});
    EXPECT_EQ(together.status, 2);
    EXPECT_NE(together.err.find("the ranges cover 4348 addresses"), std::string::npos) << together.err;
}

}  // namespace
