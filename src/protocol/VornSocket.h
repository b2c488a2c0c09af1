// The program's UDP endpoint: one socket bound to the device port on all
// interfaces, read by a dedicated "vorn.rx" thread, plus fire-and-forget sends
// from a fresh socket each time.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "VornProtocol.h"

namespace Vorn {

class VornSocket {
public:
    // Called on the receive thread with the datagram and the sender's address.
    using PacketHandler = std::function<void(Bytes data, std::string senderIp)>;

    static constexpr std::size_t kReceiveBufferSize = 2048;
    static constexpr const char* kLimitedBroadcast = "255.255.255.255";

    // Shared: SO_REUSEADDR, as the window binds. Exclusive: no other socket
    // may hold the port, so a second program never splits the units' replies.
    enum class PortSharing { Shared, Exclusive };

    // `port` and `broadcastAddress` exist so tests can run on loopback; the
    // program always uses the defaults.
    explicit VornSocket(std::uint16_t port = kPort, std::string broadcastAddress = kLimitedBroadcast,
                        PortSharing sharing = PortSharing::Shared);
    ~VornSocket();
    VornSocket(const VornSocket&) = delete;
    VornSocket& operator=(const VornSocket&) = delete;

    // Set before start(); replacing it later is allowed and thread-safe.
    void setOnPacket(PacketHandler handler);

    // Binds and starts the receive thread. True when listening (now or already).
    bool start();

    // One datagram to ip:port. Text that is not a dotted IPv4 address goes to
    // the broadcast address. Errors are ignored by design.
    void send(std::span<const std::uint8_t> data, const std::string& ip) const;

    std::uint16_t port() const { return port_; }
    const std::string& broadcastAddress() const { return broadcastAddress_; }
    int rxfd() const { return rxfd_.load(); }
    bool isListening() const { return rxfd_.load() >= 0; }

private:
    void recvLoop();

    const std::uint16_t port_;
    const std::string broadcastAddress_;
    const PortSharing sharing_;
    std::atomic<int> rxfd_{-1};
    std::atomic<bool> running_{false};
    std::mutex handlerMutex_;
    PacketHandler onPacket_;
    std::thread rxThread_;
};

}  // namespace Vorn
