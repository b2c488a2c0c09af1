// SPDX-License-Identifier: Apache-2.0
#include "Message.h"

#include <gtest/gtest.h>

namespace Settings {
namespace {

TEST(Message, EnglishFillsEachPlaceholderWithItsArgument)
{
    const Message message(SETTINGS_TEXT("Test", "%2 before %1"), {Message::plain("one"), Message::plain("two")});
    EXPECT_EQ(english(message), "two before one");
}

TEST(Message, NestedMessagesAreRenderedInPlace)
{
    const Message inner(SETTINGS_TEXT("Test", "inner %1"), {Message::plain("x")});
    EXPECT_EQ(english(Message(SETTINGS_TEXT("Test", "[%1]"), {inner})), "[inner x]");
}

TEST(Message, AnArgumentHoldingAPlaceholderStaysAsItIs)
{
    const Message message(SETTINGS_TEXT("Test", "%1 and %2"), {Message::plain("%2"), Message::plain("b")});
    EXPECT_EQ(english(message), "%2 and b");
}

TEST(Message, PlaceholdersWithoutArgumentAndLonePercentSignsStay)
{
    EXPECT_EQ(english(Message(SETTINGS_TEXT("Test", "100% of %3"), {Message::plain("a")})), "100% of %3");
}

TEST(Message, TheLookupReplacesEveryTemplateByContext)
{
    const Message message(SETTINGS_TEXT("Outer", "%1: %2"),
                          {Message::plain("f.json"), Message(SETTINGS_TEXT("Inner", "cannot be read"))});
    const std::string shown = render(message, [](const std::string& context, const std::string& text) {
        if (context == "Inner")
            return std::string("nicht lesbar");
        return text == "%1: %2" ? std::string("%1 — %2") : text;
    });
    EXPECT_EQ(shown, "f.json — nicht lesbar");
}

}  // namespace
}  // namespace Settings
