// SPDX-License-Identifier: Apache-2.0
#include "UnitLink.h"

#include <algorithm>
#include <thread>

#include "Ipv4.h"
#include "NetworkInterfaces.h"
#include "PacedQueue.h"
#include "SettingKeys.h"

namespace VornCtl {

UnitLink::UnitLink()
    : socket_(Vorn::kPort, Vorn::VornSocket::kLimitedBroadcast, Vorn::VornSocket::PortSharing::Exclusive)
{
    socket_.setOnDatagram(
        [this](Vorn::Bytes data, std::string /*sender*/, Vorn::Arrival arrival) { file(data, arrival); });
}

bool UnitLink::open()
{
    return socket_.start();
}

void UnitLink::file(const Vorn::Bytes& data, Vorn::Arrival arrival)
{
    auto reply = Vorn::parse(data);
    if (!reply || reply->cmd != Vorn::kCmdReport)
        return;
    {
        std::lock_guard guard(lock_);
        const std::string address = reply->deviceIp;
        if (const auto serial = reply->config.find(SettingKeys::kSerial); serial != reply->config.end()) {
            auto& serials = serials_[address];
            if (std::find(serials.begin(), serials.end(), serial->second) == serials.end())
                serials.push_back(serial->second);
        }
        Sighting& sighting = latest_[address] = Sighting{};
        sighting.address = address;
        sighting.config = std::move(reply->config);
        sighting.arrival = arrival;
        stamp_[address] = ++received_;
    }
    arrived_.notify_all();
}

unsigned UnitLink::interfaceOf(const std::string& address)
{
    std::lock_guard guard(lock_);
    const auto found = latest_.find(address);
    return found == latest_.end() ? 0 : found->second.arrival.interfaceIndex;
}

Sighting UnitLink::described(Sighting sighting, const Surroundings& host) const
{
    if (const auto serials = serials_.find(sighting.address); serials != serials_.end())
        sighting.serials = serials->second;
    const auto heardOn = Vorn::findArrivalInterface(host.interfaces, sighting.arrival.interfaceIndex,
                                                    sighting.arrival.localAddress);
    if (!sighting.arrival.known() || !heardOn)
        return sighting;
    sighting.interface = Vorn::heardOnText(*heardOn);
    sighting.interfaceSubnet = Vorn::subnetText(*heardOn);
    const auto address = Settings::Ipv4::parse(sighting.address);
    sighting.wrongSubnet = address && Vorn::isWrongSubnet(address->value(), *heardOn, host.routes);
    return sighting;
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
        socket_.broadcast(Vorn::discoverPacket(nextSeq()));
        std::this_thread::sleep_until(std::min(next + kBroadcastInterval, start + timeout));
    }
    return heardSince(before);
}

std::map<std::string, Sighting> UnitLink::heardSince(std::uint64_t before)
{
    const Surroundings host{Vorn::readInterfaceAddresses(), Vorn::readRoutes()};
    std::lock_guard guard(lock_);
    std::map<std::string, Sighting> found;
    for (const auto& [address, sighting] : latest_) {
        if (stamp_[address] > before)
            found.emplace(address, described(sighting, host));
    }
    return found;
}

std::map<std::string, Sighting> UnitLink::scan(const std::vector<std::string>& addresses,
                                               std::chrono::milliseconds timeout)
{
    const auto start = std::chrono::steady_clock::now();
    std::uint64_t before = 0;
    {
        std::lock_guard guard(lock_);
        before = received_;
    }
    Vorn::PacedQueue queue;
    for (const auto& address : addresses)
        queue.add(address);
    auto next = start;
    while (!queue.empty()) {
        // Through the interface the routing table chooses: nothing is known of these addresses yet.
        for (const auto& address : queue.takeBurst())
            socket_.sendVia(Vorn::discoverPacket(nextSeq()), address, interfaceOf(address));
        next += Vorn::PacedQueue::kInterval;
        if (!queue.empty())
            std::this_thread::sleep_until(next);
    }
    std::this_thread::sleep_until(std::max(start + timeout, std::chrono::steady_clock::now() + kLastScanAnswer));
    return heardSince(before);
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
        socket_.sendVia(Vorn::discoverPacket(nextSeq()), address, interfaceOf(address));
        std::unique_lock guard(lock_);
        const auto deadline = attempt + 1 == kQueryTries ? start + timeout : start + interval * (attempt + 1);
        if (arrived_.wait_until(guard, deadline, answered)) {
            guard.unlock();
            const Surroundings host{Vorn::readInterfaceAddresses(), Vorn::readRoutes()};
            guard.lock();
            return described(latest_.at(address), host);
        }
    }
    return std::nullopt;
}

void UnitLink::write(const std::string& address, const Vorn::Config& full)
{
    // The second copy is the only guard against a lost datagram, as in the window.
    const Vorn::Bytes datagram = Vorn::writePacket(nextSeq(), full);
    const unsigned interface = interfaceOf(address);
    socket_.sendVia(datagram, address, interface);
    socket_.sendVia(datagram, address, interface);
}

}  // namespace VornCtl
