// SPDX-License-Identifier: Apache-2.0
// Loading the fields from a configuration and comparing them key by key,
// without any client: the rules behind "dirty", save and the network apply.
#include <gtest/gtest.h>

#include "EditorSettings.h"
#include "EditorTestKit.h"

using EditorTest::cleanUnit;

namespace {

bool dirty(const EditorFields& fields, const Vorn::Config& live)
{
    return anyDiffers(compareSettings(fields, live));
}

Vorn::Config saveSet(const EditorFields& fields, const Vorn::Config& live)
{
    return changesOf(compareSettings(fields, live));
}

}  // namespace

TEST(EditorLoad, EmptyConfigurationGivesTheDefaultsOfTheKeyTable)
{
    const EditorFields fields = loadFields({});
    EXPECT_EQ(fields.atemIp, "");
    EXPECT_EQ(fields.atemPort, "");
    EXPECT_EQ(fields.channel, "");
    EXPECT_EQ(fields.band, 7);
    EXPECT_EQ(fields.model, 0);
    EXPECT_EQ(fields.extTally, 0);
    EXPECT_EQ(fields.tallyType, 0);
    EXPECT_EQ(fields.gpioType, 0);
    EXPECT_EQ(fields.ipAddr, "");
    EXPECT_EQ(fields.netmask, "");
    EXPECT_EQ(fields.gateway, "");
    EXPECT_EQ(fields.scene, 1);
    EXPECT_EQ(fields.suppress, 0);
    EXPECT_FALSE(fields.wire2);
    EXPECT_EQ(fields.password, "");
}

TEST(EditorLoad, FreshFieldsEqualTheFieldsOfAnEmptyConfiguration)
{
    EXPECT_EQ(EditorFields{}, loadFields({}));
}

TEST(EditorLoad, EveryKeyReachesItsField)
{
    const EditorFields fields = loadFields({
        {"AtemIp", "10.0.0.5"}, {"AtemPort", "9910"},     {"Channel", "12"},      {"SwitcherBand", "5"},
        {"SwitcherModel", "9"}, {"AtemExtTally", "2"},   {"TallyType", "4"},     {"TallyGpioType", "6"},
        {"IPAddress", "10.0.0.9"}, {"Netmask", "255.0.0.0"}, {"Gateway", "10.0.0.1"}, {"ScenarioType", "3"},
        {"SilenceSuppress", "4"}, {"Wire2Enable", "1"},  {"CallMagic", "pw"},
    });
    EXPECT_EQ(fields.atemIp, "10.0.0.5");
    EXPECT_EQ(fields.atemPort, "9910");
    EXPECT_EQ(fields.channel, "12");
    EXPECT_EQ(fields.band, 5);
    EXPECT_EQ(fields.model, 9);
    EXPECT_EQ(fields.extTally, 2);
    EXPECT_EQ(fields.tallyType, 4);
    EXPECT_EQ(fields.gpioType, 6);
    EXPECT_EQ(fields.ipAddr, "10.0.0.9");
    EXPECT_EQ(fields.netmask, "255.0.0.0");
    EXPECT_EQ(fields.gateway, "10.0.0.1");
    EXPECT_EQ(fields.scene, 3);
    EXPECT_EQ(fields.suppress, 4);
    EXPECT_TRUE(fields.wire2);
    EXPECT_EQ(fields.password, "pw");
}

TEST(EditorLoad, TextFieldsAreTakenAsIs)
{
    const EditorFields fields = loadFields({{"AtemPort", " 99 "}, {"Channel", "abc"}});
    EXPECT_EQ(fields.atemPort, " 99 ");
    EXPECT_EQ(fields.channel, "abc");
}

TEST(EditorLoad, UnparsableIntegersGiveTheirDefaults)
{
    const EditorFields fields = loadFields({{"SwitcherBand", "x"}, {"SwitcherModel", " 1"}, {"ScenarioType", "high"},
                                            {"SilenceSuppress", "9999999999999999999"}});
    EXPECT_EQ(fields.band, 7);
    EXPECT_EQ(fields.model, 0);
    EXPECT_EQ(fields.scene, 1);
    EXPECT_EQ(fields.suppress, 0);
}

