// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <net/if.h>

#include "Ipv4.h"
#include "NetworkInterfaces.h"

namespace {

constexpr unsigned kUsable = IFF_UP | IFF_RUNNING | IFF_BROADCAST;

Vorn::InterfaceAddress entry(const char* address, int prefixLength, unsigned flags = kUsable, unsigned index = 2,
                             const char* name = "eth0")
{
    return {name, index, Settings::Ipv4::parse(address)->value(), prefixLength, flags};
}

std::uint32_t ip(const char* text)
{
    return Settings::Ipv4::parse(text)->value();
}

}  // namespace

TEST(InterfaceEligibility, UpRunningBroadcastInterfaceIsEligible)
{
    EXPECT_TRUE(Vorn::isEligibleForDiscovery(entry("10.77.1.5", 24)));
}

TEST(InterfaceEligibility, DownInterfaceIsNot)
{
    EXPECT_FALSE(Vorn::isEligibleForDiscovery(entry("10.77.1.5", 24, IFF_RUNNING | IFF_BROADCAST)));
}

TEST(InterfaceEligibility, UpButNotRunningIsNot)
{
    EXPECT_FALSE(Vorn::isEligibleForDiscovery(entry("10.77.1.5", 24, IFF_UP | IFF_BROADCAST)));
}

TEST(InterfaceEligibility, InterfaceWithoutBroadcastIsNot)
{
    EXPECT_FALSE(Vorn::isEligibleForDiscovery(entry("10.77.1.5", 24, IFF_UP | IFF_RUNNING)));
}

TEST(InterfaceEligibility, LoopbackIsNot)
{
    EXPECT_FALSE(Vorn::isEligibleForDiscovery(entry("127.0.0.1", 8, kUsable | IFF_LOOPBACK)));
}

TEST(InterfaceEligibility, PointToPointIsNot)
{
    EXPECT_FALSE(Vorn::isEligibleForDiscovery(entry("10.8.0.2", 32, kUsable | IFF_POINTOPOINT)));
}

TEST(InterfaceEligibility, LinkLocalAddressIsEligible)
{
    EXPECT_TRUE(Vorn::isEligibleForDiscovery(entry("169.254.12.7", 16)));
}

TEST(InterfaceEligibility, UnsetAddressIsNot)
{
    EXPECT_FALSE(Vorn::isEligibleForDiscovery(entry("0.0.0.0", 0)));
}

TEST(InterfaceEligibility, EligibleListKeepsOrderAndEveryAliasAddress)
{
    const std::vector<Vorn::InterfaceAddress> all{
        entry("127.0.0.1", 8, kUsable | IFF_LOOPBACK, 1, "lo"),
        entry("10.77.1.5", 24, kUsable, 2, "eth0"),
        entry("192.168.0.9", 24, kUsable, 2, "eth0"),
        entry("10.8.0.2", 32, kUsable | IFF_POINTOPOINT, 3, "tun0"),
        entry("172.16.0.4", 16, kUsable, 4, "wlan0"),
    };
    const auto eligible = Vorn::eligibleForDiscovery(all);
    ASSERT_EQ(eligible.size(), 3u);
    EXPECT_EQ(eligible[0], all[1]);
    EXPECT_EQ(eligible[1], all[2]);
    EXPECT_EQ(eligible[2], all[4]);
}

TEST(SubnetRule, AddressInsideTheSlash24)
{
    EXPECT_TRUE(Vorn::isInSubnet(ip("10.77.1.200"), entry("10.77.1.5", 24)));
}

TEST(SubnetRule, AddressOfANeighbouringSlash24IsOutside)
{
    EXPECT_FALSE(Vorn::isInSubnet(ip("10.77.2.5"), entry("10.77.1.5", 24)));
}

TEST(SubnetRule, FactoryDefaultOutsideTheStudioSubnet)
{
    EXPECT_FALSE(Vorn::isInSubnet(ip("192.168.0.50"), entry("10.77.1.5", 24)));
}

TEST(SubnetRule, WidePrefixTakesInTheWholeRange)
{
    EXPECT_TRUE(Vorn::isInSubnet(ip("10.232.4.9"), entry("10.231.0.1", 12)));
    EXPECT_FALSE(Vorn::isInSubnet(ip("10.240.0.1"), entry("10.231.0.1", 12)));
    EXPECT_FALSE(Vorn::isInSubnet(ip("10.232.4.9"), entry("10.231.0.1", 14)));
}

TEST(SubnetRule, Slash32HoldsOnlyItself)
{
    EXPECT_TRUE(Vorn::isInSubnet(ip("10.1.1.1"), entry("10.1.1.1", 32)));
    EXPECT_FALSE(Vorn::isInSubnet(ip("10.1.1.2"), entry("10.1.1.1", 32)));
}

TEST(SubnetRule, SlashZeroHoldsEverything)
{
    EXPECT_TRUE(Vorn::isInSubnet(ip("203.0.113.9"), entry("10.1.1.1", 0)));
}

TEST(SubnetRule, SubnetTextNamesTheNetwork)
{
    EXPECT_EQ(Vorn::subnetText(entry("10.77.1.5", 24)), "10.77.1.0/24");
    EXPECT_EQ(Vorn::subnetText(entry("169.254.12.7", 16)), "169.254.0.0/16");
}

TEST(SubnetRule, HeardOnTextNamesTheInterfaceAndItsAddress)
{
    EXPECT_EQ(Vorn::heardOnText(entry("10.77.1.5", 24)), entry("10.77.1.5", 24).name + " \u00b7 10.77.1.5/24");
}

TEST(ArrivalInterface, MatchesTheLocalAddressAmongAliases)
{
    const std::vector<Vorn::InterfaceAddress> all{entry("10.77.1.5", 24), entry("192.168.0.9", 24)};
    EXPECT_EQ(Vorn::findArrivalInterface(all, 2, ip("192.168.0.9")), all[1]);
}

TEST(ArrivalInterface, FallsBackToTheInterfacesFirstAddress)
{
    const std::vector<Vorn::InterfaceAddress> all{entry("10.77.1.5", 24), entry("192.168.0.9", 24)};
    EXPECT_EQ(Vorn::findArrivalInterface(all, 2, ip("255.255.255.255")), all[0]);
}

TEST(ArrivalInterface, UnknownIndexFindsNothing)
{
    EXPECT_EQ(Vorn::findArrivalInterface({entry("10.77.1.5", 24)}, 9, ip("10.77.1.5")), std::nullopt);
}

TEST(InterfaceList, HoldsTheLoopbackAddressWithItsFlags)
{
    const auto all = Vorn::readInterfaceAddresses();
    const auto loopback = std::find_if(all.begin(), all.end(), [](const auto& item) {
        return item.address == Settings::Ipv4::parse("127.0.0.1")->value();
    });
    ASSERT_NE(loopback, all.end());
    EXPECT_EQ(loopback->prefixLength, 8);
    EXPECT_NE(loopback->flags & IFF_LOOPBACK, 0u);
    EXPECT_EQ(loopback->index, ::if_nametoindex(loopback->name.c_str()));
    EXPECT_FALSE(Vorn::isEligibleForDiscovery(*loopback));
}
