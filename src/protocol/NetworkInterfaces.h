// SPDX-License-Identifier: Apache-2.0
// The host's IPv4 interfaces, and the two rules discovery needs about them:
// which ones a broadcast discover goes out through, and whether an address
// lies in an interface's subnet.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Routes.h"

namespace Vorn {

// One IPv4 address of one interface; an interface with aliases appears once
// per address. Addresses are in host byte order.
struct InterfaceAddress {
    std::string name;
    unsigned index = 0;
    std::uint32_t address = 0;
    int prefixLength = 0;
    unsigned flags = 0;  // IFF_* of the interface

    bool operator==(const InterfaceAddress&) const = default;
};

// Every IPv4 address of every interface, as getifaddrs reports it now; empty
// when that fails.
std::vector<InterfaceAddress> readInterfaceAddresses();

// Up and running, broadcast-capable, neither loopback nor point-to-point, with
// an IPv4 address (link-local 169.254/16 included).
bool isEligibleForDiscovery(const InterfaceAddress& entry);

// The eligible entries of `all`, in their order.
std::vector<InterfaceAddress> eligibleForDiscovery(const std::vector<InterfaceAddress>& all);

// True when `address` lies in the subnet of `entry` (its address and prefix).
bool isInSubnet(std::uint32_t address, const InterfaceAddress& entry);

// A unit at `unitAddress` heard on `heardOn` is in the wrong subnet: outside
// the subnet of an interface address that discovery uses, and not behind a
// router that `routes` reach through that interface.
bool isWrongSubnet(std::uint32_t unitAddress, const InterfaceAddress& heardOn, const std::vector<Route>& routes);

// The entry of interface `index` holding `localAddress`, else the first entry
// of that interface, else none.
std::optional<InterfaceAddress> findArrivalInterface(const std::vector<InterfaceAddress>& all, unsigned index,
                                                     std::uint32_t localAddress);

// "10.77.1.0/24": the network of `entry`.
std::string subnetText(const InterfaceAddress& entry);

// "studio · 10.77.1.5/24": where a unit heard on `entry` was heard.
std::string heardOnText(const InterfaceAddress& entry);

}  // namespace Vorn
