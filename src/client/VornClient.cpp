// SPDX-License-Identifier: Apache-2.0
#include "VornClient.h"

#include <algorithm>

#include <QPointer>
#include <QRandomGenerator>
#include <QTimer>

#include "ClientLogging.h"
#include "ConfigConversion.h"
#include "Ipv4.h"
#include "LogTime.h"

VornClient::VornClient(std::uint16_t port, std::string broadcastAddress, QObject* parent)
    : QObject(parent),
      socket_(port, std::move(broadcastAddress)),
      inbox_(std::make_shared<ReplyInbox>(kDrainLimits)),
      clock_(new PresenceClock(this)),
      status_(tr("starting\u2026")),
      activity_(new ActivityLog(kLogLimit, this)),
      seq_(static_cast<std::uint16_t>(QRandomGenerator::global()->bounded(1, 30001))),
      drainTimer_(new QTimer(this))
{
    answerWindowTimer_ = new QTimer(this);
    answerWindowTimer_->setSingleShot(true);
    answerWindowTimer_->setInterval(kBroadcastAnswerMs);
    connect(answerWindowTimer_, &QTimer::timeout, this, &VornClient::queryUnansweredRemembered);
    pacingTimer_ = new QTimer(this);
    pacingTimer_->setTimerType(Qt::PreciseTimer);
    pacingTimer_->setInterval(Vorn::PacedQueue::kInterval);
    connect(pacingTimer_, &QTimer::timeout, this, &VornClient::sendDiscoverBurst);
    drainTimer_->setSingleShot(true);
    connect(drainTimer_, &QTimer::timeout, this, &VornClient::drainWhenSettled);
    connect(clock_, &PresenceClock::ticked, this, &VornClient::rejudgeConflicts);
    connect(activity_, &ActivityLog::changed, this, &VornClient::logChanged);
}

VornClient::~VornClient()
{
    // The receive thread may be inside the handler; clearing it waits for that
    // call, so nothing refers to this object once the handler is gone.
    socket_.setOnPacket(nullptr);
}

void VornClient::start()
{
    if (started_)
        return;
    started_ = true;
    installPacketHandler();
    const QString port = QString::number(socket_.port());
    if (!socket_.start()) {
        setStatus(tr("cannot bind UDP %1 (in use?)").arg(port));
        return;
    }
    setStatus(tr("listening on %1").arg(port));
    emit listeningChanged();
    qCInfo(lcVornClient) << "receive buffer: asked for" << Vorn::VornSocket::kRequestedKernelBuffer
                         << "bytes, the kernel reports" << socket_.kernelReceiveBuffer();
    broadcastDiscover();

    discoveryTimer_ = new QTimer(this);
    discoveryTimer_->setObjectName(QStringLiteral("discoveryTimer"));
    discoveryTimer_->setInterval(kDiscoveryIntervalMs);
    connect(discoveryTimer_, &QTimer::timeout, this, &VornClient::broadcastDiscover);
    discoveryTimer_->start();
}

void VornClient::installPacketHandler()
{
    socket_.setOnDatagram([client = QPointer<VornClient>(this), inbox = inbox_](Vorn::Bytes data, std::string,
                                                                                Vorn::Arrival arrival) {
        // Runs on the receive thread: decode here, touch the client only on
        // the main thread. The sender address is not used; the reply names its unit.
        auto reply = Vorn::parse(data);
        if (!reply || reply->cmd != Vorn::kCmdReport) {
            // Only reports matter to the client; anything else is left here
            // instead of queueing for the main thread.
            qCDebug(lcVornClient) << "dropped a datagram of" << data.size() << "bytes that is no report";
            return;
        }
        if (inbox->push(HeardReply(std::move(*reply), arrival), data.size())) {
            QMetaObject::invokeMethod(
                client.data(),
                [client] {
                    if (client)
                        client->drainWhenSettled();
                },
                Qt::QueuedConnection);
        }
    });
}

void VornClient::drainWhenSettled()
{
    const auto wait = inbox_->settleWait(ReplyInbox::Clock::now());
    if (wait > ReplyInbox::Clock::duration::zero())
        drainTimer_->start(std::chrono::ceil<std::chrono::milliseconds>(wait));
    else
        ingestAll(inbox_->takeAll());
}

void VornClient::ingestAll(std::vector<HeardReply> replies)
{
    draining_ = true;
    activity_->hold();
    for (auto& heard : replies)
        ingest(std::move(heard.reply), heard.arrival);
    activity_->release();
    draining_ = false;
    if (std::exchange(drainAdded_, false))
        emit deviceCountChanged();
    if (const auto updated = std::exchange(drainUpdated_, std::nullopt))
        emit devicesUpdated(updated->first, updated->second);
    refreshNetworks();
}

void VornClient::noteUpdated(int row)
{
    if (!draining_) {
        emit devicesUpdated(row, row);
        return;
    }
    if (!drainUpdated_)
        drainUpdated_.emplace(row, row);
    drainUpdated_->first = std::min(drainUpdated_->first, row);
    drainUpdated_->second = std::max(drainUpdated_->second, row);
}

