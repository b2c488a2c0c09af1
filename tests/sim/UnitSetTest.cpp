// SPDX-License-Identifier: Apache-2.0
#include "UnitSet.h"

#include <gtest/gtest.h>

namespace VornSim {
namespace {

std::vector<Unit> threeUnits()
{
    return {Unit{"10.0.0.1", {}, {}}, Unit{"10.0.0.2", {}, {}}, Unit{"10.0.0.3", {}, {}}};
}

TEST(UnitSet, FaultForOneAddressChangesOnlyThatUnit)
{
    auto units = threeUnits();
    const std::vector<FaultOption> faults = {{"10.0.0.2", {.silent = true}}};
    EXPECT_EQ(applyFaultOptions(units, faults), std::nullopt);
    EXPECT_FALSE(units[0].faults.silent);
    EXPECT_TRUE(units[1].faults.silent);
    EXPECT_FALSE(units[2].faults.silent);
}

TEST(UnitSet, FaultForAllChangesEveryUnitAndLaterOptionsRefineIt)
{
    auto units = threeUnits();
    const std::vector<FaultOption> faults = {{"all", {.delay = std::chrono::milliseconds(100)}},
                                             {"10.0.0.3", {.delay = std::chrono::milliseconds(5)}},
                                             {"10.0.0.3", {.cmd = 0xA1}}};
    EXPECT_EQ(applyFaultOptions(units, faults), std::nullopt);
    EXPECT_EQ(units[0].faults.delay, std::chrono::milliseconds(100));
    EXPECT_EQ(units[2].faults, (Faults{std::nullopt, 0xA1, false, 0.0, std::chrono::milliseconds(5)}));
}

TEST(UnitSet, FaultForAnUnknownAddressIsAnError)
{
    auto units = threeUnits();
    const std::vector<FaultOption> faults = {{"10.0.0.9", {.drop = 0.5}}};
    EXPECT_EQ(applyFaultOptions(units, faults), Error{"no unit has the address 10.0.0.9"});
}

TEST(UnitSet, GeneratedUnitsGetTheCommandLineFaults)
{
    Options options;
    options.count = 2;
    options.faults = {{"10.232.1.2", {.reportIp = "10.9.9.9"}}};
    auto units = makeUnits(options);
    ASSERT_TRUE(std::holds_alternative<std::vector<Unit>>(units));
    EXPECT_EQ(std::get<std::vector<Unit>>(units)[1].faults.reportIp, "10.9.9.9");
}

TEST(UnitSet, ExtraUnitOutsideTheRangeKeepsItsAddressInHeaderAndSettings)
{
    Options options;
    options.count = 2;
    options.extraUnits = {{"192.168.0.50", ""}};
    auto made = makeUnits(options);
    ASSERT_TRUE(std::holds_alternative<std::vector<Unit>>(made));
    const auto& units = std::get<std::vector<Unit>>(made);
    ASSERT_EQ(units.size(), 3u);
    EXPECT_EQ(units[2].ip, "192.168.0.50");
    EXPECT_EQ(units[2].config.at("IPAddress"), "192.168.0.50");
    EXPECT_NE(units[2].config.at("Serial"), units[0].config.at("Serial"));
    EXPECT_NE(units[2].config.at("Serial"), units[1].config.at("Serial"));
}

TEST(UnitSet, ExtraUnitUnderAnotherUnitsAddressAnswersWithItsOwnSerial)
{
    Options options;
    options.count = 2;
    options.extraUnits = {{"10.232.1.1", "KT4-DUPL01"}};
    options.faults = {{"10.232.1.1", {.delay = std::chrono::milliseconds(7)}}};
    auto made = makeUnits(options);
    ASSERT_TRUE(std::holds_alternative<std::vector<Unit>>(made));
    const auto& units = std::get<std::vector<Unit>>(made);
    ASSERT_EQ(units.size(), 3u);
    EXPECT_EQ(units[2].ip, units[0].ip);
    EXPECT_EQ(units[2].config.at("Serial"), "KT4-DUPL01");
    EXPECT_NE(units[0].config.at("Serial"), "KT4-DUPL01");
    EXPECT_EQ(units[0].faults.delay, std::chrono::milliseconds(7)) << "a fault reaches every unit at its address";
    EXPECT_EQ(units[2].faults.delay, std::chrono::milliseconds(7));
}

TEST(UnitSet, UnknownFaultAddressFailsTheWholeSet)
{
    Options options;
    options.faults = {{"10.232.1.200", {.silent = true}}};
    EXPECT_TRUE(std::holds_alternative<Error>(makeUnits(options)));
}

TEST(UnitSet, MissingUnitsFileFailsTheWholeSet)
{
    Options options;
    options.unitsFile = "/nonexistent/units.json";
    EXPECT_TRUE(std::holds_alternative<Error>(makeUnits(options)));
}

}  // namespace
}  // namespace VornSim
