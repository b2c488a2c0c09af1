// SPDX-License-Identifier: Apache-2.0
#include "UnitTransfer.h"

#include <variant>

#include "BackupExport.h"
#include "BackupFile.h"
#include "TranslatedMessage.h"
#include "SettingKeys.h"
#include "UnitImport.h"

UnitTransfer::UnitTransfer(QObject* parent) : QObject(parent) {}

void UnitTransfer::setEditor(DeviceEditor* editor)
{
    if (editor == editor_)
        return;
    editor_ = editor;
    emit editorChanged();
}

bool UnitTransfer::exportTo(const QUrl& file)
{
    const QString path = localPath(file);
    if (!editor_)
        return finish(true, tr("No unit to export"));
    const Settings::Backup backup{Settings::utcTimestamp(WallClock::now()),
                                  {Settings::backupUnitOf(editor_->ip().toStdString(), editor_->liveConfig())}};
    if (!Settings::writeBackupFile(path.toStdString(), backup))
        return finish(true, tr("%1 cannot be written").arg(path));
    return finish(false, tr("Settings exported to %1").arg(path));
}

bool UnitTransfer::importFrom(const QUrl& file)
{
    const QString path = localPath(file);
    if (!editor_)
        return finish(true, tr("No unit to import into"));
    const auto read = Settings::readBackupFile(path.toStdString());
    if (const auto* error = std::get_if<Settings::BackupError>(&read))
        return finish(true, translatedText(error->message));
    const auto& backup = std::get<Settings::Backup>(read);
    const auto live = editor_->liveConfig().find(std::string(SettingKeys::kSerial));
    const std::string serial = live == editor_->liveConfig().end() ? std::string() : live->second;
    const auto unit = Settings::unitToImport(backup, serial);
    if (!unit) {
        if (backup.units.empty())
            return finish(true, tr("%1 holds no units").arg(path));
        return finish(true, serial.empty()
                                ? tr("%1 holds several units and this unit reports no serial to choose by").arg(path)
                                : tr("%1 holds several units, none with serial %2")
                                      .arg(path, QString::fromStdString(serial)));
    }
    editor_->takeValues(unit->config);
    return finish(false, tr("Settings of %1 loaded from %2: review them, then save")
                             .arg(QString::fromStdString(unit->serial.empty() ? unit->address : unit->serial), path));
}

bool UnitTransfer::finish(bool failed, QString message)
{
    failed_ = failed;
    message_ = std::move(message);
    emit finished();
    return !failed;
}
