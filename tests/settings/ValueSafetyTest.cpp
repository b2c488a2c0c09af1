// SPDX-License-Identifier: Apache-2.0
#include "ValueSafety.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

using namespace std::string_literals;

std::optional<std::string> text(const std::optional<Message>& refusal)
{
    return refusal ? std::optional(english(*refusal)) : std::nullopt;
}

TEST(ValueSafety, ValueWithLineFeedIsRefusedWithReason)
{
    EXPECT_EQ(text(valueRefusal("CallMagic", "x\nIPAddress:10.9.9.9")), "the value of CallMagic holds a line feed (LF)");
}

TEST(ValueSafety, ValueWithCarriageReturnIsRefused)
{
    EXPECT_EQ(text(valueRefusal("Channel", "3\r")), "the value of Channel holds a carriage return (CR)");
}

TEST(ValueSafety, ValueWithNulIsRefused)
{
    EXPECT_EQ(text(valueRefusal("Channel", "3\0"s)), "the value of Channel holds a NUL character");
}

TEST(ValueSafety, OrdinaryValuesIncludingColonsAndUnicodePass)
{
    EXPECT_EQ(text(valueRefusal("Serial", "A1:B2")), std::nullopt);
    EXPECT_EQ(text(valueRefusal("CallMagic", "p\u00E4ss w\u00F6rd\t")), std::nullopt);
    EXPECT_EQ(text(valueRefusal("CallMagic", "")), std::nullopt);
}

TEST(ValueSafety, KeyWithColonIsRefused)
{
    EXPECT_EQ(text(keyRefusal("IPAddress:x")), "key \"IPAddress:x\" holds a colon (:)");
}

TEST(ValueSafety, KeyWithLineFeedIsRefusedAndShownEscaped)
{
    EXPECT_EQ(text(keyRefusal("Chan\nnel")), "key \"Chan\\nnel\" holds a line feed (LF)");
}

TEST(ValueSafety, EmptyKeyIsRefused)
{
    EXPECT_EQ(text(keyRefusal("")), "a key is empty");
}

TEST(ValueSafety, ConfigRefusalNamesTheFirstBadEntry)
{
    const Vorn::Config config{{"AtemIp", "1.2.3.4"}, {"Channel", "1\n2"}, {"Zed", "\r"}};
    EXPECT_EQ(text(configRefusal(config)), "the value of Channel holds a line feed (LF)");
    EXPECT_EQ(text(configRefusal(Vorn::Config{{"AtemIp", "1.2.3.4"}})), std::nullopt);
}

TEST(ValueSafety, WriteRefusalCoversReportedValuesOfWriteKeys)
{
    // The unit reported a value with CR LF inside (one line for the codec).
    const Vorn::Config full{{"Channel", "3"}, {"CallMagic", "a\r\nb"}};
    EXPECT_EQ(text(writeRefusal({{"Channel", "3"}}, full)), "the value of CallMagic holds a carriage return (CR)");
}

TEST(ValueSafety, WriteRefusalIgnoresKeysTheCodecNeverWrites)
{
    const Vorn::Config full{{"Channel", "3"}, {"Version", "1.0\r\n"}};
    EXPECT_EQ(text(writeRefusal({{"Channel", "3"}}, full)), std::nullopt);
}

TEST(ValueSafety, WriteRefusalNamesAChangedKeyWithColon)
{
    EXPECT_EQ(text(writeRefusal({{"Gateway:1", "x"}}, {})), "key \"Gateway:1\" holds a colon (:)");
}

}  // namespace
}  // namespace Settings
