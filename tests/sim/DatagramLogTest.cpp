// SPDX-License-Identifier: Apache-2.0
#include "DatagramLog.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace VornSim {
namespace {

TEST(DatagramLog, LineIsOneJsonObjectWithLowercaseHexBytes)
{
    const Datagram datagram{{0x3A, 0x62, 0x7F, 0x3D, 0x00, 0xAB}, "10.232.0.50", 50123, "255.255.255.255"};
    const std::chrono::system_clock::time_point at{std::chrono::milliseconds(1'700'000'000'250)};
    const auto line = logLine(datagram, at);
    EXPECT_EQ(line.find('\n'), std::string::npos);
    const auto json = nlohmann::json::parse(line);
    EXPECT_DOUBLE_EQ(json.at("time").get<double>(), 1700000000.25);
    EXPECT_EQ(json.at("src"), "10.232.0.50");
    EXPECT_EQ(json.at("sport"), 50123);
    EXPECT_EQ(json.at("dst"), "255.255.255.255");
    EXPECT_EQ(json.at("bytes"), "3a627f3d00ab");
}

TEST(DatagramLog, KeysComeInAFixedOrder)
{
    const auto line = logLine(Datagram{{}, "1.2.3.4", 1, "5.6.7.8"}, std::chrono::system_clock::time_point{});
    EXPECT_EQ(line, R"({"time":0.0,"src":"1.2.3.4","sport":1,"dst":"5.6.7.8","bytes":""})");
}

}  // namespace
}  // namespace VornSim
