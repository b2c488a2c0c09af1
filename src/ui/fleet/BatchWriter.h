// SPDX-License-Identifier: Apache-2.0
// Writes a change set to each of several units, one write per unit exactly
// as a single save sends it, and lists every unit with the verdict of its
// write as it comes in: confirmed, not confirmed (which keys), no answer
// after four seconds, or moved. A unit with nothing to change is listed
// without a write. Each write goes into the site store with its verdict.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QAbstractListModel>

#include "EditorLink.h"
#include "LinkSlot.h"
#include "SaveVerdict.h"
#include "VornClient.h"

class BatchWriter : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(VornClient* client READ client WRITE setClient NOTIFY clientChanged)
    // Units whose verdict is still awaited.
    Q_PROPERTY(int waiting READ waiting NOTIFY progressChanged)
    Q_PROPERTY(int confirmed READ confirmed NOTIFY progressChanged)
    Q_PROPERTY(int count READ count NOTIFY progressChanged)

public:
    enum Role {
        AddressRole = Qt::UserRole + 1,
        TitleRole,
        KindRole,     // SaveVerdict::Kind; None for a unit left unwritten
        VerdictRole,  // the verdict's text, or what the unit waits for
        DetailsRole,  // one line per key not confirmed
    };
    Q_ENUM(Role)

    struct UnitWrite {
        std::string address;
        Vorn::Config changes;
    };

    explicit BatchWriter(QObject* parent = nullptr);
    ~BatchWriter() override;

    VornClient* client() const { return links_.client(); }
    // Talks to `client` through a ClientLink of its own.
    void setClient(VornClient* client);
    // Talks to `link` instead, which outlives the writer or is replaced first.
    void setLink(EditorLink* link);

    // Sends each unit its changes and lists them all; replaces an earlier batch.
    void write(const std::vector<UnitWrite>& units);
    Q_INVOKABLE void clear();

    int waiting() const;
    int confirmed() const;
    int count() const { return static_cast<int>(rows_.size()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void clientChanged();
    void progressChanged();

private:
    struct Row {
        QString address;
        QString title;
        std::string serial;  // as the unit reported it before the write
        Vorn::Config changes;
        QString refused;  // why nothing was sent, else empty
        std::unique_ptr<SaveVerdict> verdict;
    };

    // Leaves the current link (and the batch on it) before another is taken, then follows the new one.
    void judgeAll();

    LinkSlot links_;
    std::vector<Row> rows_;
};
