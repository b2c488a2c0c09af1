// SPDX-License-Identifier: Apache-2.0
#include "FakeUnit.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace ClientTest {

using UdpTestKit::endpoint;

FakeUnit::FakeUnit(std::uint16_t port, const char* address, bool reuseAddress)
    : port_(port), fd_(bindUdp(address, port, reuseAddress))
{
}

FakeUnit::~FakeUnit()
{
    if (fd_ >= 0)
        ::close(fd_);
}

std::vector<Vorn::Bytes> FakeUnit::receive(std::size_t count, std::chrono::milliseconds patience)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    std::array<std::uint8_t, 4096> buffer{};
    while (received_.size() < count) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            break;
        pollfd wait{fd_, POLLIN, 0};
        if (::poll(&wait, 1, static_cast<int>(left.count())) <= 0)
            continue;
        const ssize_t n = ::recv(fd_, buffer.data(), buffer.size(), 0);
        if (n >= 0)
            received_.emplace_back(buffer.begin(), buffer.begin() + n);
    }
    return received_;
}

std::vector<Vorn::Bytes> FakeUnit::receiveWithin(std::chrono::milliseconds window)
{
    return receive(received_.size() + 1000, window);
}

void FakeUnit::sendToClient(const Vorn::Bytes& datagram) const
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    const sockaddr_in client = endpoint(kClientAddress, port_);
    ::sendto(fd, datagram.data(), datagram.size(), 0, reinterpret_cast<const sockaddr*>(&client), sizeof client);
    ::close(fd);
}

}  // namespace ClientTest
