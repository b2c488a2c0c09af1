// SPDX-License-Identifier: Apache-2.0
// The long-lived model of the application: owns the UDP endpoint, discovers
// units, keeps the table of known units sorted by address text, writes
// configurations and keeps the activity log. Lives on the main thread.
#pragma once

#include <cstdint>
#include <memory>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include "ActivityLog.h"
#include "Device.h"
#include "DeviceTable.h"
#include "EarlierLog.h"
#include "LogTime.h"
#include "PresenceClock.h"
#include "NetworkInterfaces.h"
#include "PacedQueue.h"
#include "Routes.h"
#include "ReplyInbox.h"
#include "SerialSightings.h"
#include "VornSocket.h"

class QTimer;

class VornClient : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    // True once the endpoint is bound: the status line's dot follows it.
    Q_PROPERTY(bool listening READ listening NOTIFY listeningChanged)
    Q_PROPERTY(QStringList log READ log NOTIFY logChanged)
    // The same lines as a list model, for views that add only new lines.
    Q_PROPERTY(ActivityLog* activity READ activity CONSTANT)
    Q_PROPERTY(int deviceCount READ deviceCount NOTIFY deviceCountChanged)
    // What the site memory has to say under the status line ("Not
    // remembering: …"), or "" while all is well; set by whoever records.
    Q_PROPERTY(QString siteNotice READ siteNotice NOTIFY siteNoticeChanged)
    Q_PROPERTY(QString broadcastAddress READ broadcastAddress CONSTANT)
    Q_PROPERTY(PresenceClock* clock READ clock CONSTANT)
    // One map per eligible interface address: {name, address, prefixLength,
    // units (listed units last heard there)}; empty when none is eligible.
    Q_PROPERTY(QVariantList networks READ networks NOTIFY networksChanged)

