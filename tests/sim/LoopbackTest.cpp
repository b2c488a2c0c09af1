// SPDX-License-Identifier: Apache-2.0
// The event loop on a thread, bound to 127.0.0.2 at a free high port, talked
// to by plain sockets on 127.0.0.1. Loopback only.
#include "EventLoop.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "FileDescriptor.h"
#include "Responder.h"

namespace VornSim {
namespace {

constexpr const char* kSimAddress = "127.0.0.2";
constexpr const char* kClientAddress = "127.0.0.1";
constexpr int kSafetyTimeoutMs = 5000;  // only against hanging; no timing is asserted

sockaddr_in socketAddress(const char* ip, std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    inet_pton(AF_INET, ip, &address.sin_addr);
    return address;
}

FileDescriptor boundSocket(const char* ip, std::uint16_t port)
{
    FileDescriptor fd(socket(AF_INET, SOCK_DGRAM, 0));
    const auto address = socketAddress(ip, port);
    EXPECT_EQ(bind(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return fd;
}

std::uint16_t portOf(const FileDescriptor& fd)
{
    sockaddr_in address{};
    socklen_t length = sizeof address;
    getsockname(fd.get(), reinterpret_cast<sockaddr*>(&address), &length);
    return ntohs(address.sin_port);
}

struct Received {
    Vorn::Bytes bytes;
    std::string fromIp;
};

std::optional<Received> receiveOne(const FileDescriptor& fd)
{
    pollfd watched{fd.get(), POLLIN, 0};
    if (poll(&watched, 1, kSafetyTimeoutMs) != 1)
        return std::nullopt;
    Vorn::Bytes buffer(65536);
    sockaddr_in from{};
    socklen_t length = sizeof from;
    const auto size = recvfrom(fd.get(), buffer.data(), buffer.size(), 0, reinterpret_cast<sockaddr*>(&from), &length);
    if (size < 0)
        return std::nullopt;
    buffer.resize(static_cast<std::size_t>(size));
    return Received{buffer, inet_ntoa(from.sin_addr)};
}

class Loopback : public ::testing::Test {
protected:
    // The client's receive socket takes a free port on 127.0.0.1; the
    // simulator listens on the same port number at 127.0.0.2.
    void start(std::vector<Unit> units)
    {
        clientReceive_ = boundSocket(kClientAddress, 0);
        port_ = portOf(clientReceive_);
        auto endpoint = UdpEndpoint::open(kSimAddress, port_);
        ASSERT_TRUE(std::holds_alternative<UdpEndpoint>(endpoint)) << std::get<Error>(endpoint).message;
        loop_.emplace(std::move(std::get<UdpEndpoint>(endpoint)), std::move(units), 1, &log_);
        thread_ = std::thread([this] { loopResult_ = loop_->run(); });
    }

    void TearDown() override { stop(); }

    void stop()
    {
        if (!thread_.joinable())
            return;
        loop_->requestStop();
        thread_.join();
        EXPECT_TRUE(loopResult_);
    }

    void sendFrom(const FileDescriptor& sender, const Vorn::Bytes& bytes, const char* to)
    {
        const auto destination = socketAddress(to, port_);
        ASSERT_EQ(sendto(sender.get(), bytes.data(), bytes.size(), 0, reinterpret_cast<const sockaddr*>(&destination),
                         sizeof destination),
                  static_cast<ssize_t>(bytes.size()));
    }

    std::vector<nlohmann::json> logLines() const
    {
        std::vector<nlohmann::json> lines;
        std::istringstream text(log_.str());
        for (std::string line; std::getline(text, line);)
            lines.push_back(nlohmann::json::parse(line));
        return lines;
    }

    FileDescriptor clientReceive_;
    std::uint16_t port_ = 0;
    std::ostringstream log_;
    std::optional<EventLoop> loop_;
    std::thread thread_;
    bool loopResult_ = false;
};

const Vorn::Config kLocalUnitConfig = {{"IPAddress", "127.0.0.3"}, {"Channel", "12"}, {"Serial", "LOOPBACK0001"}};

TEST_F(Loopback, DiscoverIsAnsweredAtTheListenPortFromTheUnitsOwnAddress)
{
    start({Unit{"127.0.0.3", kLocalUnitConfig, {}}});
    const auto client = boundSocket(kClientAddress, 0);
    sendFrom(client, Vorn::discoverPacket(77), kSimAddress);

    const auto reply = receiveOne(clientReceive_);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->fromIp, "127.0.0.3");
    EXPECT_EQ(reply->bytes, reportPacket(Unit{"127.0.0.3", kLocalUnitConfig, {}}, 77));
    EXPECT_EQ(Vorn::parse(reply->bytes)->config, kLocalUnitConfig);

    stop();
    const auto lines = logLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].at("src"), kClientAddress);
    EXPECT_EQ(lines[0].at("sport"), portOf(client));
    EXPECT_EQ(lines[0].at("dst"), kSimAddress);
    EXPECT_EQ(lines[0].at("bytes"), "3a627f3de00000c8000101a314004d0000000000");
    EXPECT_GT(lines[0].at("time").get<double>(), 1.6e9);
}

TEST_F(Loopback, UnitWithAForeignAddressAnswersFromTheDefaultSource)
{
    start({Unit{"10.232.1.1", {{"Channel", "5"}}, {}}});
    const auto client = boundSocket(kClientAddress, 0);
    sendFrom(client, Vorn::discoverPacket(1), kSimAddress);

    const auto reply = receiveOne(clientReceive_);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->fromIp, kSimAddress);
    EXPECT_EQ(Vorn::parse(reply->bytes)->deviceIp, "10.232.1.1");
}

