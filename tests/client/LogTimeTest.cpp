// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "LogTime.h"

namespace {

const QDateTime kInstant(QDate(2024, 3, 5), QTime(14, 3, 27));

}  // namespace

TEST(LogTime, FormatHasSecondsAndNeitherDateNorZone)
{
    for (const char* name : {"C", "en_US", "de_DE", "ja_JP", "ar_EG"}) {
        const QString format = timeFormatWithoutZone(QLocale(QString::fromLatin1(name)));
        SCOPED_TRACE(name);
        EXPECT_TRUE(format.contains(u's'));
        EXPECT_FALSE(format.contains(u't'));
        EXPECT_FALSE(format.contains(u'd'));
        EXPECT_FALSE(format.contains(u'y'));
    }
}

TEST(LogTime, TextShowsHoursMinutesAndSecondsInTheLocale)
{
    EXPECT_EQ(logTimeText(kInstant, QLocale(QLocale::C)), QStringLiteral("14:03:27"));
    EXPECT_EQ(logTimeText(kInstant, QLocale(QStringLiteral("de_DE"))), QStringLiteral("14:03:27"));
    const QString american = logTimeText(kInstant, QLocale(QStringLiteral("en_US")));
    EXPECT_TRUE(american.startsWith(QStringLiteral("2:03:27"))) << american.toStdString();
    EXPECT_TRUE(american.endsWith(QStringLiteral("PM"))) << american.toStdString();
}

TEST(LogTime, StampsOfOneSecondShareATextAndTheNextSecondGetsItsOwn)
{
    LogStamps stamps;
    const auto at = toTimePoint(kInstant);
    const QString first = stamps.textFor(at + std::chrono::milliseconds(100));
    EXPECT_EQ(first, logTimeText(kInstant));
    EXPECT_EQ(stamps.textFor(at + std::chrono::milliseconds(900)), first);
    const QString next = stamps.textFor(at + std::chrono::milliseconds(1000));
    EXPECT_EQ(next, logTimeText(kInstant.addSecs(1)));
    EXPECT_NE(next, first);
}
