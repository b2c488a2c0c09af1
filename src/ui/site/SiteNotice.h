// SPDX-License-Identifier: Apache-2.0
// The sidebar footer's line about the site store: "Site server unreachable:
// <reason>" while the window's site server does not answer (what it records
// meanwhile waits in the journal), else nothing. Read from the store's
// recorder once a second: a look under its lock, nothing more.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class SiteNotice : public QObject {
    Q_OBJECT

    // "" when there is nothing to say.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    explicit SiteNotice(QObject* parent = nullptr);

    const QString& text() const { return text_; }
    // Reads the recorder's state now.
    Q_INVOKABLE void refresh();

signals:
    void textChanged();

private:
    QString text_;
    QTimer timer_;
};