TEST(EditorLoad, OnlyTheExactTextOneSwitchesWire2On)
{
    EXPECT_TRUE(loadFields({{"Wire2Enable", "1"}}).wire2);
    EXPECT_FALSE(loadFields({{"Wire2Enable", "true"}}).wire2);
    EXPECT_FALSE(loadFields({{"Wire2Enable", "01"}}).wire2);
    EXPECT_FALSE(loadFields({{"Wire2Enable", "+1"}}).wire2);
}

TEST(EditorDefaults, SceneIsTheReportedIntegerOrOne)
{
    EXPECT_EQ(sceneDefault({{"ScenarioType", "3"}}), 3);
    EXPECT_EQ(sceneDefault({}), 1);
    EXPECT_EQ(sceneDefault({{"ScenarioType", ""}}), 1);
    EXPECT_EQ(sceneDefault({{"ScenarioType", "+4"}}), 4);
}

TEST(EditorDefaults, SuppressionIsTheReportedIntegerOrZero)
{
    EXPECT_EQ(suppressDefault({{"SilenceSuppress", "9"}}), 9);
    EXPECT_EQ(suppressDefault({}), 0);
    EXPECT_EQ(suppressDefault({{"SilenceSuppress", "-"}}), 0);
}

TEST(EditorComparison, LoadedCanonicalConfigurationIsNotDirty)
{
    const Vorn::Config live = cleanUnit({{"AtemIp", "10.0.0.5"}, {"SwitcherBand", "2"}, {"SwitcherModel", "10"},
                                         {"TallyType", "3"},     {"Wire2Enable", "1"},  {"ScenarioType", "0"}});
    EXPECT_FALSE(dirty(loadFields(live), live));
}

TEST(EditorComparison, MissingBandLoadsCleanAndDiffersOnlyFromAnotherBand)
{
    Vorn::Config live = cleanUnit();
    live.erase("SwitcherBand");
    EditorFields fields = loadFields(live);
    EXPECT_EQ(fields.band, 7);
    EXPECT_FALSE(dirty(fields, live));
    fields.band = 5;
    EXPECT_EQ(saveSet(fields, live), (Vorn::Config{{"SwitcherBand", "5"}}));
}

TEST(EditorComparison, NonCanonicalIntegerTextDiffersAndSavesTheCanonicalForm)
{
    const Vorn::Config live = cleanUnit({{"SwitcherBand", "07"}, {"SwitcherModel", "+0"}, {"TallyType", "-0"}});
    EXPECT_EQ(saveSet(loadFields(live), live),
              (Vorn::Config{{"SwitcherBand", "7"}, {"SwitcherModel", "0"}, {"TallyType", "0"}}));
}

TEST(EditorComparison, UnparsableIntegerDiffersAndSavesTheDefault)
{
    const Vorn::Config live = cleanUnit({{"AtemExtTally", "two"}});
    EXPECT_EQ(saveSet(loadFields(live), live), (Vorn::Config{{"AtemExtTally", "0"}}));
}

TEST(EditorComparison, ScenarioAndSuppressionCompareAsIntegersWithTheirDefaults)
{
    // Missing, non-canonical or unparsable: none differs from the loaded value.
    for (const Vorn::Config& live : {cleanUnit(), cleanUnit({{"ScenarioType", "01"}, {"SilenceSuppress", "+0"}}),
                                     cleanUnit({{"ScenarioType", "x"}, {"SilenceSuppress", ""}})}) {
        EXPECT_FALSE(dirty(loadFields(live), live));
    }
}

