// SPDX-License-Identifier: Apache-2.0
// vornctl on a console with two links: an office link holding the default
// route and a studio link without gateway, with a unit outside the studio
// subnet and two units answering under one studio address.
#include <nlohmann/json.hpp>

#include "BackupFile.h"
#include "VornctlTestCase.h"

namespace {

constexpr const char* kFactoryDefault = "KT-FACTORY";

class VornctlOnTwoLinks : public VornctlTestCase {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::TwoLinks; }

    LanTest::Simulator officeUnits() const { return LanTest::Simulator(lan(), {"--count", "1"}, dir()); }

    // 10.77.1.129 answered by two units, and one unit at 192.168.0.50.
    LanTest::Simulator studioUnits() const
    {
        return LanTest::Simulator(lan().studioNs(),
                                  {"--count", "1", "--first-ip", LanTest::IsolatedLan::kFirstStudioUnitAddress,
                                   "--unit", std::string(LanTest::IsolatedLan::kFirstStudioUnitAddress) + "=KT-SECOND",
                                   "--unit",
                                   std::string(LanTest::IsolatedLan::kWrongSubnetAddress) + "=" + kFactoryDefault},
                                  dir());
    }

    std::string studioInterface() const
    {
        return lan().studioLink() + " \u00B7 " + LanTest::IsolatedLan::kStudioConsoleAddress + "/24";
    }
};

nlohmann::json unitAt(const nlohmann::json& units, const std::string& address)
{
    for (const auto& unit : units) {
        if (unit["address"] == address)
            return unit;
    }
    return nullptr;
}

TEST_F(VornctlOnTwoLinks, DiscoverFindsTheUnitsOfBothLinksWithWhereTheyWereHeardAndTheirWarnings)
{
    auto office = officeUnits();
    auto studio = studioUnits();

    const auto run = vornctl({"discover", "--json", "--timeout", "1.5"});

    ASSERT_EQ(run.status, 0) << run.err;
    const auto units = nlohmann::json::parse(run.out);
    ASSERT_EQ(units.size(), 3u) << run.out;
    const auto officeUnit = unitAt(units, LanTest::IsolatedLan::kFirstUnitAddress);
    EXPECT_EQ(officeUnit["interface"],
              lan().officeLink() + " \u00B7 " + LanTest::IsolatedLan::kConsoleAddress + "/12");
    EXPECT_EQ(officeUnit["warnings"], nlohmann::json::array());

    const auto shared = unitAt(units, LanTest::IsolatedLan::kFirstStudioUnitAddress);
    EXPECT_EQ(shared["interface"], studioInterface());
    ASSERT_EQ(shared["warnings"].size(), 1u) << shared.dump();
    EXPECT_EQ(shared["warnings"][0].get<std::string>().rfind("address conflict: serials ", 0), 0u) << shared.dump();
    EXPECT_NE(shared["warnings"][0].get<std::string>().find("KT-SECOND"), std::string::npos) << shared.dump();

    const auto wrong = unitAt(units, LanTest::IsolatedLan::kWrongSubnetAddress);
    EXPECT_EQ(wrong["interface"], studioInterface());
    EXPECT_EQ(wrong["warnings"],
              nlohmann::json::array({"wrong subnet: heard on " + studioInterface() + ", needs an address in 10.77.1.0/24"}));
}

TEST_F(VornctlOnTwoLinks, RestoreReachesTheWrongSubnetUnitThroughTheLinkItWasHeardOn)
{
    auto office = officeUnits();
    auto studio = studioUnits();
    const auto file = textFile(
        Settings::writeBackup({"2026-11-23T00:00:00Z",
                               {{kFactoryDefault, LanTest::IsolatedLan::kWrongSubnetAddress, "",
                                 {{"Serial", kFactoryDefault}, {"Channel", "9"}}}}}),
        "backup.json");

    const auto run = vornctl({"restore", file, "--timeout", "1.5"});

    EXPECT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_NE(run.out.find("verified"), std::string::npos) << run.out;
    const auto log = studio.stopAndReadLog();
    const auto writes = withCommand(log, kWrite);
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_EQ(writes[0].dst, LanTest::IsolatedLan::kWrongSubnetAddress);
    EXPECT_TRUE(withCommand(office.stopAndReadLog(), kWrite).empty());
}

}  // namespace
