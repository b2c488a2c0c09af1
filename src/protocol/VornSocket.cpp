// SPDX-License-Identifier: Apache-2.0
#include "VornSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#if defined(__APPLE__)
#include <net/if_dl.h>
#endif

namespace Vorn {
namespace {

// Asks for each datagram's arrival interface in its ancillary data.
void enableArrivalInfo(int fd)
{
    const int one = 1;
#if defined(__APPLE__)
    ::setsockopt(fd, IPPROTO_IP, IP_RECVIF, &one, sizeof one);
    ::setsockopt(fd, IPPROTO_IP, IP_RECVDSTADDR, &one, sizeof one);
#else
    ::setsockopt(fd, IPPROTO_IP, IP_PKTINFO, &one, sizeof one);
#endif
}

Arrival arrivalOf(msghdr& message)
{
    Arrival arrival;
    for (cmsghdr* item = CMSG_FIRSTHDR(&message); item != nullptr; item = CMSG_NXTHDR(&message, item)) {
        if (item->cmsg_level != IPPROTO_IP)
            continue;
#if !defined(__APPLE__)
        if (item->cmsg_type == IP_PKTINFO) {
            in_pktinfo info;
            std::memcpy(&info, CMSG_DATA(item), sizeof info);
            arrival.interfaceIndex = static_cast<unsigned>(info.ipi_ifindex);
            // The local address the kernel would answer from: for a unicast
            // the header's destination, for a broadcast the interface's own.
            arrival.localAddress = ntohl(info.ipi_spec_dst.s_addr);
        }
#else
        if (item->cmsg_type == IP_RECVIF) {
            sockaddr_dl link;
            std::memcpy(&link, CMSG_DATA(item), std::min<std::size_t>(sizeof link, item->cmsg_len - CMSG_LEN(0)));
            arrival.interfaceIndex = link.sdl_index;
        }
        if (item->cmsg_type == IP_RECVDSTADDR) {
            in_addr destination;
            std::memcpy(&destination, CMSG_DATA(item), sizeof destination);
            arrival.localAddress = ntohl(destination.s_addr);
        }
#endif
    }
    return arrival;
}

}  // namespace

VornSocket::VornSocket(std::uint16_t port, std::string broadcastAddress, PortSharing sharing)
    : port_(port), broadcastAddress_(std::move(broadcastAddress)), sharing_(sharing)
{
}

VornSocket::~VornSocket()
{
    // Shutting the socket down wakes the blocking recvfrom so the thread can end.
    running_.store(false);
    const int fd = rxfd_.load();
    if (fd >= 0)
        ::shutdown(fd, SHUT_RDWR);
    if (rxThread_.joinable())
        rxThread_.join();
    if (fd >= 0)
        ::close(fd);
}

void VornSocket::setOnPacket(PacketHandler handler)
{
    if (!handler) {
        setOnDatagram(nullptr);
        return;
    }
    setOnDatagram([handler = std::move(handler)](Bytes data, std::string senderIp, Arrival) {
        handler(std::move(data), std::move(senderIp));
    });
}

void VornSocket::setOnDatagram(DatagramHandler handler)
{
    std::lock_guard lock(handlerMutex_);
    onDatagram_ = std::move(handler);
}

bool VornSocket::start()
{
    if (rxfd_.load() >= 0)
        return true;
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (fd < 0)
        return false;
    const int one = 1;
    if (sharing_ == PortSharing::Shared)
        ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    ::setsockopt(fd, SOL_SOCKET, SO_BROADCAST, &one, sizeof one);
    // A discover makes every unit answer at once; the default buffer holds
    // only a few hundred replies.
    ::setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &kRequestedKernelBuffer, sizeof kRequestedKernelBuffer);
    enableArrivalInfo(fd);

    sockaddr_in local;
    std::memset(&local, 0, sizeof local);
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_ANY);
    local.sin_port = htons(port_);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
        ::close(fd);
        return false;
    }

    rxfd_.store(fd);
    running_.store(true);
    rxThread_ = std::thread([this] { recvLoop(); });
    pthread_setname_np(rxThread_.native_handle(), "vorn.rx");
    return true;
}

int VornSocket::kernelReceiveBuffer() const
{
    const int fd = rxfd_.load();
    int size = 0;
    socklen_t length = sizeof size;
    if (fd < 0 || ::getsockopt(fd, SOL_SOCKET, SO_RCVBUF, &size, &length) != 0)
        return 0;
    return size;
}

void VornSocket::recvLoop()
{
    std::vector<std::uint8_t> buffer(kReceiveBufferSize);
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(in_pktinfo)) + CMSG_SPACE(64)];
    const int fd = rxfd_.load();
    while (running_.load()) {
        sockaddr_in source;
        std::memset(&source, 0, sizeof source);
        iovec payload{buffer.data(), buffer.size()};
        msghdr message;
        std::memset(&message, 0, sizeof message);
        message.msg_name = &source;
        message.msg_namelen = sizeof source;
        message.msg_iov = &payload;
        message.msg_iovlen = 1;
        message.msg_control = control;
        message.msg_controllen = sizeof control;
        const ssize_t n = ::recvmsg(fd, &message, 0);
        if (n > 0) {
            Bytes data(buffer.begin(), buffer.begin() + n);
            char text[INET_ADDRSTRLEN] = {};
            ::inet_ntop(AF_INET, &source.sin_addr, text, sizeof text);
            const Arrival arrival = arrivalOf(message);
            std::lock_guard lock(handlerMutex_);
            if (onDatagram_)
                onDatagram_(std::move(data), std::string(text), arrival);
        } else if (n < 0) {
            if (!running_.load())
                break;
            ::usleep(50000);
        }
    }
}

}  // namespace Vorn
