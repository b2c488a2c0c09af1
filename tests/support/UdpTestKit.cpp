// SPDX-License-Identifier: Apache-2.0
#include "UdpTestKit.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "Ipv4.h"

namespace UdpTestKit {

sockaddr_in endpoint(const char* address, std::uint16_t port)
{
    sockaddr_in where;
    std::memset(&where, 0, sizeof where);
    where.sin_family = AF_INET;
    where.sin_port = htons(port);
    ::inet_pton(AF_INET, address, &where.sin_addr);
    return where;
}

std::uint16_t freeUdpPort()
{
    for (;;) {
        const int fd = bindUdp("127.0.0.1", 0, false);
        sockaddr_in bound;
        socklen_t length = sizeof bound;
        ::getsockname(fd, reinterpret_cast<sockaddr*>(&bound), &length);
        ::close(fd);
        const std::uint16_t port = ntohs(bound.sin_port);
        if (port > 1024 && port != Vorn::kPort)
            return port;
    }
}

int bindUdp(const char* address, std::uint16_t port, bool reuseAddress)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (fd < 0)
        return -1;
    const int one = 1;
    if (reuseAddress)
        ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    const sockaddr_in local = endpoint(address, port);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

void sendUdp(const Vorn::Bytes& data, const char* address, std::uint16_t port)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    const sockaddr_in destination = endpoint(address, port);
    ::sendto(fd, data.data(), data.size(), 0, reinterpret_cast<const sockaddr*>(&destination), sizeof destination);
    ::close(fd);
}

Vorn::Bytes reportDatagram(const std::string& unitIp, const Vorn::Config& config, std::uint8_t cmd)
{
    std::string body;
    for (const auto& [key, value] : config)
        body += key + ':' + value + '\n';
    const auto address = Settings::Ipv4::parse(unitIp).value_or(Settings::Ipv4()).octets();
    const std::size_t total = Vorn::kHeaderSize + body.size();
    const std::array<std::uint8_t, Vorn::kHeaderSize> header = {0x3A, 0x62, 0x7F, 0x3D,
                            // the unit's address, last octet first
                            address[3], address[2], address[1], address[0],
                            0x00, 0x01, 0x01, cmd,
                            static_cast<std::uint8_t>(total & 0xFF), static_cast<std::uint8_t>(total >> 8),
                            0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
    Vorn::Bytes datagram(total);
    std::copy(header.begin(), header.end(), datagram.begin());
    std::copy(body.begin(), body.end(), datagram.begin() + Vorn::kHeaderSize);
    return datagram;
}

std::uint16_t sequenceOf(const Vorn::Bytes& datagram)
{
    return static_cast<std::uint16_t>(datagram.at(14) | (datagram.at(15) << 8));
}

}  // namespace UdpTestKit
