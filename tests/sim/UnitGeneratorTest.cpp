// SPDX-License-Identifier: Apache-2.0
#include "UnitGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "DecimalInt.h"
#include "SwitcherCatalog.h"
#include "VornProtocol.h"

namespace VornSim {
namespace {

std::vector<Unit> generated(std::string_view firstIp, int count, std::uint64_t seed)
{
    auto result = generateUnits(firstIp, count, seed);
    if (const auto* error = std::get_if<Error>(&result))
        ADD_FAILURE() << error->message;
    return std::get<std::vector<Unit>>(result);
}

std::int64_t integer(const Vorn::Config& config, std::string_view key)
{
    const auto value = Vorn::parseDecimal(config.at(std::string(key)));
    EXPECT_TRUE(value) << key;
    return value.value_or(-1);
}

TEST(UnitGenerator, SameSeedGivesTheSameUnits)
{
    EXPECT_EQ(generated("10.232.1.1", 50, 7), generated("10.232.1.1", 50, 7));
}

TEST(UnitGenerator, DifferentSeedsGiveDifferentSettings)
{
    EXPECT_NE(generated("10.232.1.1", 5, 1)[0].config, generated("10.232.1.1", 5, 2)[0].config);
}

TEST(UnitGenerator, AddressesAreConsecutiveAndSkipZeroAndBroadcastHosts)
{
    const auto units = generated("10.232.1.253", 4, 1);
    ASSERT_EQ(units.size(), 4u);
    EXPECT_EQ(units[0].ip, "10.232.1.253");
    EXPECT_EQ(units[1].ip, "10.232.1.254");
    EXPECT_EQ(units[2].ip, "10.232.2.1");
    EXPECT_EQ(units[3].ip, "10.232.2.2");
    for (const auto& unit : units)
        EXPECT_EQ(unit.config.at("IPAddress"), unit.ip);
}

TEST(UnitGenerator, FirstAddressOnAZeroHostStartsAtTheNextHost)
{
    EXPECT_EQ(generated("10.232.1.0", 1, 1)[0].ip, "10.232.1.1");
}

TEST(UnitGenerator, SerialsAreUniqueUppercaseAlphanumerics)
{
    std::set<std::string> serials;
    for (const auto& unit : generated("10.232.1.1", 5000, 1)) {
        const auto& serial = unit.config.at("Serial");
        EXPECT_GE(serial.size(), 10u);
        EXPECT_TRUE(std::all_of(serial.begin(), serial.end(),
                                [](char c) { return std::isdigit(static_cast<unsigned char>(c)) || (c >= 'A' && c <= 'Z'); }))
            << serial;
        serials.insert(serial);
    }
    EXPECT_EQ(serials.size(), 5000u);
}

TEST(UnitGenerator, EveryUnitReportsTheWholeKeySetWithinRange)
{
    for (const auto& unit : generated("10.232.1.1", 300, 3)) {
        for (const auto key : Vorn::kWriteKeys)
            EXPECT_TRUE(unit.config.contains(key)) << key;
        EXPECT_TRUE(unit.config.contains("Version"));
        EXPECT_EQ(unit.config.at("Netmask"), "255.255.0.0");
        EXPECT_GE(integer(unit.config, "Channel"), 1);
        EXPECT_LE(integer(unit.config, "Channel"), 150);
        EXPECT_LE(integer(unit.config, "ScenarioType"), 4);
        EXPECT_LE(integer(unit.config, "SilenceSuppress"), 5);
        EXPECT_LE(integer(unit.config, "TallyType"), 9);
        EXPECT_LE(integer(unit.config, "TallyGpioType"), 9);
        EXPECT_LE(integer(unit.config, "AtemExtTally"), 3);
        EXPECT_TRUE(unit.config.at("Wire2Enable") == "0" || unit.config.at("Wire2Enable") == "1");
        EXPECT_TRUE(unit.faults == Faults{});
    }
}

TEST(UnitGenerator, MostUnitsFollowACatalogSwitcherAndTheUsualPort)
{
    const auto units = generated("10.232.1.1", 1000, 1);
    const auto presetCount = std::count_if(units.begin(), units.end(), [](const Unit& unit) {
        const SwitcherCatalog::SwitcherPreset wanted{"", integer(unit.config, "SwitcherBand"),
                                                     integer(unit.config, "SwitcherModel")};
        return std::any_of(SwitcherCatalog::presets.begin(), SwitcherCatalog::presets.end(), [&](const auto& preset) {
            return preset.band == wanted.band && preset.model == wanted.model;
        });
    });
    const auto usualPort = std::count_if(units.begin(), units.end(),
                                         [](const Unit& unit) { return unit.config.at("AtemPort") == "9910"; });
    EXPECT_GT(presetCount, 700);
    EXPECT_GT(usualPort, 700);
}

TEST(UnitGenerator, RunningOutOfAddressesIsAnError)
{
    auto result = generateUnits("255.255.255.253", 3, 1);
    ASSERT_TRUE(std::holds_alternative<Error>(result));
    EXPECT_EQ(std::get<Error>(result).message, "not enough addresses after 255.255.255.253 for 3 units");
}

TEST(UnitGenerator, MalformedFirstAddressIsAnError)
{
    EXPECT_TRUE(std::holds_alternative<Error>(generateUnits("10.232.1", 1, 1)));
}

}  // namespace
}  // namespace VornSim