public:
    static constexpr int kDiscoveryIntervalMs = 5000;
    static constexpr int kRequeryDelayMs = 1500;
    // How long after a round's broadcast the remembered units that have not
    // answered it are asked by unicast: those answers then tell the units
    // that broadcasts reach from those behind a router.
    static constexpr int kBroadcastAnswerMs = 1000;
    static constexpr qsizetype kLogLimit = 200;
    // When the main thread takes the decoded replies (see ReplyInbox): after
    // 20 ms without a reply, at the latest 100 ms after the first, or at once
    // when 2 MiB of datagrams wait (a burst of about six thousand units; their
    // decoded replies hold about four times as much).
    static constexpr ReplyInbox::Limits kDrainLimits{std::chrono::milliseconds(20), std::chrono::milliseconds(100),
                                                     std::size_t{2} << 20};

    // `port` and `broadcastAddress` let tests run on loopback; the program
    // uses the defaults.
    explicit VornClient(std::uint16_t port = Vorn::kPort,
                        std::string broadcastAddress = Vorn::VornSocket::kLimitedBroadcast,
                        QObject* parent = nullptr);
    ~VornClient() override;

    // Binds the endpoint and starts discovery; only the first call acts.
    Q_INVOKABLE void start();

    using InterfaceReader = std::function<std::vector<Vorn::InterfaceAddress>()>;
    using RouteReader = std::function<std::vector<Vorn::Route>()>;

    // The units remembered from earlier runs or scans, by address: each
    // round asks those that did not answer its broadcast by unicast, paced,
    // so a unit behind a router comes back without being typed again.
    void setRemembered(const std::vector<std::string>& addresses);
    // Adds one address to the remembered units (a unit found by a scan).
    void remember(const std::string& address);
    struct RememberedDevice {
        std::string address;
        Vorn::Config config;
        WallClock::time_point lastSeen;
    };
    // Lists remembered units, offline, with what was remembered of them, until
    // they answer; a listed address is left alone. Also remembers their
    // addresses. The views hear of all of them at once, as of one drain.
    void addRemembered(std::vector<RememberedDevice> units);
    const std::vector<std::string>& remembered() const { return remembered_; }
    // Removes the unit at `ip` from the table and from the remembered units
    // (no more unicast queries); false when it is not listed. A unit that
    // answers again is listed again as a new one.
    Q_INVOKABLE bool forget(const QString& ip);

    // Queues one unicast discover to each address, sent at most
    // Vorn::PacedQueue::kBurst every Vorn::PacedQueue::kInterval; an address
    // already waiting waits once.
    void queueDiscovers(const std::vector<std::string>& addresses);
    // Drops the waiting discovers for which `drop` is true (a cancelled scan).
    void dropQueuedDiscovers(const std::function<bool(const std::string&)>& drop);

    // Takes the next sequence number and sends one discover to `address`: a
    // broadcast address goes out on every eligible interface, a listed unit's
    // address through the interface it was last heard on. Text that is not a
    // dotted quad sends nothing and answers false.
    Q_INVOKABLE bool sendDiscover(const QString& address);

    // `text` without surrounding blanks as a canonical dotted quad (leading
    // zeros decimal: "010" is 10), or "" when it is not one.
    Q_INVOKABLE static QString canonicalAddress(const QString& text);

    // Sends the unit's last reported configuration overlaid with `changes`.
    Q_INVOKABLE void write(const QString& ip, const QVariantMap& changes);
    void writeChanges(const std::string& ip, const Vorn::Config& changes);

    // {ip, title, lastSeen, config, heardOn, interfaceName, interfaceSubnet,
    // wrongSubnet, addressConflict, serialsSeen} of the unit at `ip`, or an
    // empty map.
    Q_INVOKABLE QVariantMap deviceData(const QString& ip) const;

    // Merges one decoded datagram that came in at `arrival`; the packet path
    // calls it on the main thread.
    void ingest(Vorn::Reply reply, Vorn::Arrival arrival = {});
    // Merges replies taken together from the receive hand-over: the views
    // hear of the batch's new units, updated rows and log lines once each.
    void ingestAll(std::vector<HeardReply> replies);

    // The unit's address lies outside the subnet of the interface address
    // it was heard on (judged only for interfaces discovery uses).
    bool isWrongSubnet(const Device& device) const;
    // Two or more serials answered under the unit's address within 15 s.
    bool hasAddressConflict(const std::string& ip) const;

    QVariantList networks() const { return networks_; }
    // "studio · 10.77.1.5/24": where the unit was last heard, or empty.
    std::string heardOnText(const Device& device) const;

    // Replaces how the host's interfaces are read, for tests; reads at once.
    void setInterfaceReader(InterfaceReader reader);
    // Replaces how the routing table is read, for tests; reads at once.
    void setRouteReader(RouteReader reader);

    std::optional<Device> device(std::string_view ip) const;
    // Whether a unit answered from `ip` (the address text exactly).
    Q_INVOKABLE bool contains(const QString& ip) const { return indexOf(ip.toStdString()) >= 0; }
    // The unit's last reply in this run is younger than 15 s by the client's
    // clock: the one presence verdict the list and the editor show.
    bool isOnline(const Device& device) const;
    // Row of the unit at `ip` in devices(), or -1.
    int indexOf(std::string_view ip) const;
    // The table in address order, each element a const Device&.
    DeviceTable devices() const { return DeviceTable(devices_); }
    int deviceCount() const { return static_cast<int>(devices_.size()); }

    QString status() const { return status_; }
    QString siteNotice() const { return siteNotice_; }
    void setSiteNotice(const QString& notice);
    // Shows the activity of earlier runs above this run's lines (oldest first), once.
    void showEarlierLog(const std::vector<EarlierEntry>& entries);
    // Adds what another workstation did at `at` to the activity log; the
    // store holds it already, so it is not announced as logged.
    void showElsewhere(WallClock::time_point at, const QString& message);
    bool listening() const { return socket_.isListening(); }
    QStringList log() const { return activity_->lines(); }
    ActivityLog* activity() const { return activity_; }
    QString broadcastAddress() const { return QString::fromStdString(socket_.broadcastAddress()); }
    PresenceClock* clock() const { return clock_; }

    // The sequence rule: step the counter (65535 wraps to 0), then use it.
    std::uint16_t nextSeq() { return ++seq_; }
    std::uint16_t seq() const { return seq_; }
    void setSeq(std::uint16_t seq) { seq_ = seq; }

    Vorn::VornSocket& socket() { return socket_; }

