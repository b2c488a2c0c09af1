// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <unordered_set>

#include "Device.h"

namespace {

const WallClock::time_point kSeen{std::chrono::seconds(1700000000)};

Device withSerial(const char* serial)
{
    return Device{"192.168.1.40", {{"Serial", serial}}, kSeen};
}

QString titled(const char* tail)
{
    return QStringLiteral("KT400 \u00B7") + QString::fromUtf8(tail);
}

}  // namespace

TEST(Device, TitleIsIpWhenConfigHasNoSerial)
{
    const Device device{"192.168.1.40", {{"Channel", "3"}}, kSeen};
    EXPECT_EQ(device.title(), QStringLiteral("192.168.1.40"));
}

TEST(Device, EmptyConfigIsLegalAndTitleIsIp)
{
    const Device device{"10.0.0.7", {}, kSeen};
    EXPECT_TRUE(device.config.empty());
    EXPECT_EQ(device.title(), QStringLiteral("10.0.0.7"));
}

TEST(Device, SerialOfSixCharactersFollowsThePrefixWhole)
{
    EXPECT_EQ(withSerial("AB12CD").title(), titled("AB12CD"));
}

TEST(Device, SerialOfFiveCharactersFallsBackToIp)
{
    EXPECT_EQ(withSerial("AB12C").title(), QStringLiteral("192.168.1.40"));
}

TEST(Device, EmptySerialFallsBackToIp)
{
    EXPECT_EQ(withSerial("").title(), QStringLiteral("192.168.1.40"));
}

TEST(Device, TenCharacterSerialShowsItsLastSixDirectlyAfterTheMiddleDot)
{
    const QString title = withSerial("KT40012345").title();
    EXPECT_EQ(title, titled("012345"));
    // "KT400", a blank, U+00B7 and no blank after it.
    EXPECT_EQ(title.left(7), QString::fromUtf8("KT400 \xC2\xB7"));
    EXPECT_EQ(title.at(7), QChar(u'0'));
}

TEST(Device, SerialEndingInCombiningMarksCountsEachClusterOnce)
{
    // "e" + COMBINING ACUTE ACCENT + COMBINING DOT BELOW is one character.
    EXPECT_EQ(withSerial("SN12345e\xCC\x81\xCC\xA3").title(), titled("12345e\xCC\x81\xCC\xA3"));
    // Five characters even though it is seven code points.
    EXPECT_EQ(withSerial("1234e\xCC\x81\xCC\xA3").title(), QStringLiteral("192.168.1.40"));
}

TEST(Device, SerialEndingInEmojiCountsEachEmojiOnce)
{
    // Thumbs up with a skin tone modifier, a family joined by ZWJ, a flag.
    const char* thumbs = "\xF0\x9F\x91\x8D\xF0\x9F\x8F\xBD";
    const char* family = "\xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7";
    const char* flag = "\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA";
    const std::string serial = std::string("XY123") + thumbs + family + flag;
    EXPECT_EQ(withSerial(serial.c_str()).title(), titled((std::string("123") + thumbs + family + flag).c_str()));

    const std::string fiveCharacters = std::string("12") + thumbs + family + flag;
    EXPECT_EQ(withSerial(fiveCharacters.c_str()).title(), QStringLiteral("192.168.1.40"));
}

TEST(Device, FlagDirectlyAfterAPictographCountsAsOneCharacter)
{
    const char* thumbsAlone = "\xF0\x9F\x91\x8D";
    const char* flag = "\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA";
    const std::string sixCharacters = std::string("ABC1") + thumbsAlone + flag;
    EXPECT_EQ(withSerial(sixCharacters.c_str()).title(), titled(sixCharacters.c_str()));
    // Three indicators in a row: one flag and a lone indicator.
    const std::string flagAndHalf = std::string("ABCD") + thumbsAlone + flag + "\xF0\x9F\x87\xA9";
    EXPECT_EQ(withSerial(flagAndHalf.c_str()).title(),
              titled((std::string("BCD") + thumbsAlone + flag + "\xF0\x9F\x87\xA9").c_str()));
}

TEST(Device, IdentityIsTheAddress)
{
    const Device device{"10.0.0.9", {{"Serial", "ABCDEFGH"}}, kSeen};
    EXPECT_EQ(device.id(), "10.0.0.9");
}

TEST(Device, RecordsDifferingOnlyInLastSeenAreUnequalButShareTheirId)
{
    const Device older{"10.0.0.9", {{"Channel", "3"}}, kSeen};
    Device newer = older;
    newer.lastSeen += std::chrono::seconds(5);
    EXPECT_NE(older, newer);
    EXPECT_EQ(older.id(), newer.id());
}

TEST(Device, EqualityComparesAddressConfigAndLastSeen)
{
    const Device base{"10.0.0.9", {{"Channel", "3"}, {"Band", "2"}}, kSeen};
    EXPECT_EQ(base, (Device{"10.0.0.9", {{"Band", "2"}, {"Channel", "3"}}, kSeen}));
    EXPECT_NE(base, (Device{"10.0.0.8", base.config, kSeen}));
    EXPECT_NE(base, (Device{"10.0.0.9", {{"Channel", "3"}}, kSeen}));
    EXPECT_NE(base, (Device{"10.0.0.9", {{"Channel", "4"}, {"Band", "2"}}, kSeen}));
}

TEST(Device, EqualRecordsHashAlikeAndSetsTellFieldsApart)
{
    const Device base{"10.0.0.9", {{"Channel", "3"}}, kSeen};
    const Device same{"10.0.0.9", {{"Channel", "3"}}, kSeen};
    EXPECT_EQ(std::hash<Device>()(base), std::hash<Device>()(same));
    EXPECT_EQ(qHash(base, 7), qHash(same, 7));

    Device later = base;
    later.lastSeen += std::chrono::milliseconds(1);
    Device otherConfig = base;
    otherConfig.config["Channel"] = "4";
    Device keyAndValueSwapped = base;
    keyAndValueSwapped.config = {{"3", "Channel"}};
    const std::unordered_set<Device> set{base, same, later, otherConfig, keyAndValueSwapped};
    EXPECT_EQ(set.size(), 4u);
}

TEST(Device, CopiesAreIndependent)
{
    const Device original{"10.0.0.9", {{"Channel", "3"}}, kSeen};
    Device copy = original;
    copy.config["Channel"] = "5";
    EXPECT_EQ(original.config.at("Channel"), "3");
}