TEST_F(Loopback, WriteToAUnitsAddressIsReportedByTheNextDiscover)
{
    // The simulator hears only its listen address, so the written unit lives there.
    const Vorn::Config before = {{"IPAddress", kSimAddress}, {"Channel", "12"}};
    start({Unit{kSimAddress, before, {}}, Unit{"127.0.0.3", kLocalUnitConfig, {}}});
    const auto client = boundSocket(kClientAddress, 0);
    sendFrom(client, Vorn::writePacket(2, {{"Channel", "99"}}), kSimAddress);
    sendFrom(client, Vorn::discoverPacket(3), kSimAddress);

    const auto reply = receiveOne(clientReceive_);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->fromIp, kSimAddress);
    EXPECT_EQ(Vorn::parse(reply->bytes)->config, (Vorn::Config{{"IPAddress", kSimAddress}, {"Channel", "99"}}));

    stop();
    EXPECT_EQ(loop_->units()[1].config, kLocalUnitConfig);
    EXPECT_EQ(logLines().size(), 2u);
}

TEST_F(Loopback, OwnRepliesThatComeBackAreLoggedButNeverAnswered)
{
    // A unit at the listen address answering with the discover code to a
    // requester on that address would feed itself for ever if its replies
    // were taken as requests.
    start({Unit{kSimAddress, {{"Channel", "1"}}, {.cmd = Vorn::kCmdDiscover}}});
    const auto sameHost = boundSocket(kSimAddress, 0);
    sendFrom(sameHost, Vorn::discoverPacket(1), kSimAddress);

    // Two round trips from the client afterwards: once the second is
    // answered, the reply the simulator sent to itself has been handled.
    const auto client = boundSocket(kClientAddress, 0);
    sendFrom(client, Vorn::discoverPacket(2), kSimAddress);
    ASSERT_TRUE(receiveOne(clientReceive_));
    sendFrom(client, Vorn::discoverPacket(3), kSimAddress);
    ASSERT_TRUE(receiveOne(clientReceive_));

    stop();
    const auto lines = logLines();
    ASSERT_EQ(lines.size(), 4u);
    const auto ownReplies = std::count_if(lines.begin(), lines.end(), [&](const nlohmann::json& line) {
        return line.at("src") == kSimAddress && line.at("sport") != portOf(sameHost);
    });
    EXPECT_EQ(ownReplies, 1);
}

}  // namespace
}  // namespace VornSim
