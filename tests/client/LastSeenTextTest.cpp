// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "LastSeenText.h"

namespace {

// Local times: "yesterday" is a calendar day where the user is.
const QDateTime kNow(QDate(2026, 11, 24), QTime(14, 30, 0));

QString seen(const QDateTime& then)
{
    return lastSeenText(then, kNow, QLocale(QLocale::C));
}

}  // namespace

TEST(LastSeenText, UnderAMinuteIsJustNow)
{
    EXPECT_EQ(seen(kNow), QStringLiteral("just now"));
    EXPECT_EQ(seen(kNow.addSecs(-59)), QStringLiteral("just now"));
    // A clock that went back a little is not "in the future".
    EXPECT_EQ(seen(kNow.addSecs(30)), QStringLiteral("just now"));
}

TEST(LastSeenText, UnderAnHourCountsWholeMinutes)
{
    EXPECT_EQ(seen(kNow.addSecs(-60)), QStringLiteral("1 min ago"));
    EXPECT_EQ(seen(kNow.addSecs(-3 * 60 - 59)), QStringLiteral("3 min ago"));
    EXPECT_EQ(seen(kNow.addSecs(-59 * 60)), QStringLiteral("59 min ago"));
}

TEST(LastSeenText, EarlierTheSameDayCountsWholeHours)
{
    EXPECT_EQ(seen(kNow.addSecs(-60 * 60)), QStringLiteral("1 h ago"));
    EXPECT_EQ(seen(kNow.addSecs(-2 * 3600 - 1800)), QStringLiteral("2 h ago"));
    EXPECT_EQ(seen(QDateTime(kNow.date(), QTime(0, 0, 0))), QStringLiteral("14 h ago"));
}

TEST(LastSeenText, TheDayBeforeIsYesterdayHowEverFewHoursAgo)
{
    const QDateTime justBeforeMidnight(QDate(2026, 11, 23), QTime(23, 59, 0));
    EXPECT_EQ(lastSeenText(justBeforeMidnight, QDateTime(QDate(2026, 11, 24), QTime(1, 0, 0)), QLocale(QLocale::C)),
              QStringLiteral("yesterday"));
    EXPECT_EQ(seen(QDateTime(QDate(2026, 11, 23), QTime(8, 0, 0))), QStringLiteral("yesterday"));
}

TEST(LastSeenText, OlderIsTheDateInTheLocale)
{
    const QDate day(2026, 11, 20);
    EXPECT_EQ(seen(QDateTime(day, QTime(9, 0, 0))), QLocale(QLocale::C).toString(day, QLocale::ShortFormat));
    EXPECT_EQ(lastSeenText(QDateTime(day, QTime(9, 0, 0)), kNow, QLocale(QStringLiteral("de_DE"))),
              QStringLiteral("20.11.26"));
}
