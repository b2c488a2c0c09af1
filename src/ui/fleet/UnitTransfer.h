// SPDX-License-Identifier: Apache-2.0
// The editor header's "Export settings…" and "Import settings…": one unit
// into a backup file of one unit, and a backup file's values for the unit
// (by its serial, or the file's only unit) into the editor as unsaved
// changes. A file that cannot be used changes nothing and says why.
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

public:
    explicit UnitTransfer(QObject* parent = nullptr);

    DeviceEditor* editor() const { return editor_; }
    void setEditor(DeviceEditor* editor);

    // False when the file cannot be written.
    Q_INVOKABLE bool exportTo(const QUrl& file);
    // False when the file cannot be read or holds no unit for the editor.
    Q_INVOKABLE bool importFrom(const QUrl& file);

    QString message() const { return message_; }
    bool failed() const { return failed_; }

signals:
    void editorChanged();
    void finished();

private:
    bool finish(bool failed, QString message);

    QPointer<DeviceEditor> editor_;
    QString message_;
    bool failed_ = false;
};
