// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <dirent.h>
#include <net/if.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <fstream>
#include <mutex>

#include "Ipv4.h"
#include "LoopbackPeer.h"
#include "VornSocket.h"

using namespace std::chrono_literals;

namespace {

// Collects what the endpoint hands to its callback.
struct Inbox {
    std::mutex mutex;
    std::condition_variable arrived;
    std::vector<TestKit::Received> items;
    std::vector<Vorn::Arrival> arrivals;  // with datagramHandler() only

    Vorn::VornSocket::PacketHandler handler()
    {
        return [this](Vorn::Bytes data, std::string sender) {
            std::lock_guard lock(mutex);
            items.push_back({std::move(data), std::move(sender), 0});
            arrived.notify_all();
        };
    }
    Vorn::VornSocket::DatagramHandler datagramHandler()
    {
        return [this](Vorn::Bytes data, std::string sender, Vorn::Arrival arrival) {
            std::lock_guard lock(mutex);
            arrivals.push_back(arrival);
            items.push_back({std::move(data), std::move(sender), 0});
            arrived.notify_all();
        };
    }
    std::vector<TestKit::Received> waitFor(std::size_t count)
    {
        std::unique_lock lock(mutex);
        arrived.wait_for(lock, 2s, [&] { return items.size() >= count; });
        return items;
    }
};

std::vector<std::string> threadNames()
{
    std::vector<std::string> names;
    DIR* dir = ::opendir("/proc/self/task");
    while (dirent* entry = ::readdir(dir)) {
        std::ifstream comm(std::string("/proc/self/task/") + entry->d_name + "/comm");
        std::string name;
        if (std::getline(comm, name))
            names.push_back(name);
    }
    ::closedir(dir);
    return names;
}

}  // namespace

TEST(VornSocket, StartTwiceReturnsTrueTwiceAndBindsOnce)
{
    Vorn::VornSocket socket(TestKit::freeUdpPort(), TestKit::kPeerAddress);
    ASSERT_TRUE(socket.start());
    const int first = socket.rxfd();
    EXPECT_TRUE(socket.start());
    EXPECT_EQ(socket.rxfd(), first);
}

TEST(VornSocket, PortHeldExclusivelyMakesStartFailAndLeavesNoDescriptor)
{
    const auto port = TestKit::freeUdpPort();
    const int holder = TestKit::bindUdp("0.0.0.0", port, false);
    ASSERT_GE(holder, 0);
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    EXPECT_FALSE(socket.start());
    EXPECT_EQ(socket.rxfd(), -1);
    EXPECT_FALSE(socket.isListening());
    ::close(holder);
    EXPECT_TRUE(socket.start()) << "a failed start may be retried";
}

TEST(VornSocket, ReceiveThreadIsNamedVornRx)
{
    Vorn::VornSocket socket(TestKit::freeUdpPort(), TestKit::kPeerAddress);
    ASSERT_TRUE(socket.start());
    const auto names = threadNames();
    EXPECT_NE(std::find(names.begin(), names.end(), "vorn.rx"), names.end());
}

TEST(VornSocket, DatagramReachesCallbackWithSenderAddress)
{
    const auto port = TestKit::freeUdpPort();
    Inbox inbox;
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    socket.setOnPacket(inbox.handler());
    ASSERT_TRUE(socket.start());
    TestKit::sendUdp({1, 2, 3}, "127.0.0.1", port);
    const auto items = inbox.waitFor(1);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].data, (Vorn::Bytes{1, 2, 3}));
    EXPECT_EQ(items[0].sourceIp, "127.0.0.1");
}

TEST(VornSocket, ZeroLengthDatagramProducesNoCallback)
{
    const auto port = TestKit::freeUdpPort();
    Inbox inbox;
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    socket.setOnPacket(inbox.handler());
    ASSERT_TRUE(socket.start());
    TestKit::sendUdp({}, "127.0.0.1", port);
    TestKit::sendUdp({42}, "127.0.0.1", port);
    // Loopback keeps order, so once the second datagram is in, the first was seen.
    const auto items = inbox.waitFor(1);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].data, (Vorn::Bytes{42}));
}

