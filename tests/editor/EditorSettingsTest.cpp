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
    EXPECT_EQ(fields.text("AtemIp"), "");
    EXPECT_EQ(fields.text("AtemPort"), "");
    EXPECT_EQ(fields.text("Channel"), "");
    EXPECT_EQ(fields.integer("SwitcherBand"), 7);
    EXPECT_EQ(fields.integer("SwitcherModel"), 0);
    EXPECT_EQ(fields.integer("AtemExtTally"), 0);
    EXPECT_EQ(fields.integer("TallyType"), 0);
    EXPECT_EQ(fields.integer("TallyGpioType"), 0);
    EXPECT_EQ(fields.text("IPAddress"), "");
    EXPECT_EQ(fields.text("Netmask"), "");
    EXPECT_EQ(fields.text("Gateway"), "");
    EXPECT_EQ(fields.integer("ScenarioType"), 1);
    EXPECT_EQ(fields.integer("SilenceSuppress"), 0);
    EXPECT_FALSE(fields.on("Wire2Enable"));
    EXPECT_EQ(fields.text("CallMagic"), "");
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
    EXPECT_EQ(fields.text("AtemIp"), "10.0.0.5");
    EXPECT_EQ(fields.text("AtemPort"), "9910");
    EXPECT_EQ(fields.text("Channel"), "12");
    EXPECT_EQ(fields.integer("SwitcherBand"), 5);
    EXPECT_EQ(fields.integer("SwitcherModel"), 9);
    EXPECT_EQ(fields.integer("AtemExtTally"), 2);
    EXPECT_EQ(fields.integer("TallyType"), 4);
    EXPECT_EQ(fields.integer("TallyGpioType"), 6);
    EXPECT_EQ(fields.text("IPAddress"), "10.0.0.9");
    EXPECT_EQ(fields.text("Netmask"), "255.0.0.0");
    EXPECT_EQ(fields.text("Gateway"), "10.0.0.1");
    EXPECT_EQ(fields.integer("ScenarioType"), 3);
    EXPECT_EQ(fields.integer("SilenceSuppress"), 4);
    EXPECT_TRUE(fields.on("Wire2Enable"));
    EXPECT_EQ(fields.text("CallMagic"), "pw");
}

TEST(EditorLoad, TextFieldsAreTakenAsIs)
{
    const EditorFields fields = loadFields({{"AtemPort", " 99 "}, {"Channel", "abc"}});
    EXPECT_EQ(fields.text("AtemPort"), " 99 ");
    EXPECT_EQ(fields.text("Channel"), "abc");
}

TEST(EditorLoad, UnparsableIntegersGiveTheirDefaults)
{
    const EditorFields fields = loadFields({{"SwitcherBand", "x"}, {"SwitcherModel", " 1"}, {"ScenarioType", "high"},
                                            {"SilenceSuppress", "9999999999999999999"}});
    EXPECT_EQ(fields.integer("SwitcherBand"), 7);
    EXPECT_EQ(fields.integer("SwitcherModel"), 0);
    EXPECT_EQ(fields.integer("ScenarioType"), 1);
    EXPECT_EQ(fields.integer("SilenceSuppress"), 0);
}

TEST(EditorLoad, OnlyTheExactTextOneSwitchesWire2On)
{
    EXPECT_TRUE(loadFields({{"Wire2Enable", "1"}}).on("Wire2Enable"));
    EXPECT_FALSE(loadFields({{"Wire2Enable", "true"}}).on("Wire2Enable"));
    EXPECT_FALSE(loadFields({{"Wire2Enable", "01"}}).on("Wire2Enable"));
    EXPECT_FALSE(loadFields({{"Wire2Enable", "+1"}}).on("Wire2Enable"));
}

TEST(EditorDefaults, SceneIsTheReportedIntegerOrOne)
{
    EXPECT_EQ(loadFields({{"ScenarioType", "3"}}).integer("ScenarioType"), 3);
    EXPECT_EQ(loadFields({}).integer("ScenarioType"), 1);
    EXPECT_EQ(loadFields({{"ScenarioType", ""}}).integer("ScenarioType"), 1);
    EXPECT_EQ(loadFields({{"ScenarioType", "+4"}}).integer("ScenarioType"), 4);
}

