// SPDX-License-Identifier: Apache-2.0
// "Scan addresses…": one unicast discover to each address of a CIDR block or
// a range, paced by the client, then a short wait for the last answers. The
// units found are remembered by the client, so later rounds keep asking them.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>

#include "AddressBlock.h"
#include "VornClient.h"

class QTimer;

class AddressScan : public QObject {
    Q_OBJECT
    Q_PROPERTY(VornClient* client READ client WRITE setClient NOTIFY clientChanged)
    Q_PROPERTY(bool running READ running NOTIFY stateChanged)
    // Queries sent so far and in all, of the current or last scan.
    Q_PROPERTY(int sent READ sent NOTIFY progressChanged)
    Q_PROPERTY(int total READ total NOTIFY stateChanged)
    // Units that answered the last finished scan; -1 before the first.
    Q_PROPERTY(int found READ found NOTIFY stateChanged)
    // Why the text last given to start() cannot be scanned, or empty.
    Q_PROPERTY(QString problem READ problem NOTIFY stateChanged)
    // The most addresses one scan may cover.
    Q_PROPERTY(int limit READ limit CONSTANT)

public:
    // How long the last answers are awaited after the last query went out.
    static constexpr int kLastAnswerMs = 1000;

    explicit AddressScan(QObject* parent = nullptr);

    VornClient* client() const { return client_; }
    void setClient(VornClient* client);

    // Starts scanning the block or range in `text`; false (with `problem`)
    // when the text is no block, is reversed or covers too many addresses.
    Q_INVOKABLE bool start(const QString& text);
    // Stops a running scan: its waiting queries are not sent, and nothing is found.
    Q_INVOKABLE void cancel();

    bool running() const { return running_; }
    int sent() const { return sent_; }
    int total() const { return static_cast<int>(addresses_.size()); }
    int found() const { return found_; }
    QString problem() const { return problem_; }
    static int limit() { return static_cast<int>(Settings::kMaxScanAddresses); }

signals:
    void clientChanged();
    void stateChanged();
    void progressChanged();
    // A scan ran to its end (not cancelled); `found` holds its count.
    void finished();

private:
    void noteSent(const QStringList& addresses);
    void finish();
    void refuse(const QString& problem);

    QPointer<VornClient> client_;
    QSet<QString> addresses_;
    WallClock::time_point started_;
    QTimer* lastAnswerTimer_;
    int sent_ = 0;
    int found_ = -1;
    bool running_ = false;
    QString problem_;
};
