// SPDX-License-Identifier: Apache-2.0
// The client's view of the host's networks, driven through ingest with a
// chosen arrival interface and a replaced interface list: no traffic.
#include <gtest/gtest.h>

#include <net/if.h>
#include <net/route.h>

#include <QSignalSpy>

#include "Ipv4.h"
#include "ClientTestKit.h"
#include "DeviceListModel.h"

using namespace ClientTest;
using namespace std::chrono_literals;

namespace {

constexpr unsigned kUsable = IFF_UP | IFF_RUNNING | IFF_BROADCAST;
// Made-up interface indexes, far above any real one: should a test ever send
// through one, the send fails instead of leaving the machine.
constexpr unsigned kStudio = 9003;
constexpr unsigned kOffice = 9002;

std::uint32_t ip(const char* text)
{
    return Settings::Ipv4::parse(text)->value();
}

std::vector<Vorn::InterfaceAddress> twoLinks()
{
    return {
        {"lo", 1, ip("127.0.0.1"), 8, kUsable | IFF_LOOPBACK},
        {"office", kOffice, ip("10.231.0.1"), 24, kUsable},
        {"studio", kStudio, ip("10.77.1.5"), 24, kUsable},
        {"studio", kStudio, ip("192.168.10.5"), 24, kUsable},
    };
}

// A route of the console's table through `gateway` on interface `index`.
Vorn::Route route(const char* destination, int prefixLength, const char* gateway, unsigned index)
{
    const std::uint32_t mask = prefixLength == 0 ? 0 : ~std::uint32_t{0} << (32 - prefixLength);
    return {"link", index, ip(destination), mask, ip(gateway), RTF_UP | RTF_GATEWAY, 0};
}

Vorn::Reply report(const std::string& address, const std::string& serial)
{
    return Vorn::Reply{address, Vorn::kCmdReport, {{"Serial", serial}}};
}

class ClientNetworks : public testing::Test {
protected:
    std::unique_ptr<VornClient> client = loopbackClient();
    ManualTime time{client->clock()};
    std::vector<Vorn::InterfaceAddress> links = twoLinks();
    std::vector<Vorn::Route> routes;

    void SetUp() override
    {
        client->setInterfaceReader([this] { return links; });
        client->setRouteReader([this] { return routes; });
    }
    void hear(const std::string& address, const std::string& serial, Vorn::Arrival arrival)
    {
        client->ingest(report(address, serial), arrival);
    }
    QVariantMap data(const char* address) const { return client->deviceData(QString::fromLatin1(address)); }
};

}  // namespace

