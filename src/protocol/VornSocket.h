// SPDX-License-Identifier: Apache-2.0
// The program's UDP endpoint: one socket bound to the device port on all
// interfaces, read by a dedicated "vorn.rx" thread, plus fire-and-forget sends
// from a fresh socket each time: unicasts (optionally through a chosen
// interface) and a discover broadcast on every eligible interface.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "NetworkInterfaces.h"
#include "VornProtocol.h"

namespace Vorn {

// Where a datagram came in: the interface index and the local address it was
// delivered to (host byte order). Index 0 means unknown.
struct Arrival {
    unsigned interfaceIndex = 0;
    std::uint32_t localAddress = 0;

    bool known() const { return interfaceIndex != 0; }
    bool operator==(const Arrival&) const = default;
};

class VornSocket {
public:
    // Called on the receive thread with the datagram and the sender's address.
    using PacketHandler = std::function<void(Bytes data, std::string senderIp)>;
    // The same, with the datagram's arrival interface.
    using DatagramHandler = std::function<void(Bytes data, std::string senderIp, Arrival arrival)>;

    static constexpr std::size_t kReceiveBufferSize = 2048;
    // What the listening socket asks the kernel to buffer: a burst of a few
    // thousand replies (the kernel may grant less).
    static constexpr int kRequestedKernelBuffer = 4 << 20;
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

    // Set before start(); replacing either later is allowed and thread-safe.
    // There is one handler: setting one replaces the other.
    void setOnPacket(PacketHandler handler);
    void setOnDatagram(DatagramHandler handler);

    // Binds and starts the receive thread. True when listening (now or already).
    bool start();

    // One datagram to ip:port, `ip` read as a strict dotted quad; text that is
    // not one sends nothing. Errors are ignored by design.
    void send(std::span<const std::uint8_t> data, const std::string& ip) const;

    // One datagram to ip:port leaving through interface `interfaceIndex`
    // whatever the routing table says; index 0 sends as send() does.
    void sendVia(std::span<const std::uint8_t> data, const std::string& ip, unsigned interfaceIndex) const;

    // The discover broadcast: to the limited broadcast address once per
    // eligible interface address, each from a fresh socket bound to that
    // address (interfaces read now). With none eligible, or when the endpoint
    // was given another broadcast address (loopback tests), one plain send.
    void broadcast(std::span<const std::uint8_t> data) const;
    // The same over `interfaces` as the caller has just read them.
    void broadcastOn(std::span<const std::uint8_t> data, const std::vector<InterfaceAddress>& interfaces) const;

    // True when `ip` means "everyone": the endpoint's broadcast address or
    // 255.255.255.255 in any dotted spelling.
    bool isBroadcastTarget(const std::string& ip) const;

    // The kernel's receive-buffer size of the listening socket as it reports
    // it (Linux reports twice the bytes granted for data); 0 when not listening.
    int kernelReceiveBuffer() const;

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
    DatagramHandler onDatagram_;
    std::thread rxThread_;
};

}  // namespace Vorn
