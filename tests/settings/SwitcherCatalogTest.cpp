// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <set>

#include "SwitcherCatalog.h"

using SwitcherCatalog::label;

TEST(SwitcherCatalog, UnknownAtemModelIsStillBlackmagicAtem) { EXPECT_EQ(Settings::english(label(7, 3)), "Blackmagic ATEM"); }
TEST(SwitcherCatalog, UnknownCombinationReadsBandAndModel) { EXPECT_EQ(Settings::english(label(5, 2)), "Band 5 / Model 2"); }
TEST(SwitcherCatalog, BandZeroModelZeroIsOther) { EXPECT_EQ(Settings::english(label(0, 0)), "Other"); }
TEST(SwitcherCatalog, MissingKeysValueReadsMinusOne) { EXPECT_EQ(Settings::english(label(-1, -1)), "Band -1 / Model -1"); }
TEST(SwitcherCatalog, DatavideoSe2200IsBandOneModelFifteen) { EXPECT_EQ(Settings::english(label(1, 15)), "Datavideo SE-2200"); }
TEST(SwitcherCatalog, BandOneModelOneHasNoPreset) { EXPECT_EQ(Settings::english(label(1, 1)), "Band 1 / Model 1"); }
TEST(SwitcherCatalog, BandsWithoutPresetReadAsNumbers)
{
    EXPECT_EQ(Settings::english(label(4, 3)), "Band 4 / Model 3");
    EXPECT_EQ(Settings::english(label(8, 0)), "Band 8 / Model 0");
}

TEST(SwitcherCatalog, PresetsKeepTheirOrderAndCodes)
{
    const std::vector<std::tuple<std::string, int, int>> expected = {
        {"Blackmagic ATEM", 7, 0},        {"Datavideo HS-1200", 1, 0}, {"Datavideo SE-2200", 1, 15},
        {"Panasonic AV-HS410", 2, 1},     {"Panasonic KAIROS", 2, 10}, {"Sony MCX-500", 3, 1},
        {"Roland V-60HD", 5, 1},          {"Roland V-160HD", 5, 9},    {"NewTek TriCaster TC1", 6, 2},
        {"DeviceWell HDS7105", 9, 2},     {"vMix", 16, 0},             {"Other", 0, 0},
    };
    ASSERT_EQ(SwitcherCatalog::presets.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const auto& preset = SwitcherCatalog::presets[i];
        EXPECT_EQ(std::string(preset.label), std::get<0>(expected[i]));
        EXPECT_EQ(preset.band, std::get<1>(expected[i]));
        EXPECT_EQ(preset.model, std::get<2>(expected[i]));
    }
}

TEST(SwitcherCatalog, EveryPresetLabelsItsOwnCodes)
{
    for (const auto& preset : SwitcherCatalog::presets)
        EXPECT_EQ(Settings::english(label(preset.band, preset.model)), preset.label);
}

TEST(SwitcherCatalog, PresetCodesAreUnique)
{
    std::set<std::pair<std::int64_t, std::int64_t>> codes;
    for (const auto& preset : SwitcherCatalog::presets)
        EXPECT_TRUE(codes.emplace(preset.band, preset.model).second);
}