TEST(EditorDefaults, SuppressionIsTheReportedIntegerOrZero)
{
    EXPECT_EQ(loadFields({{"SilenceSuppress", "9"}}).integer("SilenceSuppress"), 9);
    EXPECT_EQ(loadFields({}).integer("SilenceSuppress"), 0);
    EXPECT_EQ(loadFields({{"SilenceSuppress", "-"}}).integer("SilenceSuppress"), 0);
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
    EXPECT_EQ(fields.integer("SwitcherBand"), 7);
    EXPECT_FALSE(dirty(fields, live));
    fields.integer("SwitcherBand") = 5;
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
    fields.integer("ScenarioType") = 2;
    EXPECT_EQ(saveSet(fields, live), (Vorn::Config{{"ScenarioType", "2"}}));
}

TEST(EditorComparison, MissingWire2CountsAsOff)
{
    const Vorn::Config live = cleanUnit();
    EditorFields fields = loadFields(live);
    EXPECT_FALSE(dirty(fields, live));
    fields.on("Wire2Enable") = true;
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
    fields.integer("SwitcherModel") = 1;
    fields.integer("AtemExtTally") = 2;
    fields.integer("TallyType") = 3;
    fields.integer("TallyGpioType") = 4;
    EXPECT_EQ(saveSet(fields, live), (Vorn::Config{{"SwitcherModel", "1"}, {"AtemExtTally", "2"},
                                                   {"TallyType", "3"}, {"TallyGpioType", "4"}}));
}

TEST(EditorComparison, NetworkKeysNeverMakeTheSettingsDirty)
{
    const Vorn::Config live = cleanUnit({{"IPAddress", "10.0.0.9"}});
    EditorFields fields = loadFields(live);
    fields.text("IPAddress") = "10.0.0.10";
    fields.text("Netmask") = "255.0.0.0";
    EXPECT_FALSE(dirty(fields, live));
    EXPECT_TRUE(saveSet(fields, live).empty());
}

TEST(EditorComparison, SettingsAreCheckedInTheOrderOfTheKeyTable)
{
    std::vector<std::string_view> order;
    for (const auto& key : compareSettings({}, {}))
        order.push_back(key.key);
    std::vector<std::string_view> table;
    for (const auto& row : Settings::kEditableKeys)
        if (!row.network())
            table.push_back(row.key);
    EXPECT_EQ(order, table);
    EXPECT_EQ(order.front(), "AtemIp");
    EXPECT_EQ(order.back(), "CallMagic");
}

TEST(EditorNetwork, ComparesAsPlainTextInAddressMaskGatewayOrder)
{
    const Vorn::Config live = {{"IPAddress", "10.0.0.9"}, {"Netmask", "255.0.0.0"}};
    EditorFields fields = loadFields(live);
    EXPECT_FALSE(anyDiffers(compareNetwork(fields, live)));
    fields.text("Netmask") = "255.000.0.0";
    const auto keys = compareNetwork(fields, live);
    EXPECT_EQ(keys[0].key, "IPAddress");
    EXPECT_EQ(keys[1].key, "Netmask");
    EXPECT_EQ(keys[2].key, "Gateway");
    EXPECT_EQ(changesOf(keys), (Vorn::Config{{"Netmask", "255.000.0.0"}}));
}

TEST(EditorNetwork, ValidOnlyWhenAllThreeAreDottedQuads)
{
    EditorFields fields;
    fields.text("IPAddress") = "10.0.0.9";
    fields.text("Netmask") = "255.0.0.0";
    fields.text("Gateway") = "10.0.0.1";
    EXPECT_TRUE(networkValid(fields));
    fields.text("Gateway") = "10.0.0";
    EXPECT_FALSE(networkValid(fields));
    EXPECT_FALSE(networkValid(EditorFields{}));
}
