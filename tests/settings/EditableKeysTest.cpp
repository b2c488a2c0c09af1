// SPDX-License-Identifier: Apache-2.0
#include "EditableKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <variant>
#include <vector>

#include "EditorFields.h"
#include "SettingKeys.h"

namespace Settings {
namespace {

// A new row needs no change here: the table is read, not counted.
TEST(EditableKeys, TableStartsWithTheSwitcherAddressAndEndsWithTheNetworkKeys)
{
    ASSERT_FALSE(kEditableKeys.empty());
    EXPECT_EQ(kEditableKeys.front().key, "AtemIp");
    EXPECT_EQ(kEditableKeys.back().key, "Gateway");
    const auto firstNetwork = std::find_if(kEditableKeys.begin(), kEditableKeys.end(),
                                           [](const EditableKey& entry) { return entry.network(); });
    EXPECT_TRUE(std::all_of(firstNetwork, kEditableKeys.end(), [](const EditableKey& entry) { return entry.network(); }));
    EXPECT_EQ(findEditableKey("Serial"), nullptr);
    EXPECT_EQ(findEditableKey("Version"), nullptr);
    EXPECT_EQ(findEditableKey("ManagerIp"), nullptr);
}

TEST(EditableKeys, EveryEditableKeyIsAWriteKey)
{
    for (const auto& entry : kEditableKeys) {
        const auto& keys = SettingKeys::kWriteKeys;
        EXPECT_NE(std::find(keys.begin(), keys.end(), entry.key), keys.end()) << entry.key;
    }
}

TEST(EditableKeys, UnknownKeyIsRefused)
{
    EXPECT_EQ(settingRefusal("Bogus", "1"), "unknown key Bogus");
    EXPECT_EQ(settingRefusal("channel", "1"), "unknown key channel");  // case matters
}

TEST(EditableKeys, IntegerWithinRangePasses)
{
    EXPECT_EQ(settingRefusal("TallyType", "9"), std::nullopt);
    EXPECT_EQ(settingRefusal("AtemExtTally", "0"), std::nullopt);
    EXPECT_EQ(settingRefusal("ScenarioType", "+4"), std::nullopt);
    EXPECT_EQ(settingRefusal("SilenceSuppress", "5"), std::nullopt);
    EXPECT_EQ(settingRefusal("SwitcherBand", "-1"), std::nullopt);
}

TEST(EditableKeys, IntegerOutsideRangeIsRefusedWithTheRange)
{
    EXPECT_EQ(settingRefusal("TallyType", "10"), "TallyType \"10\" is outside 0\u20139");
    EXPECT_EQ(settingRefusal("AtemExtTally", "4"), "AtemExtTally \"4\" is outside 0\u20133");
    EXPECT_EQ(settingRefusal("ScenarioType", "-1"), "ScenarioType \"-1\" is outside 0\u20134");
}

TEST(EditableKeys, MalformedIntegerIsRefused)
{
    EXPECT_EQ(settingRefusal("TallyGpioType", " 3"), "TallyGpioType \" 3\" is not a whole number");
    EXPECT_EQ(settingRefusal("SwitcherModel", ""), "SwitcherModel \"\" is not a whole number");
    EXPECT_EQ(settingRefusal("SwitcherBand", "99999999999999999999"),
              "SwitcherBand \"99999999999999999999\" is not a whole number");
}

TEST(EditableKeys, SwitchTakesOnlyOneOrZero)
{
    EXPECT_EQ(settingRefusal("Wire2Enable", "1"), std::nullopt);
    EXPECT_EQ(settingRefusal("Wire2Enable", "0"), std::nullopt);
    EXPECT_EQ(settingRefusal("Wire2Enable", "true"), "Wire2Enable \"true\" is neither 1 (on) nor 0 (off)");
}

TEST(EditableKeys, NetworkKeysFollowTheDottedQuadRule)
{
    EXPECT_EQ(settingRefusal("IPAddress", "10.0.0.1"), std::nullopt);
    EXPECT_EQ(settingRefusal("Netmask", "255.255.0.0"), std::nullopt);
    EXPECT_EQ(settingRefusal("Gateway", "+1.2.3.4"), std::nullopt);
    ASSERT_TRUE(settingRefusal("Gateway", "192.168.1").has_value());
    EXPECT_EQ(settingRefusal("Gateway", "192.168.1")->rfind("Gateway \"192.168.1\" is not an IPv4 address", 0), 0u);
}

TEST(EditableKeys, SwitcherAddressIsEmptyOrADottedQuad)
{
    EXPECT_EQ(settingRefusal("AtemIp", ""), std::nullopt);
    EXPECT_EQ(settingRefusal("AtemIp", "192.168.8.219"), std::nullopt);
    EXPECT_EQ(settingRefusal("AtemIp", "010.0.0.1"), std::nullopt);
    EXPECT_EQ(settingRefusal("AtemIp", "300.1.1.1"),
              "AtemIp \"300.1.1.1\" is not an IPv4 address (four numbers 0\u2013255 joined by dots), nor empty");
    EXPECT_TRUE(settingRefusal("AtemIp", "not an address").has_value());
    EXPECT_TRUE(settingRefusal("AtemIp", " ").has_value());
    const EditableKey* atemIp = findEditableKey("AtemIp");
    ASSERT_NE(atemIp, nullptr);
    EXPECT_TRUE(fitsAddressRule(*atemIp, ""));
    EXPECT_FALSE(fitsAddressRule(*atemIp, "1.2.3"));
    EXPECT_FALSE(fitsAddressRule(*findEditableKey("Gateway"), ""));
    EXPECT_TRUE(fitsAddressRule(*findEditableKey("Channel"), "anything"));
}

TEST(EditableKeys, FreeTextTakesAnythingButLineBreaks)
{
    EXPECT_EQ(settingRefusal("AtemPort", "not a port"), std::nullopt);
    EXPECT_EQ(settingRefusal("CallMagic", ""), std::nullopt);
    EXPECT_EQ(settingRefusal("CallMagic", "x\nIPAddress:10.9.9.9"), "the value of CallMagic holds a line feed (LF)");
}

TEST(EditableKeys, IntegersAreWrittenAsPlainDecimalOtherValuesAsGiven)
{
    EXPECT_EQ(canonicalValue("TallyType", "+07"), "7");
    EXPECT_EQ(canonicalValue("IPAddress", "010.0.0.1"), "010.0.0.1");
    EXPECT_EQ(canonicalValue("Channel", "007"), "007");
}

TEST(EditableKeys, NetworkKeysAreTheThreeAddressSettings)
{
    EXPECT_TRUE(isNetworkKey("IPAddress"));
    EXPECT_TRUE(isNetworkKey("Netmask"));
    EXPECT_TRUE(isNetworkKey("Gateway"));
    EXPECT_FALSE(isNetworkKey("ManagerIp"));
    EXPECT_FALSE(isNetworkKey("AtemIp"));
}

TEST(EditableKeys, TheNetworkRowsAreTheNetworkKeys)
{
    std::vector<std::string_view> network;
    for (const auto& entry : kEditableKeys) {
        if (entry.network())
            network.push_back(entry.key);
        EXPECT_EQ(entry.network(), isNetworkKey(entry.key)) << entry.key;
    }
    EXPECT_EQ(network, (std::vector<std::string_view>{"IPAddress", "Netmask", "Gateway"}));
}

TEST(EditableKeys, AFreshEditorHoldsEveryRowsValueWhenMissing)
{
    const EditorFields fresh;
    for (std::size_t i = 0; i < kEditableKeys.size(); ++i) {
        const EditableKey& entry = kEditableKeys[i];
        if (entry.kind == ValueKind::Integer)
            EXPECT_EQ(fresh.at(i), FieldValue(entry.whenMissing)) << entry.key;
        else if (entry.kind == ValueKind::Switch)
            EXPECT_EQ(fresh.at(i), FieldValue(entry.whenMissing != 0)) << entry.key;
        else
            EXPECT_EQ(fresh.at(i), FieldValue(std::string())) << entry.key;
    }
}

TEST(EditableKeys, EveryRowKeepsItsValueAsItsKindIsEdited)
{
    const EditorFields fresh;
    for (std::size_t i = 0; i < kEditableKeys.size(); ++i) {
        const EditableKey& entry = kEditableKeys[i];
        EXPECT_EQ(rowIndex(entry.key), i);
        // Text and address keys are edited as text, integers as numbers, switches as on/off.
        const bool text = entry.kind == ValueKind::Text || entry.kind == ValueKind::Address
                          || entry.kind == ValueKind::AddressOrEmpty;
        EXPECT_EQ(entry.holdsText(), text) << entry.key;
        EXPECT_EQ(std::holds_alternative<std::string>(fresh.at(i)), text) << entry.key;
        EXPECT_EQ(std::holds_alternative<std::int64_t>(fresh.at(i)), entry.kind == ValueKind::Integer) << entry.key;
        EXPECT_EQ(std::holds_alternative<bool>(fresh.at(i)), entry.kind == ValueKind::Switch) << entry.key;
    }
}

TEST(EditableKeys, APickedIntegerHasOneOptionPerValueAndAStepperABoundedRange)
{
    for (const EditableKey& entry : kEditableKeys) {
        SCOPED_TRACE(std::string(entry.key));
        if (!entry.options.empty()) {
            EXPECT_EQ(entry.kind, ValueKind::Integer);
            EXPECT_EQ(entry.minimum, 0);
            EXPECT_EQ(entry.maximum + 1, static_cast<std::int64_t>(entry.options.size()));
            EXPECT_FALSE(entry.caption);
        }
        if (entry.caption) {
            EXPECT_EQ(entry.kind, ValueKind::Integer);
            // The stepper shows its range as plain ints.
            EXPECT_GE(entry.minimum, std::numeric_limits<int>::min());
            EXPECT_LE(entry.maximum, std::numeric_limits<int>::max());
            EXPECT_LT(entry.maximum - entry.minimum, 1000);
        }
    }
}

TEST(EditableKeys, AKeyOutsideTheTableHasNoRow)
{
    EXPECT_THROW(rowIndex("ManagerIp"), std::out_of_range);
    EXPECT_FALSE(isSecret("ManagerIp"));
    EXPECT_TRUE(isSecret("CallMagic"));
}

TEST(EditableKeys, OnlyTheCallPasswordIsSecret)
{
    for (const auto& entry : kEditableKeys)
        EXPECT_EQ(entry.secret, entry.key == SettingKeys::kCallMagic) << entry.key;
}

}  // namespace
}  // namespace Settings
