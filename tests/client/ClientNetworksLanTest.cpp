// SPDX-License-Identifier: Apache-2.0
// The client on a console with two links: an office link holding the default
// route and a studio link without gateway, simulated units on both.
#include <algorithm>
#include <thread>

#include "ClientLanKit.h"

namespace {

using namespace ClientLan;
using namespace std::chrono_literals;
using LanTest::IsolatedLan;

constexpr const char* kStudioUnit = IsolatedLan::kFirstStudioUnitAddress;
constexpr const char* kWrongSubnet = IsolatedLan::kWrongSubnetAddress;

class ClientOnTwoLinks : public DriverTestCase {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::TwoLinks; }

    std::string studioHeardOn() const
    {
        return lan().studioLink() + " \u00B7 " + IsolatedLan::kStudioConsoleAddress + "/24";
    }
};

std::vector<Captured> discoversTo(const std::vector<Captured>& captured, const std::string& dst)
{
    std::vector<Captured> found;
    for (const auto& item : captured) {
        if (item.command() == Vorn::kCmdDiscover && item.datagram.dst == dst)
            found.push_back(item);
    }
    return found;
}

std::vector<Captured> sentTo(const std::vector<Captured>& captured, const std::string& dst)
{
    std::vector<Captured> found;
    for (const auto& item : captured) {
        if (item.datagram.dst == dst)
            found.push_back(item);
    }
    return found;
}

}  // namespace

TEST_F(ClientOnTwoLinks, EachDiscoverLeavesOncePerLinkWithOneSequenceNumberAndFindsEveryUnit)
{
    LanTest::Simulator office(lan(), {"--count", "2"}, dir());
    LanTest::Simulator studio(lan().studioNs(), {"--count", "3", "--first-ip", kStudioUnit}, dir());
    const auto run = runDriver({"--run-ms", "6500"});
    const auto officeLog = discoversTo(capture(office), "255.255.255.255");
    const auto studioLog = discoversTo(capture(studio), "255.255.255.255");

    // Start-up and the first tick, each once on each link.
    ASSERT_EQ(officeLog.size(), 2u);
    ASSERT_EQ(studioLog.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(officeLog[i].seq(), studioLog[i].seq());
        EXPECT_EQ(officeLog[i].datagram.src, IsolatedLan::kConsoleAddress);
        EXPECT_EQ(studioLog[i].datagram.src, IsolatedLan::kStudioConsoleAddress);
        EXPECT_NE(studioLog[i].datagram.sport, Vorn::kPort);
    }
    EXPECT_EQ(studioLog[1].seq(), static_cast<std::uint16_t>(studioLog[0].seq() + 1));

    const auto table = run.lastTable();
    EXPECT_EQ(table.at("devices").size(), 5u);
    const Json* studioUnit = findDevice(table, kStudioUnit);
    ASSERT_NE(studioUnit, nullptr);
    EXPECT_EQ(studioUnit->at("heardOn"), studioHeardOn());
    EXPECT_EQ(studioUnit->at("wrongSubnet"), false);
    const Json* officeUnit = findDevice(table, IsolatedLan::kFirstUnitAddress);
    ASSERT_NE(officeUnit, nullptr);
    EXPECT_EQ(officeUnit->at("interfaceName"), lan().consoleNs());
    EXPECT_EQ(officeUnit->at("interfaceSubnet"), "10.224.0.0/12");
    EXPECT_EQ(officeUnit->at("wrongSubnet"), false);

    const auto networks = table.at("networks");
    ASSERT_EQ(networks.size(), 2u);
    for (const auto& network : networks) {
        const bool isStudio = network.at("name") == lan().studioLink();
        EXPECT_EQ(network.at("address"), isStudio ? IsolatedLan::kStudioConsoleAddress : IsolatedLan::kConsoleAddress);
        EXPECT_EQ(network.at("prefixLength"), isStudio ? 24 : 12);
        EXPECT_EQ(network.at("units"), isStudio ? 3 : 2);
    }
}

