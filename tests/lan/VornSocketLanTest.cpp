// SPDX-License-Identifier: Apache-2.0
// The UDP endpoint's behaviour that only shows on a real LAN, checked with the
// lan_probe helper (which drives Vorn::VornSocket) in the console namespace.
#include "LanTestCase.h"

namespace {

using EndpointOnLan = LanTestCase;

TEST_F(EndpointOnLan, SendToAHostNameSendsNothingWhileTheLimitedBroadcastGoesToTheDevicePort)
{
    LanTest::Simulator simulator(lan(), {}, dir());

    const auto name = runInConsole({VORN_LAN_PROBE, "send", "not-an-ip", "host name probe"});
    const auto marker = runInConsole({VORN_LAN_PROBE, "send", "255.255.255.255", "broadcast marker"});
    ASSERT_EQ(name.status, 0) << name.err;
    ASSERT_EQ(marker.status, 0) << marker.err;
    const auto received = simulator.stopAndReadLog();

    // The simulator listens on the device port only, so arriving there proves
    // the port; the host name's datagram went nowhere.
    const std::string text = "broadcast marker";
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0].dst, "255.255.255.255");
    EXPECT_EQ(received[0].src, LanTest::IsolatedLan::kConsoleAddress);
    EXPECT_EQ(received[0].bytes, std::vector<std::uint8_t>(text.begin(), text.end()));
}

TEST_F(EndpointOnLan, OwnBroadcastIsDeliveredToTheOwnListeningSocket)
{
    const auto run = runInConsole({VORN_LAN_PROBE, "hear-own-broadcast"});

    // The probe broadcasts the discover datagram of sequence 0x0102 and waits for it.
    EXPECT_EQ(run.out, "heard 10.231.0.1 3a627f3de00000c8000101a31400020100000000\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

}  // namespace