TEST(EditorComparison, MissingScenarioDiffersOnlyFromAnotherLevel)
{
    const Vorn::Config live = cleanUnit();
    EditorFields fields = loadFields(live);
    fields.scene = 2;
    EXPECT_EQ(saveSet(fields, live), (Vorn::Config{{"ScenarioType", "2"}}));
}

TEST(EditorComparison, MissingWire2CountsAsOff)
{
    const Vorn::Config live = cleanUnit();
    EditorFields fields = loadFields(live);
    EXPECT_FALSE(dirty(fields, live));
    fields.wire2 = true;
    EXPECT_EQ(saveSet(fields, live), (Vorn::Config{{"Wire2Enable", "1"}}));
}

TEST(EditorComparison, MissingIntegerKeysHoldingTheirDefaultsDoNotDiffer)
{
    // A unit that reports only its switcher, or nothing at all, loads clean.
    for (const Vorn::Config& live : {Vorn::Config{{"SwitcherBand", "7"}, {"SwitcherModel", "0"}}, Vorn::Config{}}) {
        EXPECT_FALSE(dirty(loadFields(live), live));
        EXPECT_TRUE(saveSet(loadFields(live), live).empty());
    }
}

TEST(EditorComparison, MissingIntegerKeyDiffersOnceTheFieldLeavesItsDefault)
{
    const Vorn::Config live = {{"SwitcherBand", "7"}};
    EditorFields fields = loadFields(live);
    fields.model = 1;
    fields.extTally = 2;
    fields.tallyType = 3;
    fields.gpioType = 4;
    EXPECT_EQ(saveSet(fields, live), (Vorn::Config{{"SwitcherModel", "1"}, {"AtemExtTally", "2"},
                                                   {"TallyType", "3"}, {"TallyGpioType", "4"}}));
}

TEST(EditorComparison, NetworkKeysNeverMakeTheSettingsDirty)
{
    const Vorn::Config live = cleanUnit({{"IPAddress", "10.0.0.9"}});
    EditorFields fields = loadFields(live);
    fields.ipAddr = "10.0.0.10";
    fields.netmask = "255.0.0.0";
    EXPECT_FALSE(dirty(fields, live));
    EXPECT_TRUE(saveSet(fields, live).empty());
}

TEST(EditorComparison, SettingsAreCheckedInTheirFixedKeyOrder)
{
    const auto keys = compareSettings({}, {});
    std::vector<std::string_view> order;
    for (const auto& key : keys)
        order.push_back(key.key);
    EXPECT_EQ(order, (std::vector<std::string_view>{"AtemIp", "AtemPort", "Channel", "SwitcherBand", "SwitcherModel",
                                                    "AtemExtTally", "TallyType", "TallyGpioType", "ScenarioType",
                                                    "SilenceSuppress", "Wire2Enable", "CallMagic"}));
}

TEST(EditorNetwork, ComparesAsPlainTextInAddressMaskGatewayOrder)
{
    const Vorn::Config live = {{"IPAddress", "10.0.0.9"}, {"Netmask", "255.0.0.0"}};
    EditorFields fields = loadFields(live);
    EXPECT_FALSE(anyDiffers(compareNetwork(fields, live)));
    fields.netmask = "255.000.0.0";
    const auto keys = compareNetwork(fields, live);
    EXPECT_EQ(keys[0].key, "IPAddress");
    EXPECT_EQ(keys[1].key, "Netmask");
    EXPECT_EQ(keys[2].key, "Gateway");
    EXPECT_EQ(changesOf(keys), (Vorn::Config{{"Netmask", "255.000.0.0"}}));
}

TEST(EditorNetwork, ValidOnlyWhenAllThreeAreDottedQuads)
{
    EditorFields fields;
    fields.ipAddr = "10.0.0.9";
    fields.netmask = "255.0.0.0";
    fields.gateway = "10.0.0.1";
    EXPECT_TRUE(networkValid(fields));
    fields.gateway = "10.0.0";
    EXPECT_FALSE(networkValid(fields));
    EXPECT_FALSE(networkValid(EditorFields{}));
}