signals:
    void statusChanged();
    void siteNoticeChanged();
    void listeningChanged();
    void logChanged();
    void deviceCountChanged();
    // Around the insertion of new units at rows first..last, so a model can
    // follow: one unit heard, or a run of remembered units listed at once.
    void deviceAboutToBeAdded(int first, int last);
    void deviceAdded(int first, int last);
    // Known units in rows first..last had their configuration and lastSeen
    // replaced: one signal for a single merge, one per drain of the inbox.
    void devicesUpdated(int first, int last);
    void networksChanged();
    // Around the removal of the unit at `row` (see forget), so a model can follow.
    void deviceAboutToBeRemoved(int row);
    void deviceRemoved(int row);
    // The unit was forgotten; `unit` is what the table held of it.
    void unitForgotten(const Device& unit);
    // A line was added to the activity log: when, and the message without its time.
    void logged(WallClock::time_point at, const QString& message);
    // A unit listed from the site store answered for the first time in this run.
    void rememberedUnitAnswered();
    // One paced burst of queued unicast discovers has just been sent.
    void discoversSent(const QStringList& addresses);

private:
    using DeviceSlots = DeviceTable::Slots;

    void installPacketHandler();
    // Where the unit at `ip` is or would go in the table.
    DeviceSlots::const_iterator placeOf(std::string_view ip) const;
    void drainWhenSettled();
    bool discoverTo(const std::string& address);
    void broadcastDiscover();
    void queryUnansweredRemembered();
    void sendDiscoverBurst();
    unsigned interfaceFor(const std::string& ip) const;
    std::optional<Vorn::InterfaceAddress> arrivalInterface(const Device& device) const;
    void readInterfaces();
    void readInterfacesIfUnknown(Vorn::Arrival arrival);
    void noteSerial(const Device* known, const std::string& ip, const Vorn::Config& config,
                    WallClock::time_point now);
    void noteArrival(std::optional<Vorn::Arrival> before, Vorn::Arrival now);
    // A unit last heard at `before` is no longer listed.
    void countDeparture(Vorn::Arrival before);
    void rejudgeConflicts();
    void refreshNetworks();
    QVariantMap networkData(const Device& device) const;
    void setStatus(const QString& status);
    void addLog(const QString& message);
    // One line of the activity log: its time, two spaces, the message.
    void appendLogLine(WallClock::time_point at, const QString& message);
    void noteUpdated(int row);
    void noteInserted(int row);

    Vorn::VornSocket socket_;
    // Shared with the receive thread's handler, which may outlive a drain.
    std::shared_ptr<ReplyInbox> inbox_;
    PresenceClock* clock_;
    DeviceSlots devices_;
    InterfaceReader readInterfaceAddresses_ = Vorn::readInterfaceAddresses;
    // The host's interfaces as last read: at each broadcast discover, and
    // when a reply comes in on an interface not among them.
    std::vector<Vorn::InterfaceAddress> interfaces_;
    RouteReader readRoutes_ = Vorn::readRoutes;
    // The routing table as last read, with the interfaces.
    std::vector<Vorn::Route> routes_;
    std::vector<std::string> remembered_;
    // When the latest round's broadcast went out, by the client's clock.
    WallClock::time_point roundStart_;
    QTimer* answerWindowTimer_;
    Vorn::PacedQueue pacedDiscovers_;
    QTimer* pacingTimer_;
    // The serials heard lately under each address flagged with a conflict,
    // re-judged on every clock tick; an address leaves once its flag clears.
    // Other addresses need none: their one serial is in their last reply.
    std::map<std::string, SerialSightings> conflicts_;
    QVariantList networks_;
    // How many listed units were last heard at each arrival, kept as replies
    // merge so that counting per interface does not walk the table.
    std::map<std::pair<unsigned, std::uint32_t>, int> unitsByArrival_;
    std::chrono::steady_clock::time_point lastUnknownArrivalRead_;
    QString status_;
    QString siteNotice_;
    ActivityLog* activity_;
    LogStamps logStamps_;
    std::uint16_t seq_;
    QTimer* discoveryTimer_ = nullptr;
    QTimer* drainTimer_;
    // While a drain merges, the updated rows, whether units were added and
    // the log lines gather here and are announced once at its end: a burst
    // of replies makes one change for the views.
    bool draining_ = false;
    std::optional<std::pair<int, int>> drainUpdated_;
    bool drainAdded_ = false;
    bool started_ = false;
};
