// SPDX-License-Identifier: Apache-2.0
// Units that broadcasts do not reach: the remembered units asked by unicast
// in each round, and the pacing of every queued unicast discover (a round's
// queries and a scan of an address block); and forgetting a unit.
#include <algorithm>

#include <QStringList>
#include <QTimer>

#include "VornClient.h"

void VornClient::setRemembered(const std::vector<std::string>& addresses)
{
    remembered_.clear();
    for (const auto& address : addresses)
        remember(address);
}

void VornClient::remember(const std::string& address)
{
    if (std::find(remembered_.begin(), remembered_.end(), address) == remembered_.end())
        remembered_.push_back(address);
}

void VornClient::addRemembered(std::vector<RememberedDevice> units)
{
    std::sort(units.begin(), units.end(), [](const auto& a, const auto& b) { return a.address < b.address; });
    std::vector<std::unique_ptr<Device>> unlisted;
    for (auto& unit : units) {
        remember(unit.address);
        if (indexOf(unit.address) >= 0 || (!unlisted.empty() && unlisted.back()->ip == unit.address))
            continue;
        unlisted.push_back(
            std::make_unique<Device>(Device{std::move(unit.address), std::move(unit.config), unit.lastSeen, {}, true}));
    }
    if (unlisted.empty())
        return;
    // The units that go between the same two listed ones go in as one run:
    // at start, with nothing listed yet, all of them at once.
    draining_ = true;
    for (auto first = unlisted.begin(); first != unlisted.end();) {
        const auto place = placeOf((*first)->ip);
        const auto last = place == devices_.end()
                              ? unlisted.end()
                              : std::find_if(first, unlisted.end(), [&](const auto& unit) { return unit->ip > (*place)->ip; });
        const int row = static_cast<int>(place - devices_.begin());
        const int lastRow = row + static_cast<int>(last - first) - 1;
        emit deviceAboutToBeAdded(row, lastRow);
        devices_.insert(place, std::make_move_iterator(first), std::make_move_iterator(last));
        emit deviceAdded(row, lastRow);
        for (auto unit = first; unit != last; ++unit)
            noteArrival(std::nullopt, Vorn::Arrival{});
        first = last;
    }
    draining_ = false;
    emit deviceCountChanged();
    refreshNetworks();
}

bool VornClient::forget(const QString& ip)
{
    const std::string address = ip.toStdString();
    std::erase(remembered_, address);
    pacedDiscovers_.removeIf([&address](const std::string& queued) { return queued == address; });
    const int row = indexOf(address);
    if (row < 0)
        return false;
    emit deviceAboutToBeRemoved(row);
    const auto place = devices_.begin() + row;
    const std::unique_ptr<Device> gone = std::move(*place);
    devices_.erase(place);
    emit deviceRemoved(row);
    emit deviceCountChanged();
    conflicts_.erase(address);
    countDeparture(gone->heardOn);
    refreshNetworks();
    addLog(tr("forgot %1").arg(ip));
    emit unitForgotten(*gone);
    return true;
}

void VornClient::queryUnansweredRemembered()
{
    std::vector<std::string> unanswered;
    for (const auto& address : remembered_) {
        const int row = indexOf(address);
        if (row < 0 || devices_[static_cast<std::size_t>(row)]->lastSeen < roundStart_)
            unanswered.push_back(address);
    }
    queueDiscovers(unanswered);
}

void VornClient::queueDiscovers(const std::vector<std::string>& addresses)
{
    for (const auto& address : addresses)
        pacedDiscovers_.add(address);
    // A burst goes at once when the previous one is an interval old.
    if (!pacingTimer_->isActive()) {
        sendDiscoverBurst();
        pacingTimer_->start();
    }
}

void VornClient::dropQueuedDiscovers(const std::function<bool(const std::string&)>& drop)
{
    pacedDiscovers_.removeIf(drop);
}

void VornClient::sendDiscoverBurst()
{
    if (pacedDiscovers_.empty()) {
        pacingTimer_->stop();
        return;
    }
    QStringList sent;
    for (const auto& address : pacedDiscovers_.takeBurst()) {
        // A listed unit is asked through the interface it was last heard on;
        // any other address through the one the routing table chooses.
        discoverTo(address);
        sent.append(QString::fromStdString(address));
    }
    emit discoversSent(sent);
}
