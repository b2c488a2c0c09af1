// SPDX-License-Identifier: Apache-2.0
#include "HostAddresses.h"

#include <gtest/gtest.h>

namespace VornSim {
namespace {

Settings::Ipv4 address(const char* text)
{
    return *Settings::Ipv4::parse(text);
}

TEST(HostAddresses, NextHostSkipsZeroAndBroadcastHostParts)
{
    EXPECT_EQ(nextHostAddress(address("10.0.0.1")), address("10.0.0.2"));
    EXPECT_EQ(nextHostAddress(address("10.0.0.254")), address("10.0.1.1"));
    EXPECT_EQ(nextHostAddress(address("10.0.255.254")), address("10.1.0.1"));
    EXPECT_EQ(nextHostAddress(address("255.255.255.254")), std::nullopt);
}

TEST(HostAddresses, FirstHostMovesOffZeroAndBroadcastHostParts)
{
    EXPECT_EQ(firstHostAddressFrom(address("10.0.0.7")), address("10.0.0.7"));
    EXPECT_EQ(firstHostAddressFrom(address("10.0.0.0")), address("10.0.0.1"));
    EXPECT_EQ(firstHostAddressFrom(address("10.0.0.255")), address("10.0.1.1"));
}

}  // namespace
}  // namespace VornSim