TEST_F(ClientNetworks, UnitOutsideTheSubnetItWasHeardOnIsWrongSubnet)
{
    hear("192.168.0.50", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    const auto unit = data("192.168.0.50");
    EXPECT_TRUE(unit.value("wrongSubnet").toBool());
    EXPECT_EQ(unit.value("interfaceName").toString(), "studio");
    EXPECT_EQ(unit.value("interfaceSubnet").toString(), "10.77.1.0/24");
    EXPECT_EQ(unit.value("heardOn").toString(), QString::fromUtf8("studio \u00B7 10.77.1.5/24"));
}

TEST_F(ClientNetworks, UnitBehindARouterOnTheInterfaceItAnsweredOnIsNotWrongSubnet)
{
    routes = {route("0.0.0.0", 0, "10.231.0.2", kOffice), route("10.78.5.0", 24, "10.77.1.1", kStudio)};
    client->setRouteReader([this] { return routes; });
    hear("10.78.5.129", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    EXPECT_FALSE(data("10.78.5.129").value("wrongSubnet").toBool());
}

TEST_F(ClientNetworks, UnitReachedOnlyByTheDefaultRouteOrThroughAnotherInterfaceIsStillWrongSubnet)
{
    routes = {route("0.0.0.0", 0, "10.77.1.1", kStudio), route("10.78.5.0", 24, "10.231.0.2", kOffice)};
    client->setRouteReader([this] { return routes; });
    hear("192.168.0.50", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    hear("10.78.5.129", "KT4-0002C9", {kStudio, ip("10.77.1.5")});
    EXPECT_TRUE(data("192.168.0.50").value("wrongSubnet").toBool());
    EXPECT_TRUE(data("10.78.5.129").value("wrongSubnet").toBool());
}

TEST_F(ClientNetworks, RouteAddedLaterClearsTheWarningAndUpdatesTheRows)
{
    hear("10.78.5.129", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    ASSERT_TRUE(data("10.78.5.129").value("wrongSubnet").toBool());
    QSignalSpy updated(client.get(), &VornClient::devicesUpdated);
    routes = {route("10.78.5.0", 24, "10.77.1.1", kStudio)};
    client->setRouteReader([this] { return routes; });
    EXPECT_FALSE(data("10.78.5.129").value("wrongSubnet").toBool());
    EXPECT_EQ(updated.count(), 1);
}

TEST_F(ClientNetworks, UnitInsideItsSubnetIsNot)
{
    hear("10.77.1.20", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    EXPECT_FALSE(data("10.77.1.20").value("wrongSubnet").toBool());
}

TEST_F(ClientNetworks, UnitHeardOnAnAliasAddressIsJudgedByThatAddressesSubnet)
{
    hear("192.168.10.40", "KT4-0001B7", {kStudio, ip("192.168.10.5")});
    const auto unit = data("192.168.10.40");
    EXPECT_FALSE(unit.value("wrongSubnet").toBool());
    EXPECT_EQ(unit.value("heardOn").toString(), QString::fromUtf8("studio \u00B7 192.168.10.5/24"));
}

TEST_F(ClientNetworks, UnitHeardOnLoopbackIsNeverWrongSubnet)
{
    hear("10.232.1.1", "KT4-0001B7", {1, ip("127.0.0.1")});
    const auto unit = data("10.232.1.1");
    EXPECT_FALSE(unit.value("wrongSubnet").toBool());
    EXPECT_EQ(unit.value("heardOn").toString(), QString::fromUtf8("lo \u00B7 127.0.0.1/8"));
}

TEST_F(ClientNetworks, UnknownArrivalLeavesHeardOnEmptyAndNoWarning)
{
    hear("192.168.0.50", "KT4-0001B7", {});
    const auto unit = data("192.168.0.50");
    EXPECT_EQ(unit.value("heardOn").toString(), QString());
    EXPECT_EQ(unit.value("interfaceName").toString(), QString());
    EXPECT_EQ(unit.value("interfaceSubnet").toString(), QString());
    EXPECT_FALSE(unit.value("wrongSubnet").toBool());
}

TEST_F(ClientNetworks, UnitGivenAStudioAddressIsListedThereWithoutTheWarning)
{
    hear("192.168.0.50", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    hear("10.77.1.50", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    EXPECT_FALSE(data("10.77.1.50").value("wrongSubnet").toBool());
    EXPECT_TRUE(data("192.168.0.50").value("wrongSubnet").toBool()) << "the old row stays as it was";
}

TEST_F(ClientNetworks, ListModelShowsBothWarningsAsRoles)
{
    DeviceListModel model;
    model.setClient(client.get());
    hear("192.168.0.50", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    hear("10.77.1.9", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    hear("10.77.1.9", "KT4-0002C9", {kStudio, ip("10.77.1.5")});
    const auto roles = model.roleNames();
    const int wrongSubnet = roles.key("wrongSubnet");
    const int addressConflict = roles.key("addressConflict");
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.data(model.index(0), DeviceListModel::IpRole).toString(), "10.77.1.9");
    EXPECT_FALSE(model.data(model.index(0), wrongSubnet).toBool());
    EXPECT_TRUE(model.data(model.index(0), addressConflict).toBool());
    EXPECT_TRUE(model.data(model.index(1), wrongSubnet).toBool());
    EXPECT_FALSE(model.data(model.index(1), addressConflict).toBool());
}

TEST_F(ClientNetworks, ConflictIsFlaggedThenClearedByTheClockAloneWithAModelChange)
{
    DeviceListModel model;
    model.setClient(client.get());
    hear("10.77.1.9", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    time.advance(2s);
    hear("10.77.1.9", "KT4-0002C9", {kStudio, ip("10.77.1.5")});
    EXPECT_TRUE(client->hasAddressConflict("10.77.1.9"));
    EXPECT_EQ(data("10.77.1.9").value("serialsSeen").toStringList(), (QStringList{"KT4-0001B7", "KT4-0002C9"}));

    // Only the first unit keeps answering.
    time.advance(10s);
    hear("10.77.1.9", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    time.advance(4s);
    client->clock()->tick();
    EXPECT_TRUE(client->hasAddressConflict("10.77.1.9")) << "14 s since the second serial";
    time.advance(1s);
    client->clock()->tick();
    EXPECT_FALSE(client->hasAddressConflict("10.77.1.9"));
    EXPECT_FALSE(data("10.77.1.9").value("addressConflict").toBool());
    EXPECT_EQ(data("10.77.1.9").value("serialsSeen").toStringList(), QStringList{"KT4-0001B7"});
    ASSERT_GE(changes.count(), 1);
    EXPECT_EQ(changes.last().at(0).value<QModelIndex>().row(), 0);
}

TEST_F(ClientNetworks, AnotherSerialAfterFifteenSilentSecondsIsAReplacementNotAConflict)
{
    hear("10.77.1.9", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    time.advance(15s);
    hear("10.77.1.9", "KT4-0002C9", {kStudio, ip("10.77.1.5")});
    EXPECT_FALSE(client->hasAddressConflict("10.77.1.9"));
    EXPECT_EQ(data("10.77.1.9").value("serialsSeen").toStringList(), QStringList{"KT4-0002C9"});
}

TEST_F(ClientNetworks, SerialsSeenIsEmptyOnceTheUnitHasBeenSilentFifteenSeconds)
{
    hear("10.77.1.9", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    time.advance(15s);
    EXPECT_TRUE(data("10.77.1.9").value("serialsSeen").toStringList().isEmpty());
}

TEST_F(ClientNetworks, RepliesWithoutASerialNeverMakeAConflict)
{
    client->ingest(Vorn::Reply{"10.77.1.9", Vorn::kCmdReport, {}}, {kStudio, ip("10.77.1.5")});
    hear("10.77.1.9", "KT4-0001B7", {kStudio, ip("10.77.1.5")});
    EXPECT_FALSE(client->hasAddressConflict("10.77.1.9"));
    EXPECT_EQ(data("10.77.1.9").value("serialsSeen").toStringList(), QStringList{"KT4-0001B7"});
}

TEST_F(ClientNetworks, NetworksListEachEligibleAddressWithItsUnits)
{
    hear("10.77.1.20", "A", {kStudio, ip("10.77.1.5")});
    hear("10.77.1.21", "B", {kStudio, ip("10.77.1.5")});
    hear("10.231.0.9", "C", {kOffice, ip("10.231.0.1")});
    const auto networks = client->networks();
    ASSERT_EQ(networks.size(), 3);
    const auto office = networks[0].toMap();
    EXPECT_EQ(office.value("name").toString(), "office");
    EXPECT_EQ(office.value("address").toString(), "10.231.0.1");
    EXPECT_EQ(office.value("prefixLength").toInt(), 24);
    EXPECT_EQ(office.value("units").toInt(), 1);
    EXPECT_EQ(networks[1].toMap().value("units").toInt(), 2);
    EXPECT_EQ(networks[2].toMap().value("address").toString(), "192.168.10.5");
    EXPECT_EQ(networks[2].toMap().value("units").toInt(), 0);
}

TEST_F(ClientNetworks, NetworksChangeWhenAUnitMovesToAnotherLink)
{
    hear("10.77.1.20", "A", {kStudio, ip("10.77.1.5")});
    QSignalSpy changed(client.get(), &VornClient::networksChanged);
    hear("10.77.1.20", "A", {kStudio, ip("10.77.1.5")});
    EXPECT_EQ(changed.count(), 0) << "the same counts are no change";
    hear("10.77.1.20", "A", {kOffice, ip("10.231.0.1")});
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(client->networks()[0].toMap().value("units").toInt(), 1);
    EXPECT_EQ(client->networks()[1].toMap().value("units").toInt(), 0);
}

TEST_F(ClientNetworks, NoEligibleInterfaceMeansNoNetworks)
{
    links = {{"lo", 1, ip("127.0.0.1"), 8, kUsable | IFF_LOOPBACK}};
    client->setInterfaceReader([this] { return links; });
    EXPECT_TRUE(client->networks().isEmpty());
}

TEST_F(ClientNetworks, ALinkThatAppearsIsReadWhenAReplyArrivesOnIt)
{
    links = {links[0], links[1]};
    client->setInterfaceReader([this] { return links; });
    ASSERT_EQ(client->networks().size(), 1);
    links = twoLinks();
    hear("192.168.0.50", "A", {kStudio, ip("10.77.1.5")});
    EXPECT_EQ(client->networks().size(), 3);
    EXPECT_TRUE(data("192.168.0.50").value("wrongSubnet").toBool());
}

TEST_F(ClientNetworks, AForgottenUnitNoLongerCountsOnItsNetworkNorKeepsItsConflict)
{
    hear("10.77.1.20", "A", {kStudio, ip("10.77.1.5")});
    hear("10.77.1.20", "B", {kStudio, ip("10.77.1.5")});
    hear("10.77.1.21", "C", {kStudio, ip("10.77.1.5")});
    ASSERT_TRUE(client->hasAddressConflict("10.77.1.20"));
    ASSERT_EQ(client->networks()[1].toMap().value("units").toInt(), 2);

    client->forget(QStringLiteral("10.77.1.20"));

    EXPECT_EQ(client->networks()[1].toMap().value("units").toInt(), 1);
    EXPECT_FALSE(client->hasAddressConflict("10.77.1.20"));
}
