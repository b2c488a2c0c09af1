// SPDX-License-Identifier: Apache-2.0
// The editor's text rules: integers read from the unit, their written form,
// the dotted-quad check and the switcher tag.
#include <gtest/gtest.h>

#include "EditorRules.h"

using namespace EditorRules;

namespace {

std::int64_t readBand(const std::string& text)
{
    return liveInteger({{"SwitcherBand", text}}, "SwitcherBand", 7);
}

}  // namespace

TEST(EditorIntegerParse, PlainDigitsParse)
{
    EXPECT_EQ(readBand("5"), 5);
    EXPECT_EQ(readBand("16"), 16);
}

TEST(EditorIntegerParse, LeadingPlusAndMinusAreAccepted)
{
    EXPECT_EQ(readBand("+3"), 3);
    EXPECT_EQ(readBand("-3"), -3);
    EXPECT_EQ(readBand("-0"), 0);
}

TEST(EditorIntegerParse, LeadingZerosAreAccepted)
{
    EXPECT_EQ(readBand("07"), 7);
    EXPECT_EQ(readBand("0012"), 12);
}

TEST(EditorIntegerParse, BlanksAnywhereMakeTheTextUnparsable)
{
    EXPECT_EQ(readBand(" 5"), 7);
    EXPECT_EQ(readBand("5 "), 7);
    EXPECT_EQ(readBand("+ 5"), 7);
    EXPECT_EQ(readBand("\t5"), 7);
}

TEST(EditorIntegerParse, SignWithoutDigitsOrDoubleSignIsUnparsable)
{
    EXPECT_EQ(readBand("+"), 7);
    EXPECT_EQ(readBand("-"), 7);
    EXPECT_EQ(readBand("+-1"), 7);
    EXPECT_EQ(readBand("--1"), 7);
}

TEST(EditorIntegerParse, OtherCharactersAreUnparsable)
{
    EXPECT_EQ(readBand("5a"), 7);
    EXPECT_EQ(readBand("0x10"), 7);
    EXPECT_EQ(readBand("1.0"), 7);
    EXPECT_EQ(readBand("1e3"), 7);
}

TEST(EditorIntegerParse, EmptyTextAndMissingKeyGiveTheFallback)
{
    EXPECT_EQ(readBand(""), 7);
    EXPECT_EQ(liveInteger({}, "SwitcherBand", 7), 7);
    EXPECT_EQ(liveInteger({}, "ScenarioType", 1), 1);
}

TEST(EditorIntegerParse, SixtyFourBitLimitsParseAndOverflowIsUnparsable)
{
    EXPECT_EQ(readBand("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(readBand("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(readBand("9223372036854775808"), 7);
    EXPECT_EQ(readBand("-9223372036854775809"), 7);
    EXPECT_EQ(readBand("99999999999999999999999"), 7);
}

TEST(EditorIntegerText, IsPlainDecimalWithoutPlusOrLeadingZeros)
{
    EXPECT_EQ(integerText(0), "0");
    EXPECT_EQ(integerText(7), "7");
    EXPECT_EQ(integerText(-12), "-12");
    EXPECT_EQ(integerText(INT64_MIN), "-9223372036854775808");
}

TEST(EditorLiveText, MissingKeyGivesTheGivenMissingText)
{
    const Vorn::Config live = {{"Channel", "3"}};
    EXPECT_EQ(liveText(live, "Channel"), "3");
    EXPECT_EQ(liveText(live, "AtemIp"), "");
    EXPECT_EQ(liveText(live, "Wire2Enable", "0"), "0");
}

TEST(DottedQuad, OrdinaryAddressesAreValid)
{
    EXPECT_TRUE(isDottedQuad("192.168.1.1"));
    EXPECT_TRUE(isDottedQuad("255.255.255.0"));
}

TEST(DottedQuad, AllZerosAndAllOnesAreValid)
{
    EXPECT_TRUE(isDottedQuad("0.0.0.0"));
    EXPECT_TRUE(isDottedQuad("255.255.255.255"));
}

TEST(DottedQuad, PieceAbove255IsInvalid)
{
    EXPECT_FALSE(isDottedQuad("192.168.1.300"));
    EXPECT_FALSE(isDottedQuad("256.0.0.0"));
}

TEST(DottedQuad, ThreePiecesAreInvalid)
{
    EXPECT_FALSE(isDottedQuad("192.168.1"));
}

TEST(DottedQuad, FivePiecesAreInvalid)
{
    EXPECT_FALSE(isDottedQuad("1.2.3.4.5"));
}

TEST(DottedQuad, EmptyPieceIsInvalid)
{
    EXPECT_FALSE(isDottedQuad("192.168..1"));
    EXPECT_FALSE(isDottedQuad(".1.2.3"));
}

TEST(DottedQuad, TrailingDotIsInvalid)
{
    EXPECT_FALSE(isDottedQuad("1.2.3.4."));
}

TEST(DottedQuad, LeadingOrTrailingBlankIsInvalid)
{
    EXPECT_FALSE(isDottedQuad(" 192.168.1.1"));
    EXPECT_FALSE(isDottedQuad("192.168.1.1 "));
    EXPECT_FALSE(isDottedQuad("192.168. 1.1"));
}

TEST(DottedQuad, LeadingPlusOnAPieceIsValid)
{
    EXPECT_TRUE(isDottedQuad("+1.2.3.4"));
}

TEST(DottedQuad, MinusZeroIsValid)
{
    EXPECT_TRUE(isDottedQuad("-0.0.0.0"));
}

TEST(DottedQuad, NegativePieceIsInvalid)
{
    EXPECT_FALSE(isDottedQuad("-1.0.0.0"));
}

TEST(DottedQuad, LeadingZerosAreValid)
{
    EXPECT_TRUE(isDottedQuad("010.001.000.255"));
}

TEST(DottedQuad, EmptyTextAndWordsAreInvalid)
{
    EXPECT_FALSE(isDottedQuad(""));
    EXPECT_FALSE(isDottedQuad("a.b.c.d"));
    EXPECT_FALSE(isDottedQuad("..."));
}

TEST(SwitcherTag, IsBandDotModel)
{
    EXPECT_EQ(switcherTag(1, 15), "1.15");
    EXPECT_EQ(switcherTag(-1, 0), "-1.0");
}

TEST(SwitcherTag, TwoIntegersParse)
{
    EXPECT_EQ(parseSwitcherTag("5.9"), (std::pair<std::int64_t, std::int64_t>{5, 9}));
}

TEST(SwitcherTag, UnparsablePiecesAreDroppedBeforeCounting)
{
    EXPECT_EQ(parseSwitcherTag("x.5.9"), (std::pair<std::int64_t, std::int64_t>{5, 9}));
    EXPECT_EQ(parseSwitcherTag("5..9"), (std::pair<std::int64_t, std::int64_t>{5, 9}));
}

TEST(SwitcherTag, OneOrThreeIntegersGiveNothing)
{
    EXPECT_FALSE(parseSwitcherTag("3.x"));
    EXPECT_FALSE(parseSwitcherTag("3.1.2"));
    EXPECT_FALSE(parseSwitcherTag(""));
    EXPECT_FALSE(parseSwitcherTag("3"));
}