TEST_F(ClientOnTwoLinks, WrongSubnetUnitIsQueriedSavedAndRequeriedOnItsLinkThenListedUnderItsNewAddress)
{
    LanTest::Simulator office(lan(), {"--count", "1"}, dir());
    LanTest::Simulator studio(lan().studioNs(), {"--count", "1", "--first-ip", kStudioUnit, "--unit", kWrongSubnet},
                              dir());
    const std::string fixed = "10.77.1.140";
    const auto run = runDriver({"--run-ms", "6000", "--snapshot-at", "1200", "--query-at", "1300", "--query-ip",
                                kWrongSubnet, "--write-at", "2000", "--write-ip", kWrongSubnet, "--set",
                                "IPAddress=" + fixed});
    const auto officeLog = capture(office);
    const auto studioLog = capture(studio);

    const auto tables = run.tables();
    const Json* before = findDevice(tables.front(), kWrongSubnet);
    ASSERT_NE(before, nullptr);
    EXPECT_EQ(before->at("wrongSubnet"), true);
    EXPECT_EQ(before->at("interfaceName"), lan().studioLink());
    EXPECT_EQ(before->at("interfaceSubnet"), "10.77.1.0/24");

    // Query, both copies of the write and the re-query: all on the studio link.
    const auto unicasts = sentTo(studioLog, kWrongSubnet);
    ASSERT_EQ(unicasts.size(), 4u);
    EXPECT_EQ(unicasts[0].command(), Vorn::kCmdDiscover);
    EXPECT_EQ(unicasts[1].command(), Vorn::kCmdWrite);
    EXPECT_EQ(unicasts[2].datagram.bytes, unicasts[1].datagram.bytes);
    EXPECT_EQ(unicasts[3].command(), Vorn::kCmdDiscover);
    for (const auto& unicast : unicasts)
        EXPECT_EQ(unicast.datagram.src, IsolatedLan::kStudioConsoleAddress);
    EXPECT_TRUE(sentTo(officeLog, kWrongSubnet).empty());

    // The 5 s discover finds it under its new address, without the warning.
    const auto last = run.lastTable();
    const Json* moved = findDevice(last, fixed);
    ASSERT_NE(moved, nullptr);
    EXPECT_EQ(moved->at("wrongSubnet"), false);
    EXPECT_EQ(moved->at("heardOn"), studioHeardOn());
}

TEST_F(ClientOnTwoLinks, TwoUnitsUnderOneAddressAreFlaggedAndTheFlagClearsFifteenSecondsAfterOneFallsSilent)
{
    LanTest::Simulator office(lan(), {"--count", "2"}, dir());
    auto twin = std::make_optional<LanTest::Simulator>(
        lan().studioNs(), std::vector<std::string>{"--count", "1", "--first-ip", kStudioUnit}, dir());
    LanTest::Simulator studio(lan().studioNs(), {"--count", "1", "--first-ip", kStudioUnit, "--seed", "2"}, dir());
    auto driver = startDriver({"--run-ms", "18500", "--snapshot-at", "1500"});
    std::this_thread::sleep_for(2s);
    twin->stopAndReadLog();
    const auto run = finishDriver(driver);

    const auto tables = run.tables();
    ASSERT_EQ(tables.size(), 2u);
    const Json* flagged = findDevice(tables.front(), kStudioUnit);
    ASSERT_NE(flagged, nullptr);
    EXPECT_EQ(flagged->at("addressConflict"), true);
    EXPECT_EQ(flagged->at("serialsSeen").size(), 2u);
    const Json* neighbour = findDevice(tables.front(), IsolatedLan::kFirstUnitAddress);
    ASSERT_NE(neighbour, nullptr);
    EXPECT_EQ(neighbour->at("addressConflict"), false);

    // The twin answered last at start-up; by 18 s only one serial is recent.
    const Json* cleared = findDevice(tables.back(), kStudioUnit);
    ASSERT_NE(cleared, nullptr);
    EXPECT_EQ(cleared->at("addressConflict"), false);
    EXPECT_EQ(cleared->at("serialsSeen").size(), 1u);
}

