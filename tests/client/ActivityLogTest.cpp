// SPDX-License-Identifier: Apache-2.0
// The activity log's list model: lines in order, the limit, and held lines
// announced as one change.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "ActivityLog.h"

namespace {

QStringList numbered(int first, int count)
{
    QStringList lines;
    for (int i = first; i < first + count; ++i)
        lines.append(QStringLiteral("line %1").arg(i));
    return lines;
}

}  // namespace

TEST(ActivityLog, LinesAreRowsOldestFirst)
{
    ActivityLog log(5);
    QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    log.append(QStringLiteral("a"));
    log.append(QStringLiteral("b"));
    ASSERT_EQ(log.rowCount(), 2);
    EXPECT_EQ(log.data(log.index(0), ActivityLog::LineRole).toString(), QStringLiteral("a"));
    EXPECT_EQ(log.data(log.index(1), ActivityLog::LineRole).toString(), QStringLiteral("b"));
    EXPECT_EQ(log.text(), QStringLiteral("a\nb"));
}

TEST(ActivityLog, TheLineBeyondTheLimitPushesTheOldestOut)
{
    ActivityLog log(3);
    QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const QString& line : numbered(0, 4))
        log.append(line);
    EXPECT_EQ(log.lines(), numbered(1, 3));
}

TEST(ActivityLog, HeldLinesAreAnnouncedAsOneInsertion)
{
    ActivityLog log(200);
    QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    log.append(QStringLiteral("before"));
    QSignalSpy inserted(&log, &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(&log, &ActivityLog::changed);
    log.hold();
    for (const QString& line : numbered(0, 10))
        log.append(line);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(log.rowCount(), 1);
    EXPECT_EQ(log.lines().size(), 11);
    log.release();
    EXPECT_EQ(changed.count(), 1);
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted.at(0).at(1).toInt(), 1);
    EXPECT_EQ(inserted.at(0).at(2).toInt(), 10);
    EXPECT_EQ(log.rowCount(), 11);
}

TEST(ActivityLog, AHeldBatchThatOverflowsRemovesTheOldestOnceAndInsertsOnce)
{
    ActivityLog log(10);
    QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const QString& line : numbered(0, 8))
        log.append(line);
    QSignalSpy removed(&log, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&log, &QAbstractItemModel::rowsInserted);
    log.hold();
    for (const QString& line : numbered(8, 5))
        log.append(line);
    log.release();
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(log.lines(), numbered(3, 10));
}

TEST(ActivityLog, AHeldBatchLongerThanTheLimitReplacesTheLogInOneReset)
{
    ActivityLog log(200);
    QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    log.append(QStringLiteral("before"));
    QSignalSpy reset(&log, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(&log, &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(&log, &ActivityLog::changed);
    log.hold();
    for (const QString& line : numbered(0, 2500))
        log.append(line);
    EXPECT_EQ(log.lines(), numbered(2300, 200));
    log.release();
    EXPECT_EQ(reset.count(), 1);
    EXPECT_EQ(inserted.count(), 0);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(log.lines(), numbered(2300, 200));
}

TEST(ActivityLog, HoldsNestAndANestedReleaseAnnouncesNothing)
{
    ActivityLog log(10);
    QSignalSpy changed(&log, &ActivityLog::changed);
    log.hold();
    log.hold();
    log.append(QStringLiteral("a"));
    log.release();
    EXPECT_EQ(changed.count(), 0);
    log.release();
    EXPECT_EQ(changed.count(), 1);
}
