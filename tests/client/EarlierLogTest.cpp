// SPDX-License-Identifier: Apache-2.0
// Earlier runs' activity as the log shows it: days under their date lines,
// the line where this run begins, and only the newest entries that fit.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "ActivityLog.h"
#include "EarlierLog.h"
#include "LogTime.h"

using namespace std::chrono_literals;

namespace {

const QLocale kLocale(QLocale::German, QLocale::Germany);

// Noon UTC of 2026-11-20 plus `days` and `minutes`: the same local day in every time zone within ±11 h.
WallClock::time_point noon(int days, int minutes = 0)
{
    return WallClock::time_point(std::chrono::seconds(1795176000)) + std::chrono::hours(24 * days) +
           std::chrono::minutes(minutes);
}

QString dateLine(WallClock::time_point at)
{
    return QStringLiteral("—— %1 ——").arg(kLocale.toString(toDateTime(at).toLocalTime().date(), QLocale::LongFormat));
}

QString entryLine(WallClock::time_point at, const QString& message)
{
    return logTimeText(toDateTime(at), kLocale) + QStringLiteral("  ") + message;
}

const QDate kToday(2026, 11, 24);

QString runLine()
{
    return QStringLiteral("—— %1 · this run ——").arg(kLocale.toString(kToday, QLocale::LongFormat));
}

}  // namespace

TEST(EarlierLog, EachDayStandsUnderItsDateLineAndThisRunFollows)
{
    const std::vector<EarlierEntry> entries{{noon(0), "found 10.77.1.5"},
                                            {noon(0, 5), "wrote 10.77.1.5: Channel=4"},
                                            {noon(2), "found 10.77.1.6"}};

    const QStringList lines = earlierLogLines(entries, 200, kToday, kLocale);

    EXPECT_EQ(lines, (QStringList{dateLine(noon(0)), entryLine(noon(0), "found 10.77.1.5"),
                                  entryLine(noon(0, 5), "wrote 10.77.1.5: Channel=4"), dateLine(noon(2)),
                                  entryLine(noon(2), "found 10.77.1.6"), runLine()}));
}

TEST(EarlierLog, OnlyTheNewestEntriesThatFitAreShownEachUnderItsDate)
{
    const std::vector<EarlierEntry> entries{{noon(0), "a"}, {noon(1), "b"}, {noon(1, 1), "c"}, {noon(1, 2), "d"}};

    // Four lines: the date of day 1, two of its entries, this run.
    EXPECT_EQ(earlierLogLines(entries, 4, kToday, kLocale),
              (QStringList{dateLine(noon(1)), entryLine(noon(1, 1), "c"), entryLine(noon(1, 2), "d"), runLine()}));
    // Room for no entry with its date line: nothing at all.
    EXPECT_TRUE(earlierLogLines(entries, 2, kToday, kLocale).isEmpty());
    EXPECT_TRUE(earlierLogLines({}, 200, kToday, kLocale).isEmpty());
}

TEST(ActivityLog, EarlierLinesGoAboveThisRunsLinesAsFarAsTheLimitLeavesRoom)
{
    ActivityLog log(5);
    QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    log.append(QStringLiteral("now 1"));
    log.append(QStringLiteral("now 2"));
    QSignalSpy changed(&log, &ActivityLog::changed);
    QSignalSpy counted(&log, &ActivityLog::countChanged);

    log.insertEarlier({QStringLiteral("old 1"), QStringLiteral("old 2"), QStringLiteral("old 3"), QStringLiteral("old 4")});

    EXPECT_EQ(log.lines(), (QStringList{"old 2", "old 3", "old 4", "now 1", "now 2"}));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(counted.count(), 1);
    // The earlier lines are the oldest: a new line pushes them out first.
    log.append(QStringLiteral("now 3"));
    EXPECT_EQ(log.lines(), (QStringList{"old 3", "old 4", "now 1", "now 2", "now 3"}));
    // A full log takes none.
    log.insertEarlier({QStringLiteral("old 0")});
    EXPECT_EQ(log.count(), 5);
    EXPECT_EQ(log.lines().first(), QStringLiteral("old 3"));
}
