// SPDX-License-Identifier: Apache-2.0
// The simulator's sockets: one listening on ADDR:PORT that reports each
// datagram's destination address (IP_PKTINFO), and one that sends every
// reply, choosing a unit's own address as the source when it is local.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "Datagram.h"
#include "FileDescriptor.h"
#include "Result.h"

namespace VornSim {

class UdpEndpoint {
public:
    static Result<UdpEndpoint> open(const std::string& bindAddress, std::uint16_t port);

    int receiveFd() const { return listening_.get(); }
    std::uint16_t port() const { return port_; }

    // One waiting datagram, or nothing when none is waiting; never blocks.
    std::optional<Datagram> receive();

    // Sends `reply` to its toIp at port(). Returns 0 or the errno of the failure.
    int send(const Outgoing& reply);

    // True for datagrams this endpoint sent itself (a reply that came back to
    // the listening port), which must never be answered.
    bool isOwnDatagram(const Datagram& datagram);

    // Whether `ip` is an address of this network namespace; remembered per address.
    bool isLocalAddress(const std::string& ip);

private:
    UdpEndpoint(FileDescriptor listening, FileDescriptor sending, std::uint16_t port, std::uint16_t sendPort);

    FileDescriptor listening_;
    FileDescriptor sending_;
    std::uint16_t port_;
    std::uint16_t sendPort_;
    std::map<std::string, bool, std::less<>> localAddresses_;
};

}  // namespace VornSim