TEST(VornSocket, ThreeThousandByteDatagramArrivesCutToTwoThousandFortyEight)
{
    const auto port = TestKit::freeUdpPort();
    Inbox inbox;
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    socket.setOnPacket(inbox.handler());
    ASSERT_TRUE(socket.start());
    Vorn::Bytes big(3000);
    for (std::size_t i = 0; i < big.size(); ++i)
        big[i] = static_cast<std::uint8_t>(i);
    TestKit::sendUdp(big, "127.0.0.1", port);
    TestKit::sendUdp({7}, "127.0.0.1", port);
    const auto items = inbox.waitFor(2);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].data, Vorn::Bytes(big.begin(), big.begin() + 2048));
}

TEST(VornSocket, SendGoesToTheGivenAddressFromAnEphemeralPort)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, nullptr);
    Vorn::VornSocket socket(port, "127.0.0.9");
    socket.send(Vorn::Bytes{9, 8, 7}, TestKit::kPeerAddress);
    const auto got = peer.waitForDatagrams(1);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0].data, (Vorn::Bytes{9, 8, 7}));
    EXPECT_NE(got[0].sourcePort, port);
}

TEST(VornSocket, SendToTextThatIsNotADottedAddressSendsNothing)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, nullptr);
    // On loopback the broadcast address is moved to the peer's address, so a
    // fallback to the broadcast would arrive here.
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    socket.send(Vorn::Bytes{1}, "studio-base-station.local");
    socket.send(Vorn::Bytes{2}, "");
    socket.send(Vorn::Bytes{3}, "127.0.0");
    socket.send(Vorn::Bytes{4}, TestKit::kPeerAddress);
    // Loopback keeps order: the marker arrives first and alone.
    const auto got = peer.waitForDatagrams(1);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0].data, (Vorn::Bytes{4}));
}

TEST(VornSocket, LeadingZerosAreDecimalNeverOctal)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, nullptr);
    Vorn::VornSocket socket(port, "127.0.0.9");
    // Read as octal, 0127 would be 87.
    socket.send(Vorn::Bytes{5}, "0127.0.0.02");
    const auto got = peer.waitForDatagrams(1);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0].data, (Vorn::Bytes{5}));
}

TEST(VornSocket, SendWithoutStartNeedsNoBoundSocket)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, nullptr);
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    EXPECT_FALSE(socket.isListening());
    socket.send(Vorn::Bytes{5}, TestKit::kPeerAddress);
    EXPECT_EQ(peer.waitForDatagrams(1).size(), 1u);
    EXPECT_FALSE(socket.isListening());
}

TEST(VornSocket, ReplacingTheCallbackRoutesLaterDatagramsToTheNewOne)
{
    const auto port = TestKit::freeUdpPort();
    Inbox first;
    Inbox second;
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    socket.setOnPacket(first.handler());
    ASSERT_TRUE(socket.start());
    TestKit::sendUdp({1}, "127.0.0.1", port);
    ASSERT_EQ(first.waitFor(1).size(), 1u);
    socket.setOnPacket(second.handler());
    TestKit::sendUdp({2}, "127.0.0.1", port);
    ASSERT_EQ(second.waitFor(1).size(), 1u);
    EXPECT_EQ(first.items.size(), 1u);
}

TEST(VornSocket, DestroyingAListeningEndpointEndsItsThread)
{
    const auto port = TestKit::freeUdpPort();
    {
        Vorn::VornSocket socket(port, TestKit::kPeerAddress);
        ASSERT_TRUE(socket.start());
    }
    const auto names = threadNames();
    EXPECT_EQ(std::find(names.begin(), names.end(), "vorn.rx"), names.end());
    // And the port is free again.
    const int fd = TestKit::bindUdp("0.0.0.0", port, false);
    EXPECT_GE(fd, 0);
    ::close(fd);
}

