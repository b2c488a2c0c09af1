// SPDX-License-Identifier: Apache-2.0
#include "DeviceListModel.h"

#include "ConfigConversion.h"
#include "LastSeenText.h"

DeviceListModel::DeviceListModel(QObject* parent) : QAbstractListModel(parent) {}

void DeviceListModel::setClient(VornClient* client)
{
    if (client == client_)
        return;
    beginResetModel();
    if (client_)
        disconnect(client_, nullptr, this, nullptr);
    client_ = client;
    if (client_)
        connectClient();
    endResetModel();
    emit clientChanged();
}

void DeviceListModel::connectClient()
{
    connect(client_, &VornClient::deviceAboutToBeAdded, this,
            [this](int first, int last) { beginInsertRows({}, first, last); });
    connect(client_, &VornClient::deviceAdded, this, [this] { endInsertRows(); });
    connect(client_, &VornClient::deviceAboutToBeRemoved, this, [this](int row) { beginRemoveRows({}, row, row); });
    connect(client_, &VornClient::deviceRemoved, this, [this] { endRemoveRows(); });
    connect(client_, &VornClient::devicesUpdated, this,
            [this](int first, int last) { emit dataChanged(index(first), index(last)); });
    connect(client_, &QObject::destroyed, this, &DeviceListModel::forgetClient);
    connect(client_->clock(), &PresenceClock::ticked, this, &DeviceListModel::refreshPresence);
    presenceJudgedAt_ = client_->clock()->now();
}

void DeviceListModel::forgetClient()
{
    beginResetModel();
    client_ = nullptr;
    endResetModel();
    emit clientChanged();
}

void DeviceListModel::refreshPresence()
{
    // Presence only lapses with time, so a row whose verdict at the previous
    // judgement equals the verdict now cannot have flipped in between.
    const auto now = client_->clock()->now();
    const auto& devices = client_->devices();
    announceRuns(OnlineRole, [&](std::size_t row) {
        const auto lastSeen = devices[row].lastSeen;
        return isPresent(lastSeen, presenceJudgedAt_) != isPresent(lastSeen, now);
    });
    presenceJudgedAt_ = now;
    // "3 min ago" ages with the clock: the remembered rows say it anew.
    announceRuns(LastSeenNoteRole, [&](std::size_t row) { return devices[row].remembered; });
}

void DeviceListModel::announceRuns(int role, const std::function<bool(std::size_t)>& changed)
{
    const int count = client_->deviceCount();
    int runStart = -1;
    for (int row = 0; row <= count; ++row) {
        const bool inRun = row < count && changed(static_cast<std::size_t>(row));
        if (inRun && runStart < 0)
            runStart = row;
        if (!inRun && runStart >= 0) {
            emit dataChanged(index(runStart), index(row - 1), {role});
            runStart = -1;
        }
    }
}

int DeviceListModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !client_)
        return 0;
    return client_->deviceCount();
}

QVariant DeviceListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Device& device = client_->devices()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return device.title();
    case IpRole:
        return QString::fromStdString(device.ip);
    case LastSeenRole:
        return toDateTime(device.lastSeen);
    case OnlineRole:
        return client_->isOnline(device);
    case ConfigRole:
        return toVariantMap(device.config);
    case WrongSubnetRole:
        return client_->isWrongSubnet(device);
    case AddressConflictRole:
        return client_->hasAddressConflict(device.ip);
    case LastSeenNoteRole:
        return device.remembered
                   ? tr("last seen %1").arg(lastSeenText(toDateTime(device.lastSeen), toDateTime(client_->clock()->now())))
                   : QString();
    default:
        return {};
    }
}

QHash<int, QByteArray> DeviceListModel::roleNames() const
{
    return {
        {IpRole, "ip"},
        {TitleRole, "title"},
        {LastSeenRole, "lastSeen"},
        {OnlineRole, "online"},
        {ConfigRole, "config"},
        {WrongSubnetRole, "wrongSubnet"},
        {AddressConflictRole, "addressConflict"},
        {LastSeenNoteRole, "lastSeenNote"},
    };
}
