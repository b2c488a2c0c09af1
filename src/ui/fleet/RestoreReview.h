// SPDX-License-Identifier: Apache-2.0
// "Restore from backup…": a backup file held against the units that answer
// now, one row per unit of the file with the live unit it matched (by serial
// or by address), the keys that differ ("Key: live → backup") and whether the
// user wants it restored. Network keys are left out unless included. A file
// that cannot be read leaves no rows and says why; nothing is sent then.
#pragma once

#include <vector>

#include <QAbstractListModel>
#include <QPointer>
#include <QUrl>

#include "BackupFile.h"
#include "RestorePlan.h"
#include "VornClient.h"

class BatchWriter;

class RestoreReview : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(VornClient* client READ client WRITE setClient NOTIFY clientChanged)
    // Why the last file was refused, "" when it was read.
    Q_PROPERTY(QString error READ error NOTIFY loaded)
    Q_PROPERTY(QString fileName READ fileName NOTIFY loaded)
    Q_PROPERTY(bool includeNetwork READ includeNetwork WRITE setIncludeNetwork NOTIFY includeNetworkChanged)
    // Rows ticked that have something to write.
    Q_PROPERTY(int checkedCount READ checkedCount NOTIFY planChanged)
    // The ticked rows would write network keys: the confirmation comes first.
    Q_PROPERTY(bool writesNetwork READ writesNetwork NOTIFY planChanged)
    Q_PROPERTY(QString networkTitle READ networkTitle NOTIFY planChanged)
    Q_PROPERTY(QString networkMessage READ networkMessage NOTIFY planChanged)

public:
    enum Role {
        SerialRole = Qt::UserRole + 1,
        FileAddressRole,
        FoundRole,
        MatchRole,        // "matched by serial, now at 10.0.0.8", "matched by address", "not found"
        DifferencesRole,  // "Key: live → backup", the keys to write
        HeldBackRole,     // the same for network keys left out
        CheckableRole,    // found, something differs, no earlier row has the unit, and
                          // for another unit at the file's address: allowed
        CheckedRole,
        OtherUnitRole,    // the file's serial is nowhere; another serial answers at its address
        OtherAllowedRole, // the user ticked "Restore onto this other unit"
    };
    Q_ENUM(Role)

    explicit RestoreReview(QObject* parent = nullptr);

    VornClient* client() const { return client_; }
    void setClient(VornClient* client);

    // Reads the file and plans it against the listed units; false (and an
    // error naming the problem) when the file cannot be read.
    Q_INVOKABLE bool open(const QUrl& file);
    Q_INVOKABLE void setChecked(int row, bool checked);
    // Whether the other unit answering at a row's address may be restored onto.
    Q_INVOKABLE void setOtherAllowed(int row, bool allowed);
    // Writes every ticked row's differing keys to its unit through `writer`.
    Q_INVOKABLE void restore(BatchWriter* writer);

    QString error() const { return error_; }
    QString fileName() const { return fileName_; }
    bool includeNetwork() const { return includeNetwork_; }
    void setIncludeNetwork(bool include);
    int checkedCount() const;
    bool writesNetwork() const;
    QString networkTitle() const;
    QString networkMessage() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void clientChanged();
    void loaded();
    void includeNetworkChanged();
    void planChanged();

private:
    void plan();
    void replan();
    bool checkable(std::size_t row) const;
    bool writes(std::size_t row) const { return checked_[row] && checkable(row); }

    QPointer<VornClient> client_;
    Settings::Backup backup_;
    std::vector<Settings::RestoreItem> plan_;
    std::vector<Settings::LiveUnit> live_;
    std::vector<bool> checked_;
    std::vector<bool> otherAllowed_;
    QString error_;
    QString fileName_;
    bool includeNetwork_ = false;
};
