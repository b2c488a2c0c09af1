// SPDX-License-Identifier: Apache-2.0
#include "ClientLink.h"

ClientLink::ClientLink(VornClient* client, QObject* parent) : EditorLink(parent), client_(client)
{
    connect(client, &VornClient::deviceAdded, this, &EditorLink::changed);
    connect(client, &VornClient::devicesUpdated, this, &EditorLink::changed);
    connect(client->clock(), &PresenceClock::ticked, this, &EditorLink::changed);
    connect(client, &QObject::destroyed, this, &EditorLink::changed);
}

std::optional<Device> ClientLink::unit(const std::string& ip) const
{
    return client_ ? client_->device(ip) : std::nullopt;
}

bool ClientLink::isOnline(const Device& unit) const
{
    return client_ && client_->isOnline(unit);
}

WallClock::time_point ClientLink::now() const
{
    return client_ ? client_->clock()->now() : WallClock::time_point{};
}

void ClientLink::write(const std::string& ip, const Vorn::Config& changes)
{
    if (client_)
        client_->writeChanges(ip, changes);
}
