// SPDX-License-Identifier: Apache-2.0
#include "Ipv4.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

TEST(Ipv4, DottedQuadParsesToHostOrderAndFormatsBack)
{
    EXPECT_EQ(Ipv4::parse("10.232.1.2"), Ipv4(0x0AE80102u));
    EXPECT_EQ(Ipv4(0x0AE80102u).toString(), "10.232.1.2");
    EXPECT_EQ(Ipv4().toString(), "0.0.0.0");
    EXPECT_EQ(Ipv4::parse("255.255.255.255"), Ipv4(0xFFFFFFFFu));
}

TEST(Ipv4, OctetsAreFirstOctetFirst)
{
    EXPECT_EQ(Ipv4::fromOctets({224, 0, 0, 200}).octets(), (std::array<std::uint8_t, 4>{224, 0, 0, 200}));
    EXPECT_EQ(Ipv4::fromOctets({192, 168, 1, 1}).toString(), "192.168.1.1");
}

TEST(Ipv4, OctetAbove255IsNoAddress)
{
    EXPECT_EQ(Ipv4::parse("192.168.1.300"), std::nullopt);
    EXPECT_EQ(Ipv4::parse("1.2.3.256"), std::nullopt);
}

TEST(Ipv4, ThreeOrFivePiecesAreNoAddress)
{
    EXPECT_EQ(Ipv4::parse("192.168.1"), std::nullopt);
    EXPECT_EQ(Ipv4::parse("1.2.3.4.5"), std::nullopt);
    EXPECT_EQ(Ipv4::parse("1.2.3.4."), std::nullopt);
}

TEST(Ipv4, EmptyPieceOrEmptyTextIsNoAddress)
{
    EXPECT_EQ(Ipv4::parse("192.168..1"), std::nullopt);
    EXPECT_EQ(Ipv4::parse(""), std::nullopt);
    EXPECT_EQ(Ipv4::parse("..."), std::nullopt);
}

TEST(Ipv4, BlanksAndLettersAreNoAddress)
{
    EXPECT_EQ(Ipv4::parse(" 192.168.1.1"), std::nullopt);
    EXPECT_EQ(Ipv4::parse("192.168.1.1 "), std::nullopt);
    EXPECT_EQ(Ipv4::parse("host"), std::nullopt);
    EXPECT_EQ(Ipv4::parse("1.2.3.0x4"), std::nullopt);
}

TEST(Ipv4, SignsAndLeadingZerosAreAcceptedAndDroppedWhenFormatted)
{
    EXPECT_EQ(Ipv4::parse("+1.2.3.4"), Ipv4::parse("1.2.3.4"));
    EXPECT_EQ(Ipv4::parse("-0.0.0.0"), Ipv4());
    EXPECT_EQ(canonicalIpv4("010.232.01.001"), "10.232.1.1");
    EXPECT_EQ(Ipv4::parse("-1.0.0.0"), std::nullopt);
}

TEST(Ipv4, OrdersByNumericValue)
{
    EXPECT_LT(*Ipv4::parse("10.0.0.9"), *Ipv4::parse("10.0.0.10"));
}

}  // namespace
}  // namespace Settings