// A new row at `row` moves the rows updated so far that sit at or below it.
void VornClient::noteInserted(int row)
{
    if (!drainUpdated_)
        return;
    if (row <= drainUpdated_->first)
        ++drainUpdated_->first;
    if (row <= drainUpdated_->second)
        ++drainUpdated_->second;
}

bool VornClient::sendDiscover(const QString& address)
{
    return discoverTo(address.toStdString());
}

QString VornClient::canonicalAddress(const QString& text)
{
    const auto address = Settings::canonicalIpv4(text.trimmed().toStdString());
    return address ? QString::fromStdString(*address) : QString();
}

bool VornClient::discoverTo(const std::string& address)
{
    if (socket_.isBroadcastTarget(address)) {
        broadcastDiscover();
        return true;
    }
    const auto canonical = Settings::canonicalIpv4(address);
    if (!canonical)
        return false;
    socket_.sendVia(Vorn::discoverPacket(nextSeq()), *canonical, interfaceFor(*canonical));
    return true;
}

void VornClient::ingest(Vorn::Reply reply, Vorn::Arrival arrival)
{
    if (reply.cmd != Vorn::kCmdReport) {
        qCDebug(lcVornClient) << "ignored a datagram with command" << reply.cmd.value_or(0);
        return;
    }
    const auto now = clock_->now();
    readInterfacesIfUnknown(arrival);
    const auto place = placeOf(reply.deviceIp);
    const int row = static_cast<int>(place - devices_.begin());
    if (place != devices_.end() && (*place)->ip == reply.deviceIp) {
        Device& known = **place;
        noteSerial(&known, reply.deviceIp, reply.config, now);
        known.config = std::move(reply.config);
        known.lastSeen = now;
        const bool wasRemembered = std::exchange(known.remembered, false);
        noteArrival(std::exchange(known.heardOn, arrival), arrival);
        noteUpdated(row);
        if (wasRemembered)
            emit rememberedUnitAnswered();
        return;
    }
    const QString address = QString::fromStdString(reply.deviceIp);
    emit deviceAboutToBeAdded(row, row);
    devices_.insert(place,
                    std::make_unique<Device>(Device{std::move(reply.deviceIp), std::move(reply.config), now, arrival}));
    noteInserted(row);
    emit deviceAdded(row, row);
    if (draining_)
        drainAdded_ = true;
    else
        emit deviceCountChanged();
    addLog(tr("found %1").arg(address));
    noteArrival(std::nullopt, arrival);
}

VornClient::DeviceSlots::const_iterator VornClient::placeOf(std::string_view ip) const
{
    return std::lower_bound(devices_.begin(), devices_.end(), ip,
                            [](const std::unique_ptr<Device>& device, std::string_view key) { return device->ip < key; });
}

int VornClient::indexOf(std::string_view ip) const
{
    const auto place = placeOf(ip);
    if (place == devices_.end() || (*place)->ip != ip)
        return -1;
    return static_cast<int>(place - devices_.begin());
}

bool VornClient::isOnline(const Device& device) const
{
    return !device.remembered && isPresent(device.lastSeen, clock_->now());
}

std::optional<Device> VornClient::device(std::string_view ip) const
{
    const int row = indexOf(ip);
    if (row < 0)
        return std::nullopt;
    return *devices_[static_cast<std::size_t>(row)];
}

QVariantMap VornClient::deviceData(const QString& ip) const
{
    const int row = indexOf(ip.toStdString());
    if (row < 0)
        return {};
    const Device& found = *devices_[static_cast<std::size_t>(row)];
    QVariantMap data{
        {QStringLiteral("ip"), ip},
        {QStringLiteral("title"), found.title()},
        {QStringLiteral("lastSeen"), toDateTime(found.lastSeen)},
        {QStringLiteral("config"), toVariantMap(found.config)},
    };
    data.insert(networkData(found));
    return data;
}

void VornClient::setStatus(const QString& status)
{
    if (status == status_)
        return;
    status_ = status;
    emit statusChanged();
}

void VornClient::setSiteNotice(const QString& notice)
{
    if (notice == siteNotice_)
        return;
    siteNotice_ = notice;
    emit siteNoticeChanged();
}

void VornClient::showEarlierLog(const std::vector<EarlierEntry>& entries)
{
    const QStringList lines =
        earlierLogLines(entries, kLogLimit - activity_->lines().size(), clock_->nowDateTime().toLocalTime().date());
    qCInfo(lcVornClient) << "earlier runs' activity:" << lines.size() << "lines of" << entries.size() << "entries";
    activity_->insertEarlier(lines);
}

void VornClient::showElsewhere(WallClock::time_point at, const QString& message)
{
    appendLogLine(at, message);
}

void VornClient::addLog(const QString& message)
{
    const auto now = clock_->now();
    appendLogLine(now, message);
    emit logged(now, message);
}

void VornClient::appendLogLine(WallClock::time_point at, const QString& message)
{
    activity_->append(logStamps_.textFor(at) + QStringLiteral("  ") + message);
}
