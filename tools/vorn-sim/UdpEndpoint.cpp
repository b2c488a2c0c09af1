// SPDX-License-Identifier: Apache-2.0
#include "UdpEndpoint.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace VornSim {
namespace {

// Room for thousands of replies to one broadcast without waiting on the kernel.
constexpr int kSocketBufferBytes = 4 * 1024 * 1024;
constexpr std::size_t kMaxDatagram = 65536;

sockaddr_in socketAddress(const std::string& ip, std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    inet_pton(AF_INET, ip.c_str(), &address.sin_addr);
    return address;
}

std::string dotted(in_addr address)
{
    std::array<char, INET_ADDRSTRLEN> text{};
    inet_ntop(AF_INET, &address, text.data(), text.size());
    return text.data();
}

// The forced variants exceed the system limit when running as root; otherwise
// the plain ones take what the limit allows.
void raiseBuffers(int fd)
{
    const int size = kSocketBufferBytes;
    if (setsockopt(fd, SOL_SOCKET, SO_SNDBUFFORCE, &size, sizeof size) != 0)
        setsockopt(fd, SOL_SOCKET, SO_SNDBUF, &size, sizeof size);
    if (setsockopt(fd, SOL_SOCKET, SO_RCVBUFFORCE, &size, sizeof size) != 0)
        setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &size, sizeof size);
}

Result<FileDescriptor> boundSocket(const std::string& ip, std::uint16_t port)
{
    FileDescriptor fd(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!fd.isOpen())
        return Error{std::string("cannot create a UDP socket: ") + std::strerror(errno)};
    // Lets a client in the same namespace hold the same port on another
    // address (or the wildcard) as well, as the tests' loopback setups need.
    const int on = 1;
    setsockopt(fd.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    setsockopt(fd.get(), IPPROTO_IP, IP_PKTINFO, &on, sizeof on);
    raiseBuffers(fd.get());
    const auto address = socketAddress(ip, port);
    if (bind(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return Error{"cannot bind UDP " + ip + ":" + std::to_string(port) + ": " + std::strerror(errno)};
    return fd;
}

std::uint16_t localPort(int fd)
{
    sockaddr_in address{};
    socklen_t length = sizeof address;
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
    return ntohs(address.sin_port);
}

}  // namespace

Result<UdpEndpoint> UdpEndpoint::open(const std::string& bindAddress, std::uint16_t port)
{
    auto listening = boundSocket(bindAddress, port);
    if (auto* error = std::get_if<Error>(&listening))
        return *error;
    auto sending = boundSocket(bindAddress, 0);
    if (auto* error = std::get_if<Error>(&sending))
        return *error;
    const auto sendPort = localPort(std::get<FileDescriptor>(sending).get());
    return UdpEndpoint(std::move(std::get<FileDescriptor>(listening)), std::move(std::get<FileDescriptor>(sending)),
                       port, sendPort);
}

UdpEndpoint::UdpEndpoint(FileDescriptor listening, FileDescriptor sending, std::uint16_t port, std::uint16_t sendPort)
    : listening_(std::move(listening)), sending_(std::move(sending)), port_(port), sendPort_(sendPort)
{
}

std::optional<Datagram> UdpEndpoint::receive()
{
    std::array<std::uint8_t, kMaxDatagram> buffer;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(in_pktinfo))> control{};
    sockaddr_in source{};
    iovec data{buffer.data(), buffer.size()};
    msghdr message{};
    message.msg_name = &source;
    message.msg_namelen = sizeof source;
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const auto received = recvmsg(listening_.get(), &message, MSG_DONTWAIT);
    if (received < 0)
        return std::nullopt;
    Datagram datagram;
    datagram.bytes.assign(buffer.begin(), buffer.begin() + received);
    datagram.srcIp = dotted(source.sin_addr);
    datagram.srcPort = ntohs(source.sin_port);
    for (auto* header = CMSG_FIRSTHDR(&message); header; header = CMSG_NXTHDR(&message, header)) {
        if (header->cmsg_level == IPPROTO_IP && header->cmsg_type == IP_PKTINFO) {
            in_pktinfo info{};
            std::memcpy(&info, CMSG_DATA(header), sizeof info);
            datagram.dstIp = dotted(info.ipi_addr);
        }
    }
    return datagram;
}

int UdpEndpoint::send(const Outgoing& reply)
{
    auto destination = socketAddress(reply.toIp, port_);
    iovec data{const_cast<std::uint8_t*>(reply.bytes.data()), reply.bytes.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(in_pktinfo))> control{};
    msghdr message{};
    message.msg_name = &destination;
    message.msg_namelen = sizeof destination;
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    if (isLocalAddress(reply.fromIp)) {
        message.msg_control = control.data();
        message.msg_controllen = control.size();
        auto* header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = IPPROTO_IP;
        header->cmsg_type = IP_PKTINFO;
        header->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
        in_pktinfo info{};
        inet_pton(AF_INET, reply.fromIp.c_str(), &info.ipi_spec_dst);
        std::memcpy(CMSG_DATA(header), &info, sizeof info);
    }
    return sendmsg(sending_.get(), &message, 0) < 0 ? errno : 0;
}

bool UdpEndpoint::isOwnDatagram(const Datagram& datagram)
{
    return datagram.srcPort == sendPort_ && isLocalAddress(datagram.srcIp);
}

bool UdpEndpoint::isLocalAddress(const std::string& ip)
{
    if (const auto known = localAddresses_.find(ip); known != localAddresses_.end())
        return known->second;
    // Binding succeeds only to an address that belongs to this namespace.
    FileDescriptor probe(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    in_addr parsed{};
    bool local = false;
    // Multicast and broadcast addresses can be bound too, but are never a source.
    const bool unicast = inet_pton(AF_INET, ip.c_str(), &parsed) == 1 && parsed.s_addr != INADDR_ANY &&
                         ntohl(parsed.s_addr) < 0xE0000000u;
    if (probe.isOpen() && unicast) {
        const auto address = socketAddress(ip, 0);
        local = bind(probe.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    localAddresses_.emplace(ip, local);
    return local;
}

}  // namespace VornSim
