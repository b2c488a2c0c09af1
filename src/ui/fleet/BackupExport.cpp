// SPDX-License-Identifier: Apache-2.0
#include "BackupExport.h"

#include "FleetUnits.h"

BackupExport::BackupExport(QObject* parent) : QObject(parent) {}

void BackupExport::setClient(VornClient* client)
{
    if (client == client_)
        return;
    client_ = client;
    emit clientChanged();
}

bool BackupExport::exportAll(const QUrl& file)
{
    const QString path = localPath(file);
    const Settings::Backup backup = client_ ? backupOf(*client_) : Settings::Backup{};
    failed_ = !Settings::writeBackupFile(path.toStdString(), backup);
    message_ = failed_ ? tr("%1 cannot be written").arg(path)
                       : tr("%n unit(s) exported to %1", nullptr, static_cast<int>(backup.units.size())).arg(path);
    emit finished();
    return !failed_;
}

QString localPath(const QUrl& file)
{
    return file.isLocalFile() ? file.toLocalFile() : file.toString();
}
