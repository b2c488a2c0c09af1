// SPDX-License-Identifier: Apache-2.0
// What the QML tests need beyond the window's own module: loopback clients
// (never the device port or a real broadcast), units filed without a network,
// a clock that stands still, the sequence counter, and a fake unit that
// records what reaches it.
#pragma once

#include <memory>
#include <vector>

#include <QDateTime>
#include <QObject>
#include <QVariantList>
#include <QVariantMap>
#include <QTemporaryDir>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include "FakeUnit.h"
#include "SimulatedUnits.h"
#include "VornClient.h"
#include "WindowSite.h"

class UnitProbe : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by TestKit.makeProbe")

public:
    UnitProbe(std::uint16_t port, const char* address, QObject* parent);

    // Sequence numbers of all discovers received since the probe was made,
    // once there are `count` or `patienceMs` passed.
    Q_INVOKABLE QVariantList receiveDiscovers(int count, int patienceMs);

    // All datagrams received since the probe was made, after listening for
    // `windowMs` more; for "nothing (more) was sent".
    Q_INVOKABLE int totalAfter(int windowMs);

private:
    ClientTest::FakeUnit unit_;
};

class TestKit : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    // A client on a free port that broadcasts to 127.0.0.3 and is not started.
    Q_INVOKABLE VornClient* makeClient();
    // The window's site store at `file` (or a site server's URI) for `client` (before it starts), read
    // and recorded by the History tabs made after it; replaces the last one.
    // Returns once the remembered units are listed.
    Q_INVOKABLE void rememberSite(VornClient* client, const QUrl& file);
    // Ends the store of rememberSite, storing what is pending.
    Q_INVOKABLE void closeSite();
    // What the window does after its first frame: earlier runs' activity from
    // the store of rememberSite into its client's log.
    Q_INVOKABLE void showEarlierActivity();
    // Starts `client` with one discover to its broadcast address and then no
    // periodic ones, so every later datagram is one the test caused.
    Q_INVOKABLE void startWithoutRepeats(VornClient* client);
    // vorn-sim at the client's broadcast address and port, serving `units`.
    Q_INVOKABLE SimulatedUnits* startSimulator(VornClient* client, const QVariantList& units);
    // vorn-sim bound to another loopback `address` at the client's port: a
    // unit there is found by a unicast discover and receives its writes.
    Q_INVOKABLE SimulatedUnits* startSimulatorAt(VornClient* client, const QString& address,
                                                 const QVariantList& units);

    // A fake unit at `address` on the client's port.
    Q_INVOKABLE UnitProbe* makeProbe(VornClient* client, const QString& address);

    // Files a report from the unit at `ip` as if it had just answered.
    Q_INVOKABLE void ingest(VornClient* client, const QString& ip, const QVariantMap& config);
    // Files reports from `count` new units at `prefix`.0.1 onwards, taken
    // together as the receive hand-over delivers a burst.
    Q_INVOKABLE void ingestBurst(VornClient* client, const QString& prefix, int count);
    // Gives `client` made-up networks instead of the host's: each entry
    // {name, index, address, prefixLength}, up, running and broadcast-capable.
    // Indexes are far above any real interface's, so a send through one of
    // them fails instead of leaving the machine.
    Q_INVOKABLE void setNetworks(VornClient* client, const QVariantList& networks);
    // The same as ingest, as if the report came in on interface `index` to
    // the local address `localAddress`.
    Q_INVOKABLE void ingestHeardOn(VornClient* client, const QString& ip, const QVariantMap& config, int index,
                                   const QString& localAddress);
    // Stops the client's clock at `now` and lets everything re-judge presence.
    Q_INVOKABLE void setNow(VornClient* client, const QDateTime& now);

    // The keys a write datagram carries, in the protocol's order.
    Q_INVOKABLE QStringList writeKeys() const;

    // The text on the application's clipboard.
    Q_INVOKABLE QString clipboardText() const;

    // The URL of `name` in a folder of this test run, removed at its end.
    Q_INVOKABLE QUrl scratchFile(const QString& name);
    // A site server's address where no server answers (a scratch folder).
    Q_INVOKABLE QUrl silentSiteServer() const;
    // Writes `text` into the file at `url`; false when it cannot.
    Q_INVOKABLE bool writeTextFile(const QUrl& url, const QString& text) const;
    Q_INVOKABLE QString readTextFile(const QUrl& url) const;
    // Where a test keeps a shot `name` for a look: the build's window-shots folder.
    Q_INVOKABLE QString shotPath(const QString& name) const;

    Q_INVOKABLE int seq(VornClient* client) const;
    Q_INVOKABLE void setSeq(VornClient* client, int seq);

private:
    QTemporaryDir scratch_;
    std::unique_ptr<VornLink::WindowSite> site_;  // its file lies in scratch_
};
