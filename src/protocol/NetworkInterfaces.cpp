// SPDX-License-Identifier: Apache-2.0
#include "NetworkInterfaces.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <bit>

#include "Ipv4.h"

namespace Vorn {
namespace {

std::uint32_t maskOf(int prefixLength)
{
    if (prefixLength <= 0)
        return 0;
    if (prefixLength >= 32)
        return 0xffffffffU;
    return ~(0xffffffffU >> prefixLength);
}

}  // namespace

std::vector<InterfaceAddress> readInterfaceAddresses()
{
    std::vector<InterfaceAddress> result;
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0)
        return result;
    for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET)
            continue;
        InterfaceAddress item;
        item.name = entry->ifa_name;
        item.index = ::if_nametoindex(entry->ifa_name);
        item.address = ntohl(reinterpret_cast<const sockaddr_in*>(entry->ifa_addr)->sin_addr.s_addr);
        if (entry->ifa_netmask != nullptr) {
            const std::uint32_t mask =
                ntohl(reinterpret_cast<const sockaddr_in*>(entry->ifa_netmask)->sin_addr.s_addr);
            item.prefixLength = std::popcount(mask);
        }
        item.flags = entry->ifa_flags;
        result.push_back(std::move(item));
    }
    ::freeifaddrs(list);
    return result;
}

bool isEligibleForDiscovery(const InterfaceAddress& entry)
{
    const unsigned required = IFF_UP | IFF_RUNNING | IFF_BROADCAST;
    return (entry.flags & required) == required && (entry.flags & (IFF_LOOPBACK | IFF_POINTOPOINT)) == 0 &&
           entry.address != 0;
}

std::vector<InterfaceAddress> eligibleForDiscovery(const std::vector<InterfaceAddress>& all)
{
    std::vector<InterfaceAddress> eligible;
    for (const auto& entry : all) {
        if (isEligibleForDiscovery(entry))
            eligible.push_back(entry);
    }
    return eligible;
}

bool isInSubnet(std::uint32_t address, const InterfaceAddress& entry)
{
    const std::uint32_t mask = maskOf(entry.prefixLength);
    return (address & mask) == (entry.address & mask);
}

bool isWrongSubnet(std::uint32_t unitAddress, const InterfaceAddress& heardOn, const std::vector<Route>& routes)
{
    return isEligibleForDiscovery(heardOn) && !isInSubnet(unitAddress, heardOn) &&
           !isRoutedThrough(unitAddress, heardOn.index, routes);
}

std::optional<InterfaceAddress> findArrivalInterface(const std::vector<InterfaceAddress>& all, unsigned index,
                                                     std::uint32_t localAddress)
{
    const InterfaceAddress* first = nullptr;
    for (const auto& entry : all) {
        if (entry.index != index)
            continue;
        if (entry.address == localAddress)
            return entry;
        if (first == nullptr)
            first = &entry;
    }
    if (first == nullptr)
        return std::nullopt;
    return *first;
}

std::string heardOnText(const InterfaceAddress& entry)
{
    return entry.name + " \u00b7 " + Settings::Ipv4(entry.address).toString() + "/" + std::to_string(entry.prefixLength);
}

std::string subnetText(const InterfaceAddress& entry)
{
    return Settings::Ipv4(entry.address & maskOf(entry.prefixLength)).toString() + "/" + std::to_string(entry.prefixLength);
}

}  // namespace Vorn
