// SPDX-License-Identifier: Apache-2.0
#include "EventLoop.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <iostream>
#include <system_error>

#include "DatagramLog.h"
#include "Responder.h"

namespace VornSim {
namespace {

// Datagrams read per wake-up before due replies get their turn.
constexpr int kReceiveBatch = 256;

}  // namespace

EventLoop::EventLoop(UdpEndpoint endpoint, std::vector<Unit> units, std::uint64_t seed, std::ostream* log)
    : endpoint_(std::move(endpoint)), units_(std::move(units)), dice_(seed), log_(log)
{
    std::array<int, 2> pipeEnds{-1, -1};
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "vorn-sim: cannot create the stop pipe");
    stopRead_ = FileDescriptor(pipeEnds[0]);
    stopWrite_ = FileDescriptor(pipeEnds[1]);
}

bool EventLoop::run()
{
    std::array<pollfd, 2> watched{{{endpoint_.receiveFd(), POLLIN, 0}, {stopRead_.get(), POLLIN, 0}}};
    for (;;) {
        const auto wait = delayed_.waitAt(ReplyQueue::Clock::now());
        const int timeout = wait ? static_cast<int>(std::min<std::int64_t>(wait->count(), INT_MAX)) : -1;
        if (poll(watched.data(), watched.size(), timeout) < 0 && errno != EINTR)
            return false;
        if (watched[1].revents != 0)
            return true;
        if (watched[0].revents & POLLIN)
            receiveWaiting();
        for (const auto& reply : delayed_.takeDue(ReplyQueue::Clock::now()))
            send(reply);
    }
}

void EventLoop::requestStop()
{
    const char wake = 1;
    [[maybe_unused]] const auto written = ::write(stopWrite_.get(), &wake, 1);
}

void EventLoop::receiveWaiting()
{
    for (int i = 0; i < kReceiveBatch; ++i) {
        const auto datagram = endpoint_.receive();
        if (!datagram)
            return;
        handle(*datagram);
    }
}

void EventLoop::handle(const Datagram& datagram)
{
    if (log_)
        *log_ << logLine(datagram, std::chrono::system_clock::now()) << '\n' << std::flush;
    if (endpoint_.isOwnDatagram(datagram))
        return;
    const auto now = ReplyQueue::Clock::now();
    for (auto& reply : respond(units_, datagram, dice_)) {
        if (reply.delay.count() > 0)
            delayed_.schedule(now + reply.delay, std::move(reply));
        else
            send(reply);
    }
}

void EventLoop::send(const Outgoing& reply)
{
    if (const int error = endpoint_.send(reply); error != 0)
        reportSendFailure(reply, error);
}

// One line per kind of failure, so a broadcast to thousands of units that all
// fail the same way does not flood the terminal.
void EventLoop::reportSendFailure(const Outgoing& reply, int error)
{
    if (!reportedErrors_.insert(error).second)
        return;
    std::cerr << "vorn-sim: cannot send to " << reply.toIp << ':' << endpoint_.port() << ": " << std::strerror(error)
              << " (further failures of this kind are not shown)\n";
}

}  // namespace VornSim
