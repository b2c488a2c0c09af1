// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "UnitReport.h"

namespace VornCtl {
namespace {

Sighting unit(std::string address, Vorn::Config config)
{
    Sighting sighting;
    sighting.address = std::move(address);
    sighting.config = std::move(config);
    return sighting;
}

TEST(UnitReport, LineShowsTitleSwitcherChannelInterfaceAndWarnings)
{
    EXPECT_EQ(unitLine(unit("10.0.0.1", {{"Serial", "KT400ABC123"}, {"SwitcherBand", "1"}, {"SwitcherModel", "15"},
                                         {"Channel", "7"}})),
              "10.0.0.1  KT400 \u00B7ABC123  Datavideo SE-2200  Ch 7  -  -");
}

TEST(UnitReport, LineOfAUnitReportingLittleUsesTheWindowsDefaults)
{
    // No serial: the address is the title; no switcher: the first preset; no channel: a dash.
    EXPECT_EQ(unitLine(unit("10.0.0.2", {})), "10.0.0.2  10.0.0.2  Blackmagic ATEM  Ch \u2013  -  -");
}

TEST(UnitReport, LineJoinsWarnings)
{
    EXPECT_EQ(unitLine(unit("10.0.0.3", {{"TallyType", "12"}, {"Wire2Enable", "yes"}})),
              "10.0.0.3  10.0.0.3  Blackmagic ATEM  Ch \u2013  -  TallyType \"12\" is outside 0\u20139; "
              "Wire2Enable \"yes\" is neither 1 (on) nor 0 (off)");
}

TEST(UnitReport, NetworkWarningsComeFirst)
{
    auto studio = unit("192.168.0.50", {{"TallyType", "12"}});
    studio.interface = "studio \u00b7 10.77.1.5/24";
    studio.interfaceSubnet = "10.77.1.0/24";
    studio.wrongSubnet = true;
    studio.serials = {"KT4-0000A1", "KT4-0000B2"};
    EXPECT_EQ(unitWarnings(studio),
              (std::vector<std::string>{
                  "wrong subnet: heard on studio \u00b7 10.77.1.5/24, needs an address in 10.77.1.0/24",
                  "address conflict: serials KT4-0000A1, KT4-0000B2", "TallyType \"12\" is outside 0\u20139"}));
    EXPECT_EQ(unitJson(studio)["interface"], "studio \u00b7 10.77.1.5/24");
}

TEST(UnitReport, OneSerialIsNoConflict)
{
    auto single = unit("10.77.1.20", {});
    single.serials = {"KT4-0000A1"};
    EXPECT_TRUE(unitWarnings(single).empty());
}

TEST(UnitReport, JsonHasTheDocumentedFieldsInOrder)
{
    const auto json = unitJson(unit("10.0.0.1", {{"Version", "2.0"}, {"Serial", "S"}, {"Channel", "3"}}));
    std::vector<std::string> fields;
    for (const auto& [field, value] : json.items())
        fields.push_back(field);
    EXPECT_EQ(fields, (std::vector<std::string>{"address", "serial", "title", "firmware", "interface", "warnings",
                                                "config"}));
    EXPECT_EQ(json["serial"], "S");
    EXPECT_EQ(json["firmware"], "2.0");
    EXPECT_EQ(json["config"].dump(), R"({"Channel":"3","Serial":"S","Version":"2.0"})");
}

TEST(UnitReport, ConfigLinesPutWriteKeysFirst)
{
    EXPECT_EQ(configLines({{"Version", "2"}, {"Channel", "3"}, {"IPAddress", "10.0.0.1"}}),
              (std::vector<std::string>{"IPAddress: 10.0.0.1", "Channel: 3", "Version: 2"}));
}

TEST(UnitReport, UnitsSortByAddressValueNotText)
{
    const auto sorted = sortedByAddress({unit("10.0.0.10", {}), unit("10.0.0.9", {}), unit("9.0.0.1", {})});
    EXPECT_EQ(sorted[0].address, "9.0.0.1");
    EXPECT_EQ(sorted[1].address, "10.0.0.9");
    EXPECT_EQ(sorted[2].address, "10.0.0.10");
}

}  // namespace
}  // namespace VornCtl
