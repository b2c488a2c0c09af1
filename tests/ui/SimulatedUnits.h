// SPDX-License-Identifier: Apache-2.0
// vorn-sim as a child process for the click-through tests: bound to a
// loopback address at a test client's port, units from a list, and every
// datagram it received read back from its log, decoded.
#pragma once

#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

class SimulatedUnits : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by TestKit.startSimulator")

public:
    // `units` as the simulator's file has them: [{ip, config: {Key: Value}}].
    SimulatedUnits(const QString& bindAddress, quint16 port, const QVariantList& units, QObject* parent);
    ~SimulatedUnits() override;

    // Listening, once the simulator has said so.
    Q_INVOKABLE bool isListening() const;

    // Every datagram received so far, oldest first:
    // {cmd, seq, dst, hex, config} with config the decoded settings of a write.
    Q_INVOKABLE QVariantList datagrams() const;
    // Only the writes (command A0) among them.
    Q_INVOKABLE QVariantList writes() const;

    // Ends the simulator (SIGTERM, then SIGKILL after a grace period).
    Q_INVOKABLE void stop();

private:
    QTemporaryDir dir_;
    QProcess process_;
    bool listening_ = false;
};
