// SPDX-License-Identifier: Apache-2.0
// The client's device table as a list for the views, one row per unit in
// the table's order. Follows the table row by row and re-evaluates presence
// on each tick of the client's clock.
#pragma once

#include <functional>

#include <QAbstractListModel>
#include <QPointer>

#include "VornClient.h"

class DeviceListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(VornClient* client READ client WRITE setClient NOTIFY clientChanged)

public:
    enum Role {
        IpRole = Qt::UserRole + 1,
        TitleRole,
        LastSeenRole,
        OnlineRole,
        ConfigRole,
        WrongSubnetRole,
        AddressConflictRole,
        // "last seen 3 min ago" for a remembered unit not heard in this run, else empty.
        LastSeenNoteRole,
    };
    Q_ENUM(Role)

    explicit DeviceListModel(QObject* parent = nullptr);

    VornClient* client() const { return client_; }
    void setClient(VornClient* client);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void clientChanged();

private:
    void connectClient();
    void forgetClient();
    void refreshPresence();
    // One dataChanged of `role` per run of consecutive rows for which `changed` holds.
    void announceRuns(int role, const std::function<bool(std::size_t)>& changed);

    VornClient* client_ = nullptr;
    // The instant presence was last judged at; a tick compares against it.
    WallClock::time_point presenceJudgedAt_;
};
