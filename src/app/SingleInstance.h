// SPDX-License-Identifier: Apache-2.0
// One running window application per user: the first launch listens on a
// local socket; a later launch tells it to come to the front and ends.
#pragma once

#include <QObject>
#include <QString>

class QLocalServer;

class SingleInstance : public QObject {
    Q_OBJECT

public:
    // The socket's name for the current user; it lives in the temporary directory.
    static QString defaultName();

    explicit SingleInstance(QString name, QObject* parent = nullptr);

    // True when another instance answered and was asked to come to the front;
    // otherwise this instance starts listening for later launches.
    bool handOverToRunning();

signals:
    // A later launch wants this instance's window in front.
    void activationRequested();

private:
    void listen();

    QString name_;
    QLocalServer* server_ = nullptr;
};
