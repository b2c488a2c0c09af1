// SPDX-License-Identifier: Apache-2.0
#include "LoopbackPeer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

namespace TestKit {

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

}  // namespace TestKit
