// SPDX-License-Identifier: Apache-2.0
// The host's IPv4 routing table, and the one question discovery asks of it:
// is a unit's address reached through a gateway on the interface it answered
// on? A unit behind a router is then where it belongs, not in a wrong subnet.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Vorn {

// One route of the main table. Addresses in host byte order.
struct Route {
    std::string interfaceName;
    unsigned interfaceIndex = 0;  // 0 when the name was not looked up
    std::uint32_t destination = 0;
    std::uint32_t mask = 0;
    std::uint32_t gateway = 0;
    unsigned flags = 0;  // RTF_* of the route
    int metric = 0;

    bool operator==(const Route&) const = default;
};

// The routes of a text laid out as /proc/net/route (a header line, then one
// tab-separated line per route with hexadecimal fields in network byte order).
// Lines that do not read are skipped; interface indexes stay 0.
std::vector<Route> parseRouteTable(std::string_view text);

// The routes of this network namespace now, with their interface indexes;
// empty when the table cannot be read.
std::vector<Route> readRoutes();

// The route the kernel would choose for `address` among `routes`: up, the
// longest prefix, then the lowest metric; none when nothing matches.
std::optional<Route> routeTo(std::uint32_t address, const std::vector<Route>& routes);

// True when the route chosen for `address` leaves through interface
// `interfaceIndex` via a gateway and is not the default route.
bool isRoutedThrough(std::uint32_t address, unsigned interfaceIndex, const std::vector<Route>& routes);

}  // namespace Vorn
