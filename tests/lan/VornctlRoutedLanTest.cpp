// SPDX-License-Identifier: Apache-2.0
// vornctl on a console with an office link and a subnet behind a router,
// which broadcasts never reach: discover --range asks each address by unicast.
#include <nlohmann/json.hpp>

#include "LanPaths.h"
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

TEST_F(VornctlWithRoutedSubnet, UnitFoundByARangeIsRememberedAndTheSelfTestFindsItAgainWithNothingTyped)
{
    auto office = officeUnits();
    auto routed = routedUnits();
    const std::string routedLine = std::string("  ") + IsolatedLan::kFirstRoutedUnitAddress + "  ATEM=";

    const auto before = runInConsole({LanTest::kVornlinkBinary, "--selftest"});
    ASSERT_EQ(before.status, 0) << before.err;
    EXPECT_EQ(before.out.find(routedLine), std::string::npos) << before.out;

    const auto scan = vornctl({"discover", "--range", IsolatedLan::kRoutedSubnet});
    ASSERT_EQ(scan.status, 0) << scan.err;

    const auto after = runInConsole({LanTest::kVornlinkBinary, "--selftest"});
    ASSERT_EQ(after.status, 0) << after.err;
    EXPECT_TRUE(after.out.starts_with("selftest: 2 device(s)\n")) << after.out;
    EXPECT_NE(after.out.find(routedLine), std::string::npos) << after.out;
    // Asked by unicast only, never by broadcast: once by the scan, then by the self-test.
    int askedDirectly = 0;
    for (const auto& datagram : withCommand(routed.stopAndReadLog(), kDiscover)) {
        EXPECT_NE(datagram.dst, "255.255.255.255");
        askedDirectly += datagram.dst == IsolatedLan::kFirstRoutedUnitAddress ? 1 : 0;
    }
    EXPECT_GE(askedDirectly, 2);
}

TEST_F(VornctlWithRoutedSubnet, SelfTestWithoutTheSiteDoesNotAskRememberedUnits)
{
    auto routed = routedUnits();
    ASSERT_EQ(vornctl({"discover", "--range", IsolatedLan::kRoutedSubnet}).status, 0);

    const auto run = runInConsole({LanTest::kVornlinkBinary, "--selftest", "--no-site"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "selftest: 0 device(s)\n");
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
