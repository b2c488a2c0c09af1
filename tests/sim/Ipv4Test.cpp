#include "Ipv4.h"

#include <gtest/gtest.h>

namespace VornSim {
namespace {

TEST(Ipv4, DottedQuadParsesToHostOrderAndFormatsBack)
{
    EXPECT_EQ(parseIpv4("10.232.1.2"), 0x0AE80102u);
    EXPECT_EQ(formatIpv4(0x0AE80102u), "10.232.1.2");
    EXPECT_EQ(formatIpv4(0), "0.0.0.0");
}

TEST(Ipv4, MalformedTextIsNoAddress)
{
    for (const char* text : {"", "10.232.1", "10.232.1.256", "10.232.1.1.", " 10.232.1.1", "10.232.01.1", "host"})
        EXPECT_EQ(parseIpv4(text), std::nullopt) << text;
}

TEST(Ipv4, NextHostSkipsZeroAndBroadcastHostParts)
{
    EXPECT_EQ(nextHostAddress(*parseIpv4("10.0.0.1")), parseIpv4("10.0.0.2"));
    EXPECT_EQ(nextHostAddress(*parseIpv4("10.0.0.254")), parseIpv4("10.0.1.1"));
    EXPECT_EQ(nextHostAddress(*parseIpv4("10.0.255.254")), parseIpv4("10.1.0.1"));
    EXPECT_EQ(nextHostAddress(*parseIpv4("255.255.255.254")), std::nullopt);
}

TEST(Ipv4, FirstHostMovesOffZeroAndBroadcastHostParts)
{
    EXPECT_EQ(firstHostAddressFrom(*parseIpv4("10.0.0.7")), parseIpv4("10.0.0.7"));
    EXPECT_EQ(firstHostAddressFrom(*parseIpv4("10.0.0.0")), parseIpv4("10.0.0.1"));
    EXPECT_EQ(firstHostAddressFrom(*parseIpv4("10.0.0.255")), parseIpv4("10.0.1.1"));
}

}  // namespace
}  // namespace VornSim
