// SPDX-License-Identifier: Apache-2.0
// What the client knows about the host's networks: discovery on every
// eligible interface, sending through the interface a unit was heard on, and
// the two warnings about a unit's address (wrong subnet, address conflict).
#include <QStringList>

#include "Ipv4.h"
#include "VornClient.h"

namespace {

constexpr auto kSerialKey = std::string_view("Serial");

bool sameInterfaceAddress(const Vorn::InterfaceAddress& a, const Vorn::InterfaceAddress& b)
{
    return a.index == b.index && a.address == b.address;
}

}  // namespace

void VornClient::broadcastDiscover()
{
    // Read afresh each time: a cable plugged in or a new lease counts at once.
    readInterfaces();
    roundStart_ = clock_->now();
    socket_.broadcastOn(Vorn::discoverPacket(nextSeq()), interfaces_);
    if (!remembered_.empty())
        answerWindowTimer_->start();
}

unsigned VornClient::interfaceFor(const std::string& ip) const
{
    const int row = indexOf(ip);
    return row < 0 ? 0 : devices_[static_cast<std::size_t>(row)]->heardOn.interfaceIndex;
}

std::optional<Vorn::InterfaceAddress> VornClient::arrivalInterface(const Device& device) const
{
    if (!device.heardOn.known())
        return std::nullopt;
    return Vorn::findArrivalInterface(interfaces_, device.heardOn.interfaceIndex, device.heardOn.localAddress);
}

void VornClient::setInterfaceReader(InterfaceReader reader)
{
    readInterfaceAddresses_ = std::move(reader);
    readInterfaces();
}

void VornClient::setRouteReader(RouteReader reader)
{
    readRoutes_ = std::move(reader);
    readInterfaces();
}

void VornClient::readInterfaces()
{
    auto fresh = readInterfaceAddresses_();
    auto freshRoutes = readRoutes_();
    if (fresh == interfaces_ && freshRoutes == routes_)
        return;
    interfaces_ = std::move(fresh);
    routes_ = std::move(freshRoutes);
    // Every row's subnet verdict may have changed with the interfaces.
    if (!devices_.empty()) {
        if (draining_) {
            noteUpdated(0);
            noteUpdated(deviceCount() - 1);
        } else {
            emit devicesUpdated(0, deviceCount() - 1);
        }
    }
    refreshNetworks();
}

void VornClient::readInterfacesIfUnknown(Vorn::Arrival arrival)
{
    if (!arrival.known())
        return;
    for (const auto& entry : interfaces_) {
        if (entry.index == arrival.interfaceIndex)
            return;
    }
    // An interface without an IPv4 address stays unknown: read at most once a
    // second, not once per reply of a burst.
    const auto now = std::chrono::steady_clock::now();
    if (now - lastUnknownArrivalRead_ < std::chrono::seconds(1))
        return;
    lastUnknownArrivalRead_ = now;
    readInterfaces();
}

void VornClient::noteArrival(std::optional<Vorn::Arrival> before, Vorn::Arrival now)
{
    if (before == now)
        return;
    if (before)
        countDeparture(*before);
    ++unitsByArrival_[std::make_pair(now.interfaceIndex, now.localAddress)];
    if (!draining_)
        refreshNetworks();
}

void VornClient::countDeparture(Vorn::Arrival before)
{
    const auto key = std::make_pair(before.interfaceIndex, before.localAddress);
    if (--unitsByArrival_[key] == 0)
        unitsByArrival_.erase(key);
}

bool VornClient::isWrongSubnet(const Device& device) const
{
    const auto heardOn = arrivalInterface(device);
    const auto address = Settings::Ipv4::parse(device.ip);
    return heardOn && address && Vorn::isWrongSubnet(address->value(), *heardOn, routes_);
}

bool VornClient::hasAddressConflict(const std::string& ip) const
{
    return conflicts_.contains(ip);
}

// Called before the reply replaces `known`'s configuration: a serial other
// than the one of the unit's previous reply starts the tracking of serials.
void VornClient::noteSerial(const Device* known, const std::string& ip, const Vorn::Config& config,
                            WallClock::time_point now)
{
    const auto serial = config.find(kSerialKey);
    if (serial == config.end())
        return;
    auto tracked = conflicts_.empty() ? conflicts_.end() : conflicts_.find(ip);
    if (tracked == conflicts_.end()) {
        const auto previous = known->config.find(kSerialKey);
        if (previous == known->config.end() || previous->second == serial->second)
            return;
        tracked = conflicts_.emplace(ip, SerialSightings()).first;
        tracked->second.record(previous->second, known->lastSeen);
    }
    tracked->second.record(serial->second, now);
    if (!tracked->second.conflict(now))
        conflicts_.erase(tracked);
}

void VornClient::rejudgeConflicts()
{
    const auto now = clock_->now();
    for (auto entry = conflicts_.begin(); entry != conflicts_.end();) {
        if (entry->second.conflict(now)) {
            ++entry;
            continue;
        }
        const int row = indexOf(entry->first);
        entry = conflicts_.erase(entry);
        if (row >= 0)
            noteUpdated(row);
    }
}

void VornClient::refreshNetworks()
{
    QVariantList networks;
    for (const auto& entry : interfaces_) {
        if (!Vorn::isEligibleForDiscovery(entry))
            continue;
        int units = 0;
        for (const auto& [arrival, count] : unitsByArrival_) {
            const auto heardOn = Vorn::findArrivalInterface(interfaces_, arrival.first, arrival.second);
            units += heardOn && sameInterfaceAddress(*heardOn, entry) ? count : 0;
        }
        networks.append(QVariantMap{
            {QStringLiteral("name"), QString::fromStdString(entry.name)},
            {QStringLiteral("address"), QString::fromStdString(Settings::Ipv4(entry.address).toString())},
            {QStringLiteral("prefixLength"), entry.prefixLength},
            {QStringLiteral("units"), units},
        });
    }
    if (networks == networks_)
        return;
    networks_ = std::move(networks);
    emit networksChanged();
}

std::string VornClient::heardOnText(const Device& device) const
{
    const auto heardOn = arrivalInterface(device);
    return heardOn ? Vorn::heardOnText(*heardOn) : std::string();
}

QVariantMap VornClient::networkData(const Device& device) const
{
    QStringList serials;
    const auto now = clock_->now();
    if (const auto tracked = conflicts_.find(device.ip); tracked != conflicts_.end()) {
        for (const auto& serial : tracked->second.seenWithin(now))
            serials.append(QString::fromStdString(serial));
    } else if (const auto serial = device.config.find(kSerialKey);
               serial != device.config.end() && now - device.lastSeen < SerialSightings::kWindow) {
        serials.append(QString::fromStdString(serial->second));
    }
    const auto heardOn = arrivalInterface(device);
    const QString name = heardOn ? QString::fromStdString(heardOn->name) : QString();
    return {
        {QStringLiteral("heardOn"), heardOn ? QString::fromStdString(Vorn::heardOnText(*heardOn)) : QString()},
        {QStringLiteral("interfaceName"), name},
        {QStringLiteral("interfaceSubnet"), heardOn ? QString::fromStdString(Vorn::subnetText(*heardOn)) : QString()},
        {QStringLiteral("wrongSubnet"), isWrongSubnet(device)},
        {QStringLiteral("addressConflict"), hasAddressConflict(device.ip)},
        {QStringLiteral("serialsSeen"), serials},
    };
}
