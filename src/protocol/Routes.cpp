// SPDX-License-Identifier: Apache-2.0
#include "Routes.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <net/route.h>

#include <bit>
#include <charconv>
#include <fstream>
#include <sstream>
#include <utility>

namespace Vorn {
namespace {

constexpr const char* kRouteTablePath = "/proc/net/route";

// The fields of one line, split at tabs and blanks.
std::vector<std::string_view> fieldsOf(std::string_view line)
{
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    while (start < line.size()) {
        const auto begin = line.find_first_not_of(" \t\r", start);
        if (begin == std::string_view::npos)
            break;
        const auto end = line.find_first_of(" \t\r", begin);
        fields.push_back(line.substr(begin, end == std::string_view::npos ? std::string_view::npos : end - begin));
        start = end == std::string_view::npos ? line.size() : end;
    }
    return fields;
}

template <typename Number>
bool readNumber(std::string_view text, Number& value, int base)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc() && end == text.data() + text.size();
}

// The table prints each address as the hexadecimal of its in-memory value,
// which is in network byte order.
bool readAddress(std::string_view text, std::uint32_t& address)
{
    std::uint32_t raw = 0;
    if (!readNumber(text, raw, 16))
        return false;
    address = ntohl(raw);
    return true;
}

}  // namespace

std::vector<Route> parseRouteTable(std::string_view text)
{
    enum Column { kIface, kDestination, kGateway, kFlags, kRefCnt, kUse, kMetric, kMask, kColumns };
    std::vector<Route> routes;
    bool header = true;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find('\n', start);
        const auto line = text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
        start = end == std::string_view::npos ? text.size() : end + 1;
        if (std::exchange(header, false))
            continue;
        const auto fields = fieldsOf(line);
        if (fields.size() < kColumns)
            continue;
        Route route;
        route.interfaceName = std::string(fields[kIface]);
        if (readAddress(fields[kDestination], route.destination) && readAddress(fields[kGateway], route.gateway) &&
            readNumber(fields[kFlags], route.flags, 16) && readNumber(fields[kMetric], route.metric, 10) &&
            readAddress(fields[kMask], route.mask))
            routes.push_back(std::move(route));
    }
    return routes;
}

std::vector<Route> readRoutes()
{
    std::ifstream file(kRouteTablePath);
    if (!file)
        return {};
    std::ostringstream text;
    text << file.rdbuf();
    auto routes = parseRouteTable(text.str());
    for (auto& route : routes)
        route.interfaceIndex = ::if_nametoindex(route.interfaceName.c_str());
    return routes;
}

std::optional<Route> routeTo(std::uint32_t address, const std::vector<Route>& routes)
{
    const Route* best = nullptr;
    for (const auto& route : routes) {
        if ((route.flags & RTF_UP) == 0 || (address & route.mask) != (route.destination & route.mask))
            continue;
        const int prefix = std::popcount(route.mask);
        const int bestPrefix = best == nullptr ? -1 : std::popcount(best->mask);
        if (prefix > bestPrefix || (prefix == bestPrefix && route.metric < best->metric))
            best = &route;
    }
    if (best == nullptr)
        return std::nullopt;
    return *best;
}

bool isRoutedThrough(std::uint32_t address, unsigned interfaceIndex, const std::vector<Route>& routes)
{
    const auto route = routeTo(address, routes);
    return route && route->mask != 0 && (route->flags & RTF_GATEWAY) != 0 && route->interfaceIndex == interfaceIndex;
}

}  // namespace Vorn
