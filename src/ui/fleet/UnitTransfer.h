// SPDX-License-Identifier: Apache-2.0
// The editor header's "Export settings…" and "Import settings…": one unit
// into a backup file of one unit, and a backup file's values for the unit
// (by its serial, or the file's only unit) into the editor as unsaved
// changes. A file that cannot be used changes nothing and says why; a file
// whose only unit has another serial is imported only on the user's word.
#pragma once

#include <QObject>
#include <QPointer>
#include <QUrl>

#include "DeviceEditor.h"

class UnitTransfer : public QObject {
    Q_OBJECT
    Q_PROPERTY(DeviceEditor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    // What the last export or import did, or why it did nothing.
    Q_PROPERTY(QString message READ message NOTIFY finished)
    Q_PROPERTY(bool failed READ failed NOTIFY finished)
    // The last import was held back because the file's unit is another unit:
    // importOtherUnit() takes it anyway.
    Q_PROPERTY(bool otherUnitOffered READ otherUnitOffered NOTIFY finished)

public:
    explicit UnitTransfer(QObject* parent = nullptr);

    DeviceEditor* editor() const { return editor_; }
    void setEditor(DeviceEditor* editor);

    // False when the file cannot be written.
    Q_INVOKABLE bool exportTo(const QUrl& file);
    // False when the file cannot be read, holds no unit for the editor or
    // only another unit.
    Q_INVOKABLE bool importFrom(const QUrl& file);
    // Imports the file the last import held back, onto this other unit.
    Q_INVOKABLE bool importOtherUnit();

    QString message() const { return message_; }
    bool failed() const { return failed_; }
    bool otherUnitOffered() const { return !offeredFile_.isEmpty(); }

signals:
    void editorChanged();
    void finished();

private:
    bool importFile(const QUrl& file, bool allowOtherSerial);
    bool finish(bool failed, QString message);

    QPointer<DeviceEditor> editor_;
    QUrl offeredFile_;
    QString message_;
    bool failed_ = false;
};
