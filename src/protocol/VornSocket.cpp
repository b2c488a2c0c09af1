#include "VornSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>

namespace Vorn {

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
    std::lock_guard lock(handlerMutex_);
    onPacket_ = std::move(handler);
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

void VornSocket::recvLoop()
{
    std::vector<std::uint8_t> buffer(kReceiveBufferSize);
    const int fd = rxfd_.load();
    while (running_.load()) {
        sockaddr_in source;
        std::memset(&source, 0, sizeof source);
        socklen_t sourceLength = sizeof source;
        const ssize_t n = ::recvfrom(fd, buffer.data(), buffer.size(), 0,
                                     reinterpret_cast<sockaddr*>(&source), &sourceLength);
        if (n > 0) {
            Bytes data(buffer.begin(), buffer.begin() + n);
            char text[INET_ADDRSTRLEN] = {};
            ::inet_ntop(AF_INET, &source.sin_addr, text, sizeof text);
            std::lock_guard lock(handlerMutex_);
            if (onPacket_)
                onPacket_(std::move(data), std::string(text));
        } else if (n < 0) {
            if (!running_.load())
                break;
            ::usleep(50000);
        }
    }
}

void VornSocket::send(std::span<const std::uint8_t> data, const std::string& ip) const
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (fd < 0)
        return;
    const int one = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_BROADCAST, &one, sizeof one);

    sockaddr_in destination;
    std::memset(&destination, 0, sizeof destination);
    destination.sin_family = AF_INET;
    destination.sin_port = htons(port_);
    // inet_addr answers INADDR_NONE for anything that is not a dotted address
    // (and for 255.255.255.255 itself): both mean the limited broadcast.
    in_addr_t address = ::inet_addr(ip.c_str());
    if (address == INADDR_NONE)
        address = ::inet_addr(broadcastAddress_.c_str());
    destination.sin_addr.s_addr = address;
    ::sendto(fd, data.data(), data.size(), 0, reinterpret_cast<const sockaddr*>(&destination),
             sizeof destination);
    ::close(fd);
}

}  // namespace Vorn