namespace {

long readSysctl(const char* path)
{
    std::ifstream file(path);
    long value = 0;
    file >> value;
    return value;
}

}  // namespace

TEST(VornSocket, EveryDatagramCarriesItsArrivalInterfaceAndLocalAddress)
{
    const auto port = TestKit::freeUdpPort();
    Inbox inbox;
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    socket.setOnDatagram(inbox.datagramHandler());
    ASSERT_TRUE(socket.start());
    TestKit::sendUdp({1}, "127.0.0.1", port);
    TestKit::sendUdp({2}, "127.0.0.5", port);
    ASSERT_EQ(inbox.waitFor(2).size(), 2u);
    std::lock_guard lock(inbox.mutex);
    const auto& items = inbox.arrivals;
    EXPECT_EQ(items[0].interfaceIndex, ::if_nametoindex("lo"));
    EXPECT_EQ(items[0].localAddress, Settings::Ipv4::parse("127.0.0.1")->value());
    EXPECT_EQ(items[1].interfaceIndex, ::if_nametoindex("lo"));
    EXPECT_EQ(items[1].localAddress, Settings::Ipv4::parse("127.0.0.5")->value());
}

TEST(VornSocket, ListeningSocketGetsTheLargerReceiveBufferTheKernelAllows)
{
    Vorn::VornSocket socket(TestKit::freeUdpPort(), TestKit::kPeerAddress);
    EXPECT_EQ(socket.kernelReceiveBuffer(), 0) << "nothing to report before listening";
    ASSERT_TRUE(socket.start());
    // Linux caps a request at net.core.rmem_max and reports twice what it keeps for data.
    const long cap = readSysctl("/proc/sys/net/core/rmem_max");
    const long expected = 2 * std::min<long>(Vorn::VornSocket::kRequestedKernelBuffer, cap);
    EXPECT_EQ(socket.kernelReceiveBuffer(), expected);
}

TEST(VornSocket, SendThroughAGivenInterfaceArrives)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, nullptr);
    Vorn::VornSocket socket(port, "127.0.0.9");
    socket.sendVia(Vorn::Bytes{4, 2}, TestKit::kPeerAddress, ::if_nametoindex("lo"));
    const auto got = peer.waitForDatagrams(1);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0].data, (Vorn::Bytes{4, 2}));
    EXPECT_NE(got[0].sourcePort, port);
}

TEST(VornSocket, BroadcastToAMovedBroadcastAddressIsOnePlainSend)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, nullptr);
    Vorn::VornSocket socket(port, TestKit::kPeerAddress);
    socket.broadcast(Vorn::Bytes{3});
    socket.send(Vorn::Bytes{4}, TestKit::kPeerAddress);
    // Loopback keeps order: once the marker is in, every copy of the broadcast is too.
    const auto got = peer.waitForDatagrams(2);
    ASSERT_EQ(got.size(), 2u);
    EXPECT_EQ(got[0].data, (Vorn::Bytes{3}));
    EXPECT_EQ(got[1].data, (Vorn::Bytes{4}));
}

TEST(VornSocket, BroadcastTargetsAreTheBroadcastAddressOnly)
{
    Vorn::VornSocket seam(TestKit::freeUdpPort(), TestKit::kPeerAddress);
    EXPECT_TRUE(seam.isBroadcastTarget(TestKit::kPeerAddress));
    EXPECT_TRUE(seam.isBroadcastTarget("255.255.255.255"));
    EXPECT_TRUE(seam.isBroadcastTarget("255.255.255.0255"));
    EXPECT_FALSE(seam.isBroadcastTarget("studio-base-station.local"));
    EXPECT_FALSE(seam.isBroadcastTarget("10.77.1.20"));
}
