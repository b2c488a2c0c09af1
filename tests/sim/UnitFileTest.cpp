// SPDX-License-Identifier: Apache-2.0
#include "UnitFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

namespace VornSim {
namespace {

std::vector<Unit> loaded(std::string_view json)
{
    auto result = parseUnitsJson(json);
    if (const auto* error = std::get_if<Error>(&result))
        ADD_FAILURE() << error->message;
    return std::holds_alternative<Error>(result) ? std::vector<Unit>{} : std::get<std::vector<Unit>>(result);
}

std::string errorOf(std::string_view json)
{
    auto result = parseUnitsJson(json);
    const auto* error = std::get_if<Error>(&result);
    return error ? error->message : "(no error)";
}

TEST(UnitFile, UnitHasExactlyTheConfigurationGiven)
{
    const auto units = loaded(R"([{"ip": "10.0.0.5", "config": {"Channel": "7", "AtemIp": "10.0.0.9"}}])");
    ASSERT_EQ(units.size(), 1u);
    EXPECT_EQ(units[0].ip, "10.0.0.5");
    EXPECT_EQ(units[0].config, (Vorn::Config{{"AtemIp", "10.0.0.9"}, {"Channel", "7"}}));
    EXPECT_FALSE(units[0].config.contains("AtemPort"));
    EXPECT_FALSE(units[0].config.contains("IPAddress"));
    EXPECT_EQ(units[0].faults, Faults{});
}

TEST(UnitFile, UnitWithoutConfigReportsNothing)
{
    const auto units = loaded(R"([{"ip": "10.0.0.5"}])");
    ASSERT_EQ(units.size(), 1u);
    EXPECT_TRUE(units[0].config.empty());
}

TEST(UnitFile, WriteFaultsAreRead)
{
    const auto units = loaded(R"([{"ip": "10.0.0.5", "ignoreWrites": true}, {"ip": "10.0.0.6", "keepKey": "Channel"}])");
    ASSERT_EQ(units.size(), 2u);
    EXPECT_TRUE(units[0].faults.ignoreWrites);
    EXPECT_EQ(units[1].faults.keepKey, "Channel");
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0.5", "ignoreWrites": 1}])"), "unit 0: \"ignoreWrites\" must be true or false");
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0.5", "keepKey": ""}])"), "unit 0: \"keepKey\" must be a key text");
}

TEST(UnitFile, AddressIsKeptInItsPlainForm)
{
    EXPECT_EQ(loaded(R"([{"ip": "010.0.0.05"}])").at(0).ip, "10.0.0.5");
}

TEST(UnitFile, WholeNumberValuesBecomeText)
{
    EXPECT_EQ(loaded(R"([{"ip": "10.0.0.5", "config": {"AtemPort": 9910}}])")[0].config.at("AtemPort"), "9910");
}

TEST(UnitFile, EveryFaultIsRead)
{
    const auto units = loaded(R"([
        {"ip": "10.0.0.1", "reportIp": "10.0.0.99", "cmd": 161, "silent": true, "drop": 0.5, "delayMs": 200},
        {"ip": "10.0.0.2", "cmd": "0xA1"}])");
    ASSERT_EQ(units.size(), 2u);
    EXPECT_EQ(units[0].faults, (Faults{"10.0.0.99", 0xA1, true, 0.5, std::chrono::milliseconds(200)}));
    EXPECT_EQ(units[1].faults.cmd, 0xA1);
}

TEST(UnitFile, InvalidJsonIsReported)
{
    EXPECT_EQ(errorOf("[{\"ip\": "), "not valid JSON");
    EXPECT_EQ(errorOf(""), "not valid JSON");
}

TEST(UnitFile, DocumentMustBeANonEmptyArray)
{
    EXPECT_EQ(errorOf(R"({"ip": "10.0.0.1"})"), "expected a non-empty JSON array of units");
    EXPECT_EQ(errorOf("[]"), "expected a non-empty JSON array of units");
}

TEST(UnitFile, BadUnitsAreNamedByPosition)
{
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0.1"}, 5])"), "unit 1: must be an object");
    EXPECT_EQ(errorOf(R"([{"config": {}}])"), "unit 0: \"ip\" is missing");
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0"}])"), "unit 0: \"ip\" must be an IPv4 address text");
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0.1", "config": []}])"), "unit 0: \"config\" must be an object");
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0.1", "config": {"Channel": [1]}}])"),
              "unit 0: config value of 'Channel' must be text or a whole number");
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0.1", "colour": "red"}])"), "unit 0: unknown field \"colour\"");
}

TEST(UnitFile, BadFaultValuesAreRejected)
{
    EXPECT_NE(errorOf(R"([{"ip": "10.0.0.1", "reportIp": "nowhere"}])"), "(no error)");
    EXPECT_NE(errorOf(R"([{"ip": "10.0.0.1", "cmd": 300}])"), "(no error)");
    EXPECT_NE(errorOf(R"([{"ip": "10.0.0.1", "cmd": "A1"}])"), "(no error)");
    EXPECT_NE(errorOf(R"([{"ip": "10.0.0.1", "silent": "yes"}])"), "(no error)");
    EXPECT_EQ(errorOf(R"([{"ip": "10.0.0.1", "drop": 1.5}])"), "unit 0: \"drop\" must be a number 0..1");
    EXPECT_NE(errorOf(R"([{"ip": "10.0.0.1", "delayMs": -1}])"), "(no error)");
}

TEST(UnitFile, FileIsReadFromDisk)
{
    const std::string path = ::testing::TempDir() + "vorn_sim_units_test.json";
    std::ofstream(path) << R"([{"ip": "10.0.0.7", "config": {"Serial": "ABC"}}])";
    auto result = loadUnitsFile(path);
    std::remove(path.c_str());
    ASSERT_TRUE(std::holds_alternative<std::vector<Unit>>(result));
    EXPECT_EQ(std::get<std::vector<Unit>>(result)[0].config.at("Serial"), "ABC");
}

TEST(UnitFile, UnreadableFileIsReported)
{
    auto result = loadUnitsFile("/nonexistent/units.json");
    ASSERT_TRUE(std::holds_alternative<Error>(result));
    EXPECT_EQ(std::get<Error>(result).message, "cannot read units file '/nonexistent/units.json'");
}

TEST(UnitFile, FileErrorsNameTheFile)
{
    const std::string path = ::testing::TempDir() + "vorn_sim_units_bad.json";
    std::ofstream(path) << "not json";
    auto result = loadUnitsFile(path);
    std::remove(path.c_str());
    ASSERT_TRUE(std::holds_alternative<Error>(result));
    EXPECT_EQ(std::get<Error>(result).message, "units file '" + path + "': not valid JSON");
}

}  // namespace
}  // namespace VornSim
