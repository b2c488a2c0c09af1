#include "LoopbackPeer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <stdexcept>

namespace TestKit {
namespace {

sockaddr_in addressOf(const char* address, std::uint16_t port)
{
    sockaddr_in sa;
    std::memset(&sa, 0, sizeof sa);
    sa.sin_family = AF_INET;
    sa.sin_port = htons(port);
    ::inet_pton(AF_INET, address, &sa.sin_addr);
    return sa;
}

}  // namespace

std::uint16_t freeUdpPort()
{
    const int fd = bindUdp("127.0.0.1", 0, false);
    if (fd < 0)
        throw std::runtime_error("no free UDP port");
    sockaddr_in sa;
    socklen_t length = sizeof sa;
    ::getsockname(fd, reinterpret_cast<sockaddr*>(&sa), &length);
    ::close(fd);
    return ntohs(sa.sin_port);
}

int bindUdp(const char* address, std::uint16_t port, bool reuseAddress)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (fd < 0)
        return -1;
    if (reuseAddress) {
        const int one = 1;
        ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    }
    const sockaddr_in sa = addressOf(address, port);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&sa), sizeof sa) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

void sendUdp(const Vorn::Bytes& data, const char* address, std::uint16_t port)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    const sockaddr_in sa = addressOf(address, port);
    ::sendto(fd, data.data(), data.size(), 0, reinterpret_cast<const sockaddr*>(&sa), sizeof sa);
    ::close(fd);
}

LoopbackPeer::LoopbackPeer(std::uint16_t port, Answer answer) : port_(port), answer_(std::move(answer))
{
    fd_ = bindUdp(kPeerAddress, port_, true);
    if (fd_ < 0)
        throw std::runtime_error("cannot bind the loopback peer");
    thread_ = std::thread([this] { run(); });
}

LoopbackPeer::~LoopbackPeer()
{
    stop_.store(true);
    thread_.join();
    ::close(fd_);
}

void LoopbackPeer::run()
{
    std::vector<std::uint8_t> buffer(65536);
    while (!stop_.load()) {
        pollfd pfd{fd_, POLLIN, 0};
        if (::poll(&pfd, 1, 20) <= 0)
            continue;
        sockaddr_in source;
        socklen_t length = sizeof source;
        const ssize_t n = ::recvfrom(fd_, buffer.data(), buffer.size(), 0,
                                     reinterpret_cast<sockaddr*>(&source), &length);
        if (n < 0)
            continue;
        char text[INET_ADDRSTRLEN] = {};
        ::inet_ntop(AF_INET, &source.sin_addr, text, sizeof text);
        Received datagram{Vorn::Bytes(buffer.begin(), buffer.begin() + n), text, ntohs(source.sin_port)};
        if (answer_) {
            for (const auto& reply : answer_(datagram))
                sendUdp(reply, text, port_);
        }
        {
            std::lock_guard lock(mutex_);
            received_.push_back(std::move(datagram));
        }
        arrived_.notify_all();
    }
}

std::vector<Received> LoopbackPeer::waitForDatagrams(std::size_t count)
{
    std::unique_lock lock(mutex_);
    arrived_.wait_for(lock, std::chrono::seconds(2), [&] { return received_.size() >= count; });
    return received_;
}

std::vector<Received> LoopbackPeer::received()
{
    std::lock_guard lock(mutex_);
    return received_;
}

Vorn::Bytes reportDatagram(const std::string& unitIp, const Vorn::Config& config, std::uint8_t cmd)
{
    std::string body;
    for (const auto& [key, value] : config)
        body += key + ":" + value + "\n";
    const auto address = Vorn::detail::ipToBytes(unitIp);
    const std::size_t total = Vorn::kHeaderSize + body.size();
    const std::array<std::uint8_t, Vorn::kHeaderSize> head = {
        0x3A, 0x62, 0x7F, 0x3D, address[3], address[2], address[1], address[0], 0x00, 0x01, 0x01, cmd,
        static_cast<std::uint8_t>(total & 0xFF), static_cast<std::uint8_t>(total >> 8), 0, 0, 0, 0, 0, 0};
    Vorn::Bytes out(total);
    std::copy(head.begin(), head.end(), out.begin());
    std::copy(body.begin(), body.end(), out.begin() + Vorn::kHeaderSize);
    return out;
}

}  // namespace TestKit
