// SPDX-License-Identifier: Apache-2.0
#include "UnitTransfer.h"

#include <variant>

#include <QStringList>

#include "BackupExport.h"
#include "BackupFile.h"
#include "BackupMatch.h"
#include "TranslatedMessage.h"
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
    // Nothing from nothing: a file of no settings would pass for a backup.
    if (editor_->liveConfig().empty())
        return finish(true, tr("This unit has not answered yet; there is nothing to export"));
    const Settings::Backup backup{Settings::utcTimestamp(WallClock::now()),
                                  {Settings::backupUnitOf(editor_->ip().toStdString(), editor_->liveConfig())}};
    if (!Settings::writeBackupFile(path.toStdString(), backup))
        return finish(true, tr("%1 cannot be written").arg(path));
    return finish(false, tr("Settings exported to %1").arg(path));
}

bool UnitTransfer::importFrom(const QUrl& file)
{
    return importFile(file, false);
}

bool UnitTransfer::importOtherUnit()
{
    if (offeredFile_.isEmpty())
        return false;
    return importFile(offeredFile_, true);
}

bool UnitTransfer::importFile(const QUrl& file, bool allowOtherSerial)
{
    const QString path = localPath(file);
    offeredFile_.clear();
    if (!editor_)
        return finish(true, tr("No unit to import into"));
    const auto read = Settings::readBackupFile(path.toStdString());
    if (const auto* error = std::get_if<Settings::BackupError>(&read))
        return finish(true, translatedText(error->message));
    const auto& backup = std::get<Settings::Backup>(read);
    const std::string serial = Settings::reportedSerial(editor_->liveConfig());
    const auto choice = Settings::unitToImport(backup, serial);
    if (!choice) {
        if (backup.units.empty())
            return finish(true, tr("%1 holds no units").arg(path));
        return finish(true, serial.empty()
                                ? tr("%1 holds several units and this unit reports no serial to choose by").arg(path)
                                : tr("%1 holds several units, none with serial %2")
                                      .arg(path, QString::fromStdString(serial)));
    }
    const Settings::BackupUnit& unit = choice->unit;
    if (choice->otherSerial && !allowOtherSerial) {
        offeredFile_ = file;
        return finish(true, tr("%1 holds the settings of another unit (serial %2); this unit reports serial %3")
                                .arg(path, QString::fromStdString(unit.serial), QString::fromStdString(serial)));
    }
    editor_->takeValues(unit.config);
    QString message = tr("Settings of %1 loaded from %2: review them, then save")
                          .arg(QString::fromStdString(unit.serial.empty() ? unit.address : unit.serial), path);
    const auto skipped = Settings::keysNotImported(unit.config);
    if (!skipped.empty()) {
        QStringList keys;
        for (const auto& key : skipped)
            keys << QString::fromStdString(key);
        message += u'\n' + tr("Not imported (no field here): %1").arg(keys.join(QStringLiteral(", ")));
    }
    return finish(false, message);
}

bool UnitTransfer::finish(bool failed, QString message)
{
    failed_ = failed;
    message_ = std::move(message);
    emit finished();
    return !failed;
}
