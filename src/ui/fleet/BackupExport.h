// SPDX-License-Identifier: Apache-2.0
// "Export all units…": every unit the list shows, in one backup file of the
// format vornctl reads and writes.
#pragma once

#include <QObject>
#include <QPointer>
#include <QUrl>

#include "VornClient.h"

class BackupExport : public QObject {
    Q_OBJECT
    Q_PROPERTY(VornClient* client READ client WRITE setClient NOTIFY clientChanged)
    // What the last export did: how many units went where, or why it failed.
    Q_PROPERTY(QString message READ message NOTIFY finished)
    Q_PROPERTY(bool failed READ failed NOTIFY finished)

public:
    explicit BackupExport(QObject* parent = nullptr);

    VornClient* client() const { return client_; }
    void setClient(VornClient* client);

    // Writes the file; false when it cannot be written.
    Q_INVOKABLE bool exportAll(const QUrl& file);

    QString message() const { return message_; }
    bool failed() const { return failed_; }

signals:
    void clientChanged();
    void finished();

private:
    QPointer<VornClient> client_;
    QString message_;
    bool failed_ = false;
};

// The local path of a file URL, or the text itself when it is a plain path.
QString localPath(const QUrl& file);
