#include "UnitLink.h"

#include <algorithm>
#include <thread>

namespace VornCtl {

UnitLink::UnitLink()
    : socket_(Vorn::kPort, Vorn::VornSocket::kLimitedBroadcast, Vorn::VornSocket::PortSharing::Exclusive)
{
    socket_.setOnPacket([this](Vorn::Bytes data, std::string /*sender*/) { file(std::move(data)); });
}

bool UnitLink::open()
{
    return socket_.start();
}

void UnitLink::file(const Vorn::Bytes& data)
{
    auto reply = Vorn::parse(data);
    if (!reply || reply->cmd != Vorn::kCmdReport)
        return;
    {
        std::lock_guard guard(lock_);
        const std::string address = reply->deviceIp;
        latest_[address] = Sighting{address, {}, std::move(reply->config)};
        stamp_[address] = ++received_;
    }
    arrived_.notify_all();
}

std::map<std::string, Sighting> UnitLink::discoverAll(std::chrono::milliseconds timeout)
{
    const auto start = std::chrono::steady_clock::now();
    std::uint64_t before = 0;
    {
        std::lock_guard guard(lock_);
        before = received_;
    }
    for (auto next = start; next < start + timeout; next += kBroadcastInterval) {
        socket_.send(Vorn::discoverPacket(nextSeq()), socket_.broadcastAddress());
        std::this_thread::sleep_until(std::min(next + kBroadcastInterval, start + timeout));
    }
    std::lock_guard guard(lock_);
    std::map<std::string, Sighting> found;
    for (const auto& [address, sighting] : latest_) {
        if (stamp_[address] > before)
            found.emplace(address, sighting);
    }
    return found;
}

std::optional<Sighting> UnitLink::query(const std::string& address, std::chrono::milliseconds timeout)
{
    const auto start = std::chrono::steady_clock::now();
    const auto interval = timeout / kQueryTries;
    std::uint64_t before = 0;
    {
        std::lock_guard guard(lock_);
        before = received_;
    }
    const auto answered = [&] {
        const auto found = stamp_.find(address);
        return found != stamp_.end() && found->second > before;
    };
    for (int attempt = 0; attempt < kQueryTries; ++attempt) {
        socket_.send(Vorn::discoverPacket(nextSeq()), address);
        std::unique_lock guard(lock_);
        const auto deadline = attempt + 1 == kQueryTries ? start + timeout : start + interval * (attempt + 1);
        if (arrived_.wait_until(guard, deadline, answered))
            return latest_.at(address);
    }
    return std::nullopt;
}

void UnitLink::write(const std::string& address, const Vorn::Config& full)
{
    // The second copy is the only guard against a lost datagram, as in the window.
    const Vorn::Bytes datagram = Vorn::writePacket(nextSeq(), full);
    socket_.send(datagram, address);
    socket_.send(datagram, address);
}

}  // namespace VornCtl
