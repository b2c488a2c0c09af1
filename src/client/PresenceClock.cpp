// SPDX-License-Identifier: Apache-2.0
#include "PresenceClock.h"

PresenceClock::PresenceClock(QObject* parent)
    : QObject(parent), now_([] { return WallClock::now(); }), timer_(new QTimer(this))
{
    connect(timer_, &QTimer::timeout, this, &PresenceClock::tick);
    timer_->start(kTickInterval);
}

void PresenceClock::setNowFunction(NowFunction now)
{
    now_ = std::move(now);
}

void PresenceClock::tick()
{
    emit ticked();
}

QDateTime toDateTime(WallClock::time_point instant)
{
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(instant.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(ms.count());
}

WallClock::time_point toTimePoint(const QDateTime& dateTime)
{
    return WallClock::time_point(
        std::chrono::duration_cast<WallClock::duration>(std::chrono::milliseconds(dateTime.toMSecsSinceEpoch())));
}
