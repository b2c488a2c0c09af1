// SPDX-License-Identifier: Apache-2.0
#include "AddressBlock.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

using Kind = AddressBlockProblem::Kind;

AddressBlock block(const char* first, const char* last)
{
    return {*Ipv4::parse(first), *Ipv4::parse(last)};
}

std::variant<AddressBlock, AddressBlockProblem> problem(Kind kind, std::uint64_t size = 0)
{
    return AddressBlockProblem{kind, size};
}

TEST(AddressBlock, SlashTwentyFourCoversItsHostsWithoutNetworkAndBroadcast)
{
    const auto parsed = parseAddressBlock("10.78.5.0/24");
    ASSERT_EQ(parsed, (std::variant<AddressBlock, AddressBlockProblem>(block("10.78.5.1", "10.78.5.254"))));
    const auto addresses = std::get<AddressBlock>(parsed).addresses();
    ASSERT_EQ(addresses.size(), 254u);
    EXPECT_EQ(addresses.front().toString(), "10.78.5.1");
    EXPECT_EQ(addresses.back().toString(), "10.78.5.254");
}

TEST(AddressBlock, SlashThirtyTwoIsOneAddressAndSlashThirtyOneIsBoth)
{
    EXPECT_EQ(parseAddressBlock("10.78.5.7/32"), (std::variant<AddressBlock, AddressBlockProblem>(
                                                     block("10.78.5.7", "10.78.5.7"))));
    EXPECT_EQ(parseAddressBlock("10.78.5.6/31"), (std::variant<AddressBlock, AddressBlockProblem>(
                                                     block("10.78.5.6", "10.78.5.7"))));
    EXPECT_EQ(parseAddressBlock("10.78.5.4/30"), (std::variant<AddressBlock, AddressBlockProblem>(
                                                     block("10.78.5.5", "10.78.5.6"))));
}

TEST(AddressBlock, HostBitsOfACidrAddressAreIgnored)
{
    EXPECT_EQ(parseAddressBlock("10.78.5.77/24"), parseAddressBlock("10.78.5.0/24"));
}

TEST(AddressBlock, SlashTwentyIsTheLargestBlockAndLargerOnesAreRefusedWithTheirSize)
{
    const auto largest = parseAddressBlock("10.78.0.0/20");
    ASSERT_TRUE(std::holds_alternative<AddressBlock>(largest));
    EXPECT_EQ(std::get<AddressBlock>(largest).size(), 4094u);
    EXPECT_EQ(parseAddressBlock("10.78.0.0/19"), problem(Kind::TooLarge, 8192));
    EXPECT_EQ(parseAddressBlock("0.0.0.0/0"), problem(Kind::TooLarge, std::uint64_t{1} << 32));
    EXPECT_EQ(parseAddressBlock("10.1.2.3/0"), problem(Kind::TooLarge, std::uint64_t{1} << 32));
}

TEST(AddressBlock, RangeCoversBothEnds)
{
    const auto parsed = parseAddressBlock("10.78.5.10-10.78.5.99");
    ASSERT_EQ(parsed, (std::variant<AddressBlock, AddressBlockProblem>(block("10.78.5.10", "10.78.5.99"))));
    EXPECT_EQ(std::get<AddressBlock>(parsed).size(), 90u);
}

TEST(AddressBlock, RangeMayCrossOctetsUpToTheLimit)
{
    const auto parsed = parseAddressBlock("10.78.5.0-10.78.20.255");
    ASSERT_TRUE(std::holds_alternative<AddressBlock>(parsed));
    EXPECT_EQ(std::get<AddressBlock>(parsed).size(), 4096u);
    EXPECT_EQ(parseAddressBlock("10.78.5.0-10.78.21.0"), problem(Kind::TooLarge, 4097));
    EXPECT_EQ(parseAddressBlock("0.0.0.0-255.255.255.255"), problem(Kind::TooLarge, std::uint64_t{1} << 32));
}

TEST(AddressBlock, ReversedRangeIsRefused)
{
    EXPECT_EQ(parseAddressBlock("10.78.5.99-10.78.5.10"), problem(Kind::Reversed));
}

TEST(AddressBlock, OneAddressRangeAndOneAddressAlone)
{
    EXPECT_EQ(parseAddressBlock("10.78.5.9-10.78.5.9"), (std::variant<AddressBlock, AddressBlockProblem>(
                                                             block("10.78.5.9", "10.78.5.9"))));
    EXPECT_EQ(parseAddressBlock("10.78.5.9"), parseAddressBlock("10.78.5.9/32"));
}

TEST(AddressBlock, LeadingZerosAreDecimalNotOctal)
{
    EXPECT_EQ(parseAddressBlock("010.078.005.010-010.078.005.020"),
              (std::variant<AddressBlock, AddressBlockProblem>(block("10.78.5.10", "10.78.5.20"))));
    EXPECT_EQ(parseAddressBlock("010.78.5.0/024"), parseAddressBlock("10.78.5.0/24"));
}

TEST(AddressBlock, BlanksAroundTheTextAndTheSeparatorsAreAllowed)
{
    EXPECT_EQ(parseAddressBlock("  10.78.5.0 / 24 "), parseAddressBlock("10.78.5.0/24"));
    EXPECT_EQ(parseAddressBlock(" 10.78.5.10 - 10.78.5.99\t"), parseAddressBlock("10.78.5.10-10.78.5.99"));
}

TEST(AddressBlock, ADashInsideAnOctetIsASignNotTheRange)
{
    EXPECT_EQ(parseAddressBlock("10.78.5.-0-10.78.5.3"), (std::variant<AddressBlock, AddressBlockProblem>(
                                                             block("10.78.5.0", "10.78.5.3"))));
}

TEST(AddressBlock, MalformedTextIsRefused)
{
    for (const char* text : {"", " ", "10.78.5", "10.78.5.0/", "10.78.5.0/33", "10.78.5.0/-1", "10.78.5.0/+24",
                             "10.78.5.0/24/8", "10.78.5.0/2x", "host/24", "10.78.5.1-", "-10.78.5.1",
                             "10.78.5.1--10.78.5.2x", "10.78.5.1-10.78.5.2-10.78.5.3", "10.78.5.256-10.78.5.1",
                             "10.78.5.0/24-10.78.6.0"}) {
        EXPECT_EQ(parseAddressBlock(text), problem(Kind::Malformed)) << '"' << text << '"';
    }
}

}  // namespace
}  // namespace Settings
