// SPDX-License-Identifier: Apache-2.0
// vornctl's line to the units: the device port bound exclusively, replies
// collected by unit address, and the three exchanges the commands need.
// Standard C++ only; the receive thread only files replies under a lock.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "VornProtocol.h"
#include "VornSocket.h"

namespace VornCtl {

// One unit as its latest configuration report shows it.
struct Sighting {
    std::string address;  // from the report's header, as the window files it
    Vorn::Config config;
    Vorn::Arrival arrival;  // where the latest report came in
    // Filled once the exchange is over, from the host's interfaces then:
    std::string interface;  // "<name> · <local address>/<prefix>", or empty
    std::string interfaceSubnet;  // "10.77.1.0/24", or empty
    bool wrongSubnet = false;
    // Every serial that answered under this address, first heard first;
    // more than one is an address conflict.
    std::vector<std::string> serials;
};

class UnitLink {
public:
    // Three tries of a unicast discover within one timeout.
    static constexpr int kQueryTries = 3;
    static constexpr auto kBroadcastInterval = std::chrono::milliseconds(500);

    UnitLink();
    UnitLink(const UnitLink&) = delete;
    UnitLink& operator=(const UnitLink&) = delete;

    // Binds UDP 23457 without sharing it. False when another socket holds it.
    bool open();

    // Broadcasts a discover (on every eligible interface) every 0.5 s until
    // `timeout` and returns every unit that answered, by address.
    std::map<std::string, Sighting> discoverAll(std::chrono::milliseconds timeout);

    // One unicast discover to each of `addresses`, paced (see PacedQueue),
    // then replies until `timeout` from the start and at least
    // kLastScanAnswer after the last query; the units that answered.
    std::map<std::string, Sighting> scan(const std::vector<std::string>& addresses, std::chrono::milliseconds timeout);

    // Unicast discovers to `address` (up to three within `timeout`) until the
    // unit reports; nothing when it does not. A unit already heard is asked
    // through the interface it was heard on.
    std::optional<Sighting> query(const std::string& address, std::chrono::milliseconds timeout);

    // One write datagram of `full`, sent twice with one sequence number,
    // through the interface the unit was heard on when it was.
    void write(const std::string& address, const Vorn::Config& full);

private:
    static constexpr auto kLastScanAnswer = std::chrono::milliseconds(500);

    // The host's interfaces and routes, read after an exchange.
    struct Surroundings {
        std::vector<Vorn::InterfaceAddress> interfaces;
        std::vector<Vorn::Route> routes;
    };

    // Every unit heard after the report counted `before`, described.
    std::map<std::string, Sighting> heardSince(std::uint64_t before);
    void file(const Vorn::Bytes& data, Vorn::Arrival arrival);
    // The interface index `address` was last heard on, or 0.
    unsigned interfaceOf(const std::string& address);
    // `sighting` with where it was heard and its serials filled in; under the lock.
    Sighting described(Sighting sighting, const Surroundings& host) const;
    std::uint16_t nextSeq() { return ++seq_; }

    std::uint16_t seq_ = 0;
    std::mutex lock_;
    std::condition_variable arrived_;
    // Every report since the link opened; `received_` counts them.
    std::map<std::string, Sighting> latest_;
    std::map<std::string, std::uint64_t> stamp_;
    std::map<std::string, std::vector<std::string>> serials_;
    std::uint64_t received_ = 0;
    // Last, so it goes first: its receive thread ends before what it fills.
    Vorn::VornSocket socket_;
};

}  // namespace VornCtl
