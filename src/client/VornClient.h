// The long-lived model of the application: owns the UDP endpoint, discovers
// units, keeps the table of known units sorted by address text, writes
// configurations and keeps the activity log. Lives on the main thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include "Device.h"
#include "PresenceClock.h"
#include "ReplyInbox.h"
#include "VornSocket.h"

class QTimer;

class VornClient : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    Q_PROPERTY(QStringList log READ log NOTIFY logChanged)
    Q_PROPERTY(int deviceCount READ deviceCount NOTIFY deviceCountChanged)
    Q_PROPERTY(QString broadcastAddress READ broadcastAddress CONSTANT)
    Q_PROPERTY(PresenceClock* clock READ clock CONSTANT)

public:
    static constexpr int kDiscoveryIntervalMs = 5000;
    static constexpr int kRequeryDelayMs = 1500;
    static constexpr qsizetype kLogLimit = 200;

    // `port` and `broadcastAddress` let tests run on loopback; the program
    // uses the defaults.
    explicit VornClient(std::uint16_t port = Vorn::kPort,
                        std::string broadcastAddress = Vorn::VornSocket::kLimitedBroadcast,
                        QObject* parent = nullptr);
    ~VornClient() override;

    // Binds the endpoint and starts discovery; only the first call acts.
    Q_INVOKABLE void start();

    // Takes the next sequence number and sends one discover to `address`.
    Q_INVOKABLE void sendDiscover(const QString& address);

    // Sends the unit's last reported configuration overlaid with `changes`.
    Q_INVOKABLE void write(const QString& ip, const QVariantMap& changes);
    void writeChanges(const std::string& ip, const Vorn::Config& changes);

    // {ip, title, lastSeen, config} of the unit at `ip`, or an empty map.
    Q_INVOKABLE QVariantMap deviceData(const QString& ip) const;

    // Merges one decoded datagram; the packet path calls it on the main thread.
    void ingest(Vorn::Reply reply);

    std::optional<Device> device(std::string_view ip) const;
    // Row of the unit at `ip` in devices(), or -1.
    int indexOf(std::string_view ip) const;
    const std::vector<Device>& devices() const { return devices_; }
    int deviceCount() const { return static_cast<int>(devices_.size()); }

    QString status() const { return status_; }
    QStringList log() const { return log_; }
    QString broadcastAddress() const { return QString::fromStdString(socket_.broadcastAddress()); }
    PresenceClock* clock() const { return clock_; }

    // The sequence rule: step the counter (65535 wraps to 0), then use it.
    std::uint16_t nextSeq() { return ++seq_; }
    std::uint16_t seq() const { return seq_; }
    void setSeq(std::uint16_t seq) { seq_ = seq; }

    Vorn::VornSocket& socket() { return socket_; }

signals:
    void statusChanged();
    void logChanged();
    void deviceCountChanged();
    // Around the insertion of a new unit at `row`, so a model can follow.
    void deviceAboutToBeAdded(int row);
    void deviceAdded(int row);
    // A known unit's configuration and lastSeen were replaced.
    void deviceUpdated(int row);

private:
    void installPacketHandler();
    void ingestInbox();
    void discoverTo(const std::string& address);
    void setStatus(const QString& status);
    void addLog(const QString& message);

    Vorn::VornSocket socket_;
    // Shared with the receive thread's handler, which may outlive a drain.
    std::shared_ptr<ReplyInbox> inbox_;
    PresenceClock* clock_;
    std::vector<Device> devices_;
    QString status_;
    QStringList log_;
    std::uint16_t seq_;
    QTimer* discoveryTimer_ = nullptr;
    bool started_ = false;
};
