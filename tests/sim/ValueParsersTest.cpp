// SPDX-License-Identifier: Apache-2.0
#include "ValueParsers.h"

#include <gtest/gtest.h>

namespace VornSim {
namespace {

TEST(ValueParsers, CommandCodeIsDecimalOrHex)
{
    EXPECT_EQ(parseCommandCode("161"), 0xA1);
    EXPECT_EQ(parseCommandCode("0xA1"), 0xA1);
    EXPECT_EQ(parseCommandCode("0Xa1"), 0xA1);
    EXPECT_EQ(parseCommandCode("0"), 0);
    for (const char* text : {"", "256", "0x", "0x100", "0xA1 ", "A1", "-1"})
        EXPECT_EQ(parseCommandCode(text), std::nullopt) << text;
}

TEST(ValueParsers, FractionMustLieWithinZeroAndOne)
{
    EXPECT_EQ(parseFraction("0"), 0.0);
    EXPECT_EQ(parseFraction("1"), 1.0);
    EXPECT_EQ(parseFraction("0.25"), 0.25);
    for (const char* text : {"", "1.01", "-0.5", "nan", "inf", "0.5x", "1e-1"})
        EXPECT_EQ(parseFraction(text), std::nullopt) << text;
}

TEST(ValueParsers, DelayIsWholeMillisecondsUpToAnHour)
{
    EXPECT_EQ(parseDelay("0"), std::chrono::milliseconds(0));
    EXPECT_EQ(parseDelay("3600000"), kMaxDelay);
    for (const char* text : {"", "-1", "3600001", "1.5", "fast"})
        EXPECT_EQ(parseDelay(text), std::nullopt) << text;
}

}  // namespace
}  // namespace VornSim