TEST_F(ClientOnTwoLinks, ALinkBroughtUpWhileRunningGetsTheNextDiscoverAndItsUnitsAreListed)
{
    lan().setStudioLinkUp(false);
    LanTest::Simulator office(lan(), {"--count", "1"}, dir());
    LanTest::Simulator studio(lan().studioNs(), {"--count", "2", "--first-ip", kStudioUnit}, dir());
    auto driver = startDriver({"--run-ms", "6500", "--snapshot-at", "1000"});
    std::this_thread::sleep_for(1500ms);
    lan().setStudioLinkUp(true);
    const auto run = finishDriver(driver);
    const auto studioLog = discoversTo(capture(studio), "255.255.255.255");

    const auto tables = run.tables();
    EXPECT_EQ(tables.front().at("devices").size(), 1u);
    EXPECT_EQ(tables.front().at("networks").size(), 1u);
    ASSERT_EQ(studioLog.size(), 1u) << "the 5 s tick after the link came up";
    EXPECT_EQ(studioLog[0].datagram.src, IsolatedLan::kStudioConsoleAddress);
    EXPECT_EQ(tables.back().at("devices").size(), 3u);
    EXPECT_NE(findDevice(tables.back(), kStudioUnit), nullptr);
    EXPECT_EQ(tables.back().at("networks").size(), 2u);
}

TEST_F(ClientOnTwoLinks, AnAliasAddressGetsItsOwnCopyOfEachDiscoverAndItsUnitsAreInTheirSubnet)
{
    lan().addStudioAlias("192.168.0.200/24");
    LanTest::Simulator office(lan(), {"--count", "1"}, dir());
    LanTest::Simulator studio(lan().studioNs(), {"--count", "1", "--first-ip", kStudioUnit, "--unit", kWrongSubnet},
                              dir());
    const auto run = runDriver({"--run-ms", "2500"});
    const auto studioLog = discoversTo(capture(studio), "255.255.255.255");

    // One copy per address of the studio link, with one sequence number.
    ASSERT_EQ(studioLog.size(), 2u);
    std::vector<std::string> sources{studioLog[0].datagram.src, studioLog[1].datagram.src};
    std::sort(sources.begin(), sources.end());
    EXPECT_EQ(sources, (std::vector<std::string>{IsolatedLan::kStudioConsoleAddress, "192.168.0.200"}));
    EXPECT_EQ(studioLog[0].seq(), studioLog[1].seq());

    const auto table = run.lastTable();
    const Json* unit = findDevice(table, kWrongSubnet);
    ASSERT_NE(unit, nullptr);
    EXPECT_EQ(unit->at("wrongSubnet"), false) << "it is in the alias address's subnet";
    EXPECT_EQ(unit->at("heardOn"), lan().studioLink() + " \u00B7 192.168.0.200/24");
    EXPECT_EQ(table.at("networks").size(), 3u);
}

namespace {

class ClientOnStudioOnly : public DriverTestCase {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::Studio; }
};

}  // namespace

TEST_F(ClientOnStudioOnly, FindsEveryUnitWithoutADefaultRouteAndQueriesTheWrongSubnetUnit)
{
    LanTest::Simulator studio(lan().studioNs(), {"--count", "2", "--first-ip", kStudioUnit, "--unit", kWrongSubnet},
                              dir());
    const auto run = runDriver({"--run-ms", "2500", "--query-at", "1200", "--query-ip", kWrongSubnet});
    const auto studioLog = capture(studio);

    EXPECT_EQ(discoversTo(studioLog, "255.255.255.255").size(), 1u);
    EXPECT_EQ(sentTo(studioLog, kWrongSubnet).size(), 1u);
    const auto table = run.lastTable();
    EXPECT_EQ(table.at("devices").size(), 3u);
    const Json* wrong = findDevice(table, kWrongSubnet);
    ASSERT_NE(wrong, nullptr);
    EXPECT_EQ(wrong->at("wrongSubnet"), true);
}
