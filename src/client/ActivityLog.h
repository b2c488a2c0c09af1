// SPDX-License-Identifier: Apache-2.0
// The activity log as a list model: one row per line, oldest first, at most
// `limit` lines. Lines added while changes are held (the client holds them
// while it merges a burst of replies) reach the views as one insertion, so a
// view lays out each new line once, and only the lines it shows.
#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStringList>

class ActivityLog : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { LineRole = Qt::UserRole + 1 };

    explicit ActivityLog(qsizetype limit, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // Adds a line; announced at once unless changes are held.
    void append(const QString& line);
    // Puts lines of earlier runs above every line, as far as the limit leaves
    // room (the newest of them first); announced at once.
    void insertEarlier(QStringList earlier);
    // Between hold() and release() lines gather; release() announces them
    // in one change. Holds nest.
    void hold();
    void release();

    int count() const { return static_cast<int>(lines_.size()); }
    // Every line, oldest first, including lines still held.
    QStringList lines() const;
    // Every line joined by line breaks: what "Copy all" copies.
    Q_INVOKABLE QString text() const;

signals:
    // Once per announced change, after the rows changed.
    void changed();
    void countChanged();

private:
    void announce();

    const qsizetype limit_;
    QStringList lines_;
    QStringList held_;
    int holds_ = 0;
};
