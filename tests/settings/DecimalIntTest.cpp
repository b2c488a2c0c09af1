// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "DecimalInt.h"

using Vorn::parseDecimal;

TEST(DecimalInt, PlainDigitsParse) { EXPECT_EQ(parseDecimal("42"), 42); }
TEST(DecimalInt, LeadingPlusAccepted) { EXPECT_EQ(parseDecimal("+7"), 7); }
TEST(DecimalInt, LeadingMinusGivesNegative) { EXPECT_EQ(parseDecimal("-12"), -12); }
TEST(DecimalInt, MinusZeroIsZero) { EXPECT_EQ(parseDecimal("-0"), 0); }
TEST(DecimalInt, LeadingZerosAccepted) { EXPECT_EQ(parseDecimal("007"), 7); }
TEST(DecimalInt, EmptyTextIsUnparsable) { EXPECT_EQ(parseDecimal(""), std::nullopt); }
TEST(DecimalInt, LoneSignIsUnparsable)
{
    EXPECT_EQ(parseDecimal("+"), std::nullopt);
    EXPECT_EQ(parseDecimal("-"), std::nullopt);
}
TEST(DecimalInt, BlanksAreNotAccepted)
{
    EXPECT_EQ(parseDecimal(" 5"), std::nullopt);
    EXPECT_EQ(parseDecimal("5 "), std::nullopt);
    EXPECT_EQ(parseDecimal("- 5"), std::nullopt);
}
TEST(DecimalInt, DoubleSignIsUnparsable) { EXPECT_EQ(parseDecimal("+-5"), std::nullopt); }
TEST(DecimalInt, NonDigitsAreUnparsable)
{
    EXPECT_EQ(parseDecimal("1e3"), std::nullopt);
    EXPECT_EQ(parseDecimal("0x10"), std::nullopt);
    EXPECT_EQ(parseDecimal("3.0"), std::nullopt);
    EXPECT_EQ(parseDecimal("\xD9\xA3"), std::nullopt);  // ARABIC-INDIC DIGIT THREE
}
TEST(DecimalInt, LimitsOfSixtyFourBitsParse)
{
    EXPECT_EQ(parseDecimal("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(parseDecimal("-9223372036854775808"), INT64_MIN);
}
TEST(DecimalInt, OverflowIsUnparsable)
{
    EXPECT_EQ(parseDecimal("9223372036854775808"), std::nullopt);
    EXPECT_EQ(parseDecimal("-9223372036854775809"), std::nullopt);
    EXPECT_EQ(parseDecimal("99999999999999999999999"), std::nullopt);
}
