// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <net/if.h>
#include <net/route.h>

#include "Ipv4.h"
#include "NetworkInterfaces.h"
#include "Routes.h"

namespace {

constexpr unsigned kUsable = IFF_UP | IFF_RUNNING | IFF_BROADCAST;
constexpr unsigned kStudioIndex = 3;
constexpr unsigned kOfficeIndex = 2;

std::uint32_t ip(const char* text)
{
    return Settings::Ipv4::parse(text)->value();
}

Vorn::Route route(const char* destination, const char* mask, const char* gateway, unsigned index, int metric = 0)
{
    const unsigned flags = RTF_UP | (ip(gateway) != 0 ? RTF_GATEWAY : 0);
    return {index == kStudioIndex ? "studio" : "office", index, ip(destination), ip(mask), ip(gateway), flags, metric};
}

// A console with an office link holding the default route and a studio link
// 10.77.2.1/24 behind which a router (10.77.2.2) reaches 10.78.5.0/24.
std::vector<Vorn::Route> consoleRoutes()
{
    return {
        route("0.0.0.0", "0.0.0.0", "10.231.0.2", kOfficeIndex),
        route("10.224.0.0", "255.240.0.0", "0.0.0.0", kOfficeIndex),
        route("10.77.2.0", "255.255.255.0", "0.0.0.0", kStudioIndex),
        route("10.78.5.0", "255.255.255.0", "10.77.2.2", kStudioIndex),
    };
}

Vorn::InterfaceAddress studio()
{
    return {"studio", kStudioIndex, ip("10.77.2.1"), 24, kUsable};
}

Vorn::InterfaceAddress office()
{
    return {"office", kOfficeIndex, ip("10.231.0.1"), 12, kUsable};
}

}  // namespace

TEST(RouteTable, ParsesTheKernelsLayoutWithAddressesInNetworkOrder)
{
    const auto routes = Vorn::parseRouteTable(
        "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n"
        "eth0\t00000000\t010200C0\t0003\t0\t0\t100\t00000000\t0\t0\t0\n"
        "eth0\t000200C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\t0\t0\n");
    ASSERT_EQ(routes.size(), 2u);
    EXPECT_EQ(routes[0], (Vorn::Route{"eth0", 0, 0, 0, ip("192.0.2.1"), RTF_UP | RTF_GATEWAY, 100}));
    EXPECT_EQ(routes[1], (Vorn::Route{"eth0", 0, ip("192.0.2.0"), ip("255.255.255.0"), 0, RTF_UP, 0}));
}

TEST(RouteTable, LinesThatDoNotReadAreSkipped)
{
    const auto routes = Vorn::parseRouteTable("Iface\tDestination\n"
                                               "eth0\tnothex\t00000000\t0001\t0\t0\t0\t00FFFFFF\n"
                                               "eth0\t000200C0\n"
                                               "\n"
                                               "eth1\t000200C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\t0\t0");
    ASSERT_EQ(routes.size(), 1u);
    EXPECT_EQ(routes[0].interfaceName, "eth1");
}

TEST(RouteTable, EmptyTextHasNoRoutes)
{
    EXPECT_TRUE(Vorn::parseRouteTable("").empty());
}

TEST(RouteTable, ThisHostsTableReadsWithIndexesOfItsInterfaces)
{
    for (const auto& entry : Vorn::readRoutes())
        EXPECT_EQ(entry.interfaceIndex, ::if_nametoindex(entry.interfaceName.c_str())) << entry.interfaceName;
}

TEST(RouteChoice, LongestPrefixWins)
{
    const auto chosen = Vorn::routeTo(ip("10.78.5.129"), consoleRoutes());
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->gateway, ip("10.77.2.2"));
    EXPECT_EQ(Vorn::routeTo(ip("203.0.113.9"), consoleRoutes())->destination, 0u);
}

TEST(RouteChoice, LowerMetricWinsAmongEqualPrefixes)
{
    auto routes = consoleRoutes();
    routes.push_back(route("10.78.5.0", "255.255.255.0", "10.231.0.9", kOfficeIndex, -1));
    EXPECT_EQ(Vorn::routeTo(ip("10.78.5.129"), routes)->interfaceIndex, kOfficeIndex);
}

TEST(RouteChoice, RouteThatIsNotUpIsNotChosenAndNoMatchGivesNone)
{
    auto routes = consoleRoutes();
    routes[3].flags &= ~static_cast<unsigned>(RTF_UP);
    EXPECT_EQ(Vorn::routeTo(ip("10.78.5.129"), routes)->interfaceIndex, kOfficeIndex);
    routes.erase(routes.begin());
    EXPECT_EQ(Vorn::routeTo(ip("203.0.113.9"), routes), std::nullopt);
}

TEST(WrongSubnet, UnitOutsideTheInterfacesSubnetWithoutARouteIsWrong)
{
    EXPECT_TRUE(Vorn::isWrongSubnet(ip("192.168.0.50"), studio(), {}));
    EXPECT_TRUE(Vorn::isWrongSubnet(ip("192.168.0.50"), studio(), consoleRoutes()));
}

TEST(WrongSubnet, UnitBehindAGatewayOnTheInterfaceItAnsweredOnIsNotWrong)
{
    EXPECT_FALSE(Vorn::isWrongSubnet(ip("10.78.5.129"), studio(), consoleRoutes()));
}

TEST(WrongSubnet, UnitReachedOnlyByTheDefaultRouteIsStillWrong)
{
    // Heard on the office link, whose gateway holds the default route only.
    EXPECT_TRUE(Vorn::isWrongSubnet(ip("203.0.113.9"), office(), consoleRoutes()));
}

TEST(WrongSubnet, RouteThroughAnotherInterfaceDoesNotCount)
{
    // 10.78.5.0/24 is routed via the studio link, but the unit answered on the office link.
    EXPECT_TRUE(Vorn::isWrongSubnet(ip("10.78.5.129"), office(), consoleRoutes()));
}

TEST(WrongSubnet, RouteWithoutGatewayDoesNotCount)
{
    auto routes = consoleRoutes();
    routes.push_back(route("192.168.0.0", "255.255.255.0", "0.0.0.0", kStudioIndex));
    EXPECT_TRUE(Vorn::isWrongSubnet(ip("192.168.0.50"), studio(), routes));
}

TEST(WrongSubnet, UnitInsideTheSubnetIsNeverWrong)
{
    EXPECT_FALSE(Vorn::isWrongSubnet(ip("10.77.2.40"), studio(), {}));
}
