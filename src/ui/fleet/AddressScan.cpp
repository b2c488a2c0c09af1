// SPDX-License-Identifier: Apache-2.0
#include "AddressScan.h"

#include <QTimer>


AddressScan::AddressScan(QObject* parent) : QObject(parent), lastAnswerTimer_(new QTimer(this))
{
    lastAnswerTimer_->setSingleShot(true);
    lastAnswerTimer_->setInterval(kLastAnswerMs);
    connect(lastAnswerTimer_, &QTimer::timeout, this, &AddressScan::finish);
}

void AddressScan::setClient(VornClient* client)
{
    if (client == client_)
        return;
    cancel();
    if (client_)
        disconnect(client_, nullptr, this, nullptr);
    client_ = client;
    if (client_)
        connect(client_, &VornClient::discoversSent, this, &AddressScan::noteSent);
    emit clientChanged();
}

void AddressScan::refuse(const QString& problem)
{
    problem_ = problem;
    emit stateChanged();
}

bool AddressScan::start(const QString& text)
{
    if (running_ || !client_)
        return false;
    const auto parsed = Settings::parseAddressBlock(text.toStdString());
    if (const auto* problem = std::get_if<Settings::AddressBlockProblem>(&parsed)) {
        using Kind = Settings::AddressBlockProblem::Kind;
        if (problem->kind == Kind::Reversed)
            refuse(tr("The range ends before it starts"));
        else if (problem->kind == Kind::TooLarge)
            refuse(tr("That is %1 addresses; at most %2 can be scanned at once")
                       .arg(static_cast<qulonglong>(problem->size))
                       .arg(limit()));
        else
            refuse(tr("Type a block such as 10.78.5.0/24 or a range such as 10.78.5.10-10.78.5.99"));
        return false;
    }
    std::vector<std::string> addresses;
    addresses_.clear();
    for (const auto address : std::get<Settings::AddressBlock>(parsed).addresses()) {
        addresses.push_back(address.toString());
        addresses_.insert(QString::fromStdString(addresses.back()));
    }
    problem_.clear();
    sent_ = 0;
    running_ = true;
    started_ = client_->clock()->now();
    emit stateChanged();
    emit progressChanged();
    client_->queueDiscovers(addresses);
    return true;
}

void AddressScan::cancel()
{
    if (!running_)
        return;
    lastAnswerTimer_->stop();
    running_ = false;
    if (client_)
        client_->dropQueuedDiscovers(
            [this](const std::string& address) { return addresses_.contains(QString::fromStdString(address)); });
    emit stateChanged();
}

void AddressScan::noteSent(const QStringList& addresses)
{
    if (!running_)
        return;
    for (const auto& address : addresses)
        sent_ += addresses_.contains(address) ? 1 : 0;
    emit progressChanged();
    if (sent_ >= total())
        lastAnswerTimer_->start();
}

void AddressScan::finish()
{
    running_ = false;
    found_ = 0;
    if (client_) {
        for (const Device& device : client_->devices()) {
            if (device.lastSeen < started_ || !addresses_.contains(QString::fromStdString(device.ip)))
                continue;
            ++found_;
            client_->remember(device.ip);
        }
    }
    emit stateChanged();
    emit finished();
}
