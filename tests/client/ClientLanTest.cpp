// SPDX-License-Identifier: Apache-2.0
// The client on a private LAN against vorn-sim, on the real port: client_driver
// runs a VornClient in the console namespace, the simulator logs every
// datagram that reaches the units side.
#include "ClientLanKit.h"

namespace {

using namespace ClientLan;
using namespace std::chrono_literals;

constexpr const char* kUnit = LanTest::IsolatedLan::kFirstUnitAddress;

using ClientOnLan = DriverTestCase;

}  // namespace

TEST_F(ClientOnLan, DiscoversToLimitedBroadcastAtStartAndEveryFiveSecondsWithConsecutiveNumbers)
{
    LanTest::Simulator simulator(lan(), {"--count", "1"}, dir());
    const auto run = runDriver({"--run-ms", "11000"});
    const auto captured = capture(simulator);

    ASSERT_EQ(captured.size(), 3u);
    for (std::size_t i = 0; i < captured.size(); ++i) {
        EXPECT_EQ(captured[i].datagram.dst, "255.255.255.255");
        EXPECT_EQ(captured[i].datagram.src, LanTest::IsolatedLan::kConsoleAddress);
        EXPECT_EQ(captured[i].datagram.bytes, Vorn::discoverPacket(captured[i].seq()));
        if (i > 0) {
            EXPECT_EQ(captured[i].seq(), static_cast<std::uint16_t>(captured[i - 1].seq() + 1));
            // The cadence, with room for a busy machine.
            EXPECT_NEAR(captured[i].time - captured[i - 1].time, 5.0, 1.0);
        }
    }
    EXPECT_EQ(run.first("started").at("status"), "listening on 23457");
    ASSERT_NE(findDevice(run.lastTable(), kUnit), nullptr);
    EXPECT_EQ(run.first("end").at("log").size(), 1u);
    EXPECT_TRUE(run.first("end").at("log")[0].get<std::string>().ends_with(std::string("  found ") + kUnit));
}

TEST_F(ClientOnLan, WriteSendsTwoIdenticalFullConfigurationsThenOneUnicastDiscoverAndTheReplyClearsTheDifference)
{
    LanTest::Simulator simulator(lan(), {"--count", "1"}, dir());
    const auto run = runDriver({"--run-ms", "4500", "--snapshot-at", "1500", "--write-at", "2000", "--write-ip",
                                kUnit, "--set", "Channel=7", "--set", "SwitcherBand=3"});
    const auto captured = capture(simulator);

    const auto tables = run.tables();
    const Json* before = findDevice(tables.front(), kUnit);
    ASSERT_NE(before, nullptr);
    Vorn::Config expected = configOf(*before);
    ASSERT_NE(expected["Channel"], "7");
    expected["Channel"] = "7";
    expected["SwitcherBand"] = "3";

    // Start-up discover, the write twice, the re-query; the 5 s tick comes later.
    ASSERT_EQ(captured.size(), 4u);
    const std::uint16_t startSeq = captured[0].seq();
    EXPECT_EQ(captured[1].datagram.dst, kUnit);
    EXPECT_EQ(captured[1].datagram.bytes, captured[2].datagram.bytes);
    EXPECT_EQ(captured[1].datagram.bytes, Vorn::writePacket(static_cast<std::uint16_t>(startSeq + 1), expected));
    EXPECT_EQ(captured[3].datagram.dst, kUnit);
    EXPECT_EQ(captured[3].datagram.bytes, Vorn::discoverPacket(static_cast<std::uint16_t>(startSeq + 2)));
    EXPECT_NEAR(captured[3].time - captured[1].time, 1.5, 0.5);

    const Json* after = findDevice(tables.back(), kUnit);
    ASSERT_NE(after, nullptr);
    EXPECT_EQ(configOf(*after), expected);
    const auto log = run.first("end").at("log");
    EXPECT_TRUE(log.back().get<std::string>().ends_with(std::string("  write \u2192 ") + kUnit +
                                                         ": Channel=7 SwitcherBand=3"));
}

TEST_F(ClientOnLan, AddressChangeKeepsTheOldEntryAndAddsTheUnitUnderItsNewAddress)
{
    LanTest::Simulator simulator(lan(), {"--count", "1"}, dir());
    const auto run = runDriver({"--run-ms", "7500", "--snapshot-at", "1000", "--write-at", "1500", "--write-ip",
                                kUnit, "--set", "IPAddress=10.232.9.9"});
    const auto captured = capture(simulator);

    // The write and the re-query both go to the old address.
    ASSERT_GE(captured.size(), 4u);
    EXPECT_EQ(captured[1].datagram.dst, kUnit);
    EXPECT_EQ(captured[2].datagram.dst, kUnit);
    EXPECT_EQ(captured[3].datagram.dst, kUnit);
    EXPECT_EQ(captured[3].command(), Vorn::kCmdDiscover);

    const auto tables = run.tables();
    const Json* before = findDevice(tables.front(), kUnit);
    ASSERT_NE(before, nullptr);
    const Json& table = tables.back();
    ASSERT_EQ(table.at("devices").size(), 2u);
    const Json* old = findDevice(table, kUnit);
    const Json* moved = findDevice(table, "10.232.9.9");
    ASSERT_NE(old, nullptr);
    ASSERT_NE(moved, nullptr);
    EXPECT_EQ(configOf(*old), configOf(*before));
    EXPECT_EQ(configOf(*moved).at("IPAddress"), "10.232.9.9");
}

TEST_F(ClientOnLan, PortTakenGivesTheStatusTextAndSendsNothing)
{
    LanTest::Simulator simulator(lan(), {"--count", "1"}, dir());
    const auto run = runDriver({"--hold-port", "--run-ms", "6000"});
    const auto captured = capture(simulator);

    EXPECT_TRUE(captured.empty());
    EXPECT_EQ(run.first("started").at("status"), "cannot bind UDP 23457 (in use?)");
    EXPECT_EQ(run.first("end").at("status"), "cannot bind UDP 23457 (in use?)");
    EXPECT_TRUE(run.lastTable().at("devices").empty());
    EXPECT_TRUE(run.first("end").at("log").empty());
}

// A measurement as much as a test: how many of 1000 units answering in one
// burst are listed after the first discover and after the second.
TEST_F(ClientOnLan, ThousandUnitsAnsweringEachDiscoverStayListedAndOnlyGrowInNumber)
{
    LanTest::Simulator simulator(lan(), {"--count", "1000"}, dir());
    const auto run = runDriver({"--run-ms", "9700", "--snapshot-at", "4800"});
    simulator.stopAndReadLog();

    const auto tables = run.tables();
    ASSERT_EQ(tables.size(), 2u);
    const std::size_t firstRound = tables.front().at("devices").size();
    const std::size_t secondRound = tables.back().at("devices").size();
    RecordProperty("listedAfterFirstRound", static_cast<int>(firstRound));
    RecordProperty("listedAfterSecondRound", static_cast<int>(secondRound));
    std::printf("1000 units: %zu listed after the first round, %zu after the second\n", firstRound, secondRound);

    EXPECT_GT(firstRound, 0u);
    EXPECT_LE(secondRound, 1000u);
    for (const auto& device : tables.front().at("devices"))
        EXPECT_NE(findDevice(tables.back(), device.at("ip").get<std::string>()), nullptr);
}
