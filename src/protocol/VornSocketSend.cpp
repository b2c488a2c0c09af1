// SPDX-License-Identifier: Apache-2.0
// The endpoint's sends: each from a fresh socket, errors ignored by design.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>

#include "Ipv4.h"
#include "NetworkInterfaces.h"
#include "VornSocket.h"

namespace Vorn {
namespace {

// A datagram socket that may send to a broadcast address, or -1.
int openSendSocket()
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (fd < 0)
        return -1;
    const int one = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_BROADCAST, &one, sizeof one);
    return fd;
}

sockaddr_in socketAddress(in_addr_t networkOrderAddress, std::uint16_t port)
{
    sockaddr_in where;
    std::memset(&where, 0, sizeof where);
    where.sin_family = AF_INET;
    where.sin_port = htons(port);
    where.sin_addr.s_addr = networkOrderAddress;
    return where;
}

}  // namespace

bool VornSocket::isBroadcastTarget(const std::string& ip) const
{
    const auto address = Settings::Ipv4::parse(ip);
    return ip == broadcastAddress_ || (address && address->value() == INADDR_BROADCAST);
}

void VornSocket::send(std::span<const std::uint8_t> data, const std::string& ip) const
{
    sendVia(data, ip, 0);
}

void VornSocket::sendVia(std::span<const std::uint8_t> data, const std::string& ip, unsigned interfaceIndex) const
{
    // Text that is not an address goes nowhere: never a broadcast by mistake.
    const auto address = Settings::Ipv4::parse(ip);
    if (!address)
        return;
    const int fd = openSendSocket();
    if (fd < 0)
        return;
    sockaddr_in destination = socketAddress(htonl(address->value()), port_);

    iovec payload{const_cast<std::uint8_t*>(data.data()), data.size()};
    msghdr message;
    std::memset(&message, 0, sizeof message);
    message.msg_name = &destination;
    message.msg_namelen = sizeof destination;
    message.msg_iov = &payload;
    message.msg_iovlen = 1;
#if !defined(__APPLE__)
    // The interface goes with the datagram: the kernel sends it out there,
    // with that interface's address, even where no route leads to `ip`.
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(in_pktinfo))] = {};
    if (interfaceIndex != 0) {
        message.msg_control = control;
        message.msg_controllen = sizeof control;
        cmsghdr* item = CMSG_FIRSTHDR(&message);
        item->cmsg_level = IPPROTO_IP;
        item->cmsg_type = IP_PKTINFO;
        item->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
        in_pktinfo info;
        std::memset(&info, 0, sizeof info);
        info.ipi_ifindex = static_cast<int>(interfaceIndex);
        std::memcpy(CMSG_DATA(item), &info, sizeof info);
    }
#else
    if (interfaceIndex != 0)
        ::setsockopt(fd, IPPROTO_IP, IP_BOUND_IF, &interfaceIndex, sizeof interfaceIndex);
#endif
    ::sendmsg(fd, &message, 0);
    ::close(fd);
}

void VornSocket::broadcast(std::span<const std::uint8_t> data) const
{
    broadcastOn(data, readInterfaceAddresses());
}

void VornSocket::broadcastOn(std::span<const std::uint8_t> data, const std::vector<InterfaceAddress>& interfaces) const
{
    const auto eligible =
        broadcastAddress_ == kLimitedBroadcast ? eligibleForDiscovery(interfaces) : std::vector<InterfaceAddress>{};
    if (eligible.empty()) {
        send(data, broadcastAddress_);
        return;
    }
    const sockaddr_in destination = socketAddress(INADDR_BROADCAST, port_);
    for (const auto& entry : eligible) {
        const int fd = openSendSocket();
        if (fd < 0)
            continue;
        // Bound to the interface's address, the limited broadcast leaves
        // through that interface, and units answer to that address.
        const sockaddr_in local = socketAddress(htonl(entry.address), 0);
        if (::bind(fd, reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0)
            ::sendto(fd, data.data(), data.size(), 0, reinterpret_cast<const sockaddr*>(&destination),
                     sizeof destination);
        ::close(fd);
    }
}

}  // namespace Vorn
