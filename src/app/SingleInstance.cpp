// SPDX-License-Identifier: Apache-2.0
#include "SingleInstance.h"

#include <QLocalServer>
#include <QLocalSocket>

#include "AppLogging.h"

namespace {
constexpr int kConnectTimeoutMs = 1000;
constexpr QByteArrayView kActivate = "activate\n";
}  // namespace

QString SingleInstance::defaultName()
{
    QString user = qEnvironmentVariable("USER");
    if (user.isEmpty())
        user = qEnvironmentVariable("USERNAME");
    return QStringLiteral("vornlink-") + user;
}

SingleInstance::SingleInstance(QString name, QObject* parent) : QObject(parent), name_(std::move(name)) {}

bool SingleInstance::handOverToRunning()
{
    QLocalSocket socket;
    socket.connectToServer(name_);
    if (socket.waitForConnected(kConnectTimeoutMs)) {
        socket.write(kActivate.data(), kActivate.size());
        socket.waitForBytesWritten(kConnectTimeoutMs);
        socket.disconnectFromServer();
        return true;
    }
    listen();
    return false;
}

void SingleInstance::listen()
{
    server_ = new QLocalServer(this);
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    // Nobody answered, so a socket file left here is from an instance that died.
    QLocalServer::removeServer(name_);
    if (!server_->listen(name_)) {
        qCWarning(lcWindow) << "cannot listen for later launches:" << server_->errorString();
        return;
    }
    connect(server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* peer = server_->nextPendingConnection()) {
            connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
            emit activationRequested();
        }
    });
}
