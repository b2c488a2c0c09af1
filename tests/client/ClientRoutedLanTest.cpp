// SPDX-License-Identifier: Apache-2.0
// The client on a console with an office link and a subnet behind a router:
// the routed units never hear a broadcast, so only unicasts find them.
#include <set>

#include "ClientLanKit.h"

namespace {

using namespace ClientLan;
using LanTest::IsolatedLan;

constexpr const char* kRoutedUnit = IsolatedLan::kFirstRoutedUnitAddress;
constexpr const char* kSecondRoutedUnit = "10.78.5.130";

class ClientWithRoutedSubnet : public DriverTestCase {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::Routed; }

    LanTest::Simulator officeUnits() const { return LanTest::Simulator(lan(), {"--count", "1"}, dir()); }
    LanTest::Simulator routedUnits() const
    {
        return LanTest::Simulator(lan().routedNs(), {"--count", "2", "--first-ip", kRoutedUnit}, dir());
    }

    std::string routerLinkHeardOn() const
    {
        return lan().routerLink() + " \u00B7 " + IsolatedLan::kRouterLinkConsoleAddress + "/24";
    }
};

std::vector<Captured> discovers(const std::vector<Captured>& captured)
{
    std::vector<Captured> found;
    for (const auto& item : captured) {
        if (item.command() == Vorn::kCmdDiscover)
            found.push_back(item);
    }
    return found;
}

}  // namespace

TEST_F(ClientWithRoutedSubnet, RoutedUnitIsNotFoundByBroadcastAlone)
{
    auto office = officeUnits();
    auto routed = routedUnits();
    const auto run = runDriver({"--run-ms", "2000"});

    const auto table = run.lastTable();
    EXPECT_NE(findDevice(table, IsolatedLan::kFirstUnitAddress), nullptr);
    EXPECT_EQ(findDevice(table, kRoutedUnit), nullptr);
    EXPECT_TRUE(discovers(capture(routed)).empty());
}

TEST_F(ClientWithRoutedSubnet, RememberedUnitBehindTheRouterIsFoundAgainByUnicastAndNotFlagged)
{
    auto office = officeUnits();
    auto routed = routedUnits();
    const auto run = runDriver({"--remember", kRoutedUnit, "--remember", IsolatedLan::kFirstUnitAddress, "--run-ms",
                                "3000"});

    const auto table = run.lastTable();
    const Json* unit = findDevice(table, kRoutedUnit);
    ASSERT_NE(unit, nullptr) << table.dump();
    EXPECT_EQ(unit->at("heardOn"), routerLinkHeardOn());
    EXPECT_EQ(unit->at("wrongSubnet"), false);
    // Only the remembered routed unit was asked; its neighbour stays unknown.
    EXPECT_EQ(findDevice(table, kSecondRoutedUnit), nullptr);

    const auto routedLog = discovers(capture(routed));
    ASSERT_FALSE(routedLog.empty());
    for (const auto& item : routedLog) {
        EXPECT_EQ(item.datagram.dst, kRoutedUnit);
        EXPECT_EQ(item.datagram.src, IsolatedLan::kRouterLinkConsoleAddress);
    }
    // The remembered office unit answers the broadcast, so it is never asked by unicast.
    for (const auto& item : discovers(capture(office)))
        EXPECT_EQ(item.datagram.dst, "255.255.255.255");
}

TEST_F(ClientWithRoutedSubnet, RememberedUnitIsAskedAgainInEveryRoundItMissesTheBroadcast)
{
    auto routed = routedUnits();
    const auto run = runDriver({"--remember", kRoutedUnit, "--run-ms", "7500"});

    EXPECT_NE(findDevice(run.lastTable(), kRoutedUnit), nullptr);
    // Rounds at start and after 5 s: one unicast each.
    EXPECT_EQ(discovers(capture(routed)).size(), 2u);
}

TEST_F(ClientWithRoutedSubnet, ScanOfTheRoutedBlockFindsItsUnits)
{
    auto office = officeUnits();
    auto routed = routedUnits();
    const auto run = runDriver({"--scan-at", "0", "--scan", IsolatedLan::kRoutedSubnet, "--run-ms", "3000"});

    const auto table = run.lastTable();
    for (const char* address : {kRoutedUnit, kSecondRoutedUnit}) {
        const Json* unit = findDevice(table, address);
        ASSERT_NE(unit, nullptr) << address << ' ' << table.dump();
        EXPECT_EQ(unit->at("wrongSubnet"), false);
    }
    // Every scanned address that the routed namespace holds (its own
    // 10.78.5.2 and the units' 10.78.5.128 to .254) was asked once, and
    // nothing came by broadcast.
    const auto routedLog = discovers(capture(routed));
    std::multiset<std::string> destinations;
    for (const auto& item : routedLog)
        destinations.insert(item.datagram.dst);
    std::multiset<std::string> expected{"10.78.5.2"};
    for (int host = 128; host <= 254; ++host)
        expected.insert("10.78.5." + std::to_string(host));
    EXPECT_EQ(destinations, expected);
}
