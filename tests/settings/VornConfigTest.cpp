// SPDX-License-Identifier: Apache-2.0
#include "VornConfig.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <stdexcept>

namespace {

std::vector<std::string> keysOf(const Vorn::Config& config)
{
    std::vector<std::string> keys;
    for (const auto& [key, value] : config)
        keys.push_back(key);
    return keys;
}

}  // namespace

TEST(VornConfig, IteratesInByteOrderOfTheKeys)
{
    Vorn::Config config;
    for (const auto* key : {"b", "Z", "a", "10", "9", "A"})
        config[key] = "x";
    EXPECT_EQ(keysOf(config), (std::vector<std::string>{"10", "9", "A", "Z", "a", "b"}));
}

TEST(VornConfig, TheFirstOfRepeatedKeysInALiteralIsKept)
{
    const Vorn::Config config{{"Channel", "1"}, {"Band", "2"}, {"Channel", "3"}};
    EXPECT_EQ(config.size(), 2u);
    EXPECT_EQ(config.at("Channel"), "1");
}

TEST(VornConfig, EmplaceKeepsAValueThatIsThereAndInsertOrAssignReplacesIt)
{
    Vorn::Config config{{"Channel", "1"}};
    const auto [kept, added] = config.emplace("Channel", "2");
    EXPECT_FALSE(added);
    EXPECT_EQ(kept->second, "1");
    const auto [replaced, addedAgain] = config.insert_or_assign("Channel", "3");
    EXPECT_FALSE(addedAgain);
    EXPECT_EQ(replaced->second, "3");
    EXPECT_TRUE(config.insert_or_assign("Band", "4").second);
    EXPECT_TRUE(config.insert({"Model", "5"}).second);
    EXPECT_EQ(config, (Vorn::Config{{"Band", "4"}, {"Channel", "3"}, {"Model", "5"}}));
}

TEST(VornConfig, LookupsByTextAndTheirMisses)
{
    Vorn::Config config{{"AtemIp", "10.0.0.5"}, {"Serial", ""}};
    const std::string_view key = "AtemIp";
    EXPECT_EQ(config.find(key)->second, "10.0.0.5");
    EXPECT_EQ(config.find("Atem"), config.end());
    EXPECT_TRUE(config.contains("Serial"));
    EXPECT_EQ(config.count("Serial"), 1u);
    EXPECT_EQ(config.count("serial"), 0u);
    EXPECT_THROW(static_cast<void>(config.at("Missing")), std::out_of_range);
    EXPECT_EQ(config.lower_bound("B")->first, "Serial");
    EXPECT_EQ(config.lower_bound("Z"), config.end());
}

TEST(VornConfig, IndexingAMissingKeyAddsItEmpty)
{
    Vorn::Config config;
    EXPECT_EQ(config["Channel"], "");
    EXPECT_EQ(config.size(), 1u);
    config["Channel"] = "7";
    EXPECT_EQ(config.at("Channel"), "7");
}

TEST(VornConfig, EraseRemovesOneKeyOrNothing)
{
    Vorn::Config config{{"A", "1"}, {"B", "2"}};
    EXPECT_EQ(config.erase("A"), 1u);
    EXPECT_EQ(config.erase("A"), 0u);
    EXPECT_EQ(config, (Vorn::Config{{"B", "2"}}));
    config.clear();
    EXPECT_TRUE(config.empty());
}

TEST(VornConfig, BehavesLikeAMapUnderRandomEdits)
{
    std::mt19937 random(11);
    Vorn::Config config;
    std::map<std::string, std::string> reference;
    for (int step = 0; step < 20000; ++step) {
        const std::string key = "K" + std::to_string(random() % 60);
        const std::string value = std::to_string(random() % 1000);
        switch (random() % 4) {
        case 0:
            EXPECT_EQ(config.emplace(key, value).second, reference.emplace(key, value).second);
            break;
        case 1:
            EXPECT_EQ(config.insert_or_assign(key, value).second, reference.insert_or_assign(key, value).second);
            break;
        case 2:
            EXPECT_EQ(config.erase(key), reference.erase(key));
            break;
        default:
            config[key] += value;
            reference[key] += value;
        }
    }
    ASSERT_EQ(config.size(), reference.size());
    auto expected = reference.begin();
    for (const auto& [key, value] : config) {
        EXPECT_EQ(key, expected->first);
        EXPECT_EQ(value, expected->second);
        ++expected;
    }
}


TEST(VornConfig, FromEntriesInAnyOrderTheLastValueOfARepeatedKeyWins)
{
    std::vector<Vorn::Config::TextPair> entries{
        {"Channel", "1"}, {"AtemIp", "10.0.0.1"}, {"Channel", "2"}, {"Wire2Enable", "0"}, {"Channel", "3"}};
    const auto config = Vorn::Config::lastValueWins(entries);
    EXPECT_EQ(config, (Vorn::Config{{"AtemIp", "10.0.0.1"}, {"Channel", "3"}, {"Wire2Enable", "0"}}));
}

TEST(VornConfig, FromEntriesAgreesWithInsertOrAssignOneByOne)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<Vorn::Config::value_type> texts;
        Vorn::Config expected;
        for (int i = 0, n = static_cast<int>(random() % 30); i < n; ++i) {
            texts.emplace_back("K" + std::to_string(random() % 12), std::to_string(random() % 100));
            expected.insert_or_assign(texts.back().first, texts.back().second);
        }
        std::vector<Vorn::Config::TextPair> entries(texts.begin(), texts.end());
        EXPECT_EQ(Vorn::Config::lastValueWins(entries), expected);
    }
}
