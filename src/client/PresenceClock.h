// SPDX-License-Identifier: Apache-2.0
// The one clock every presence display reads: it tells the time (replaceable
// for tests) and ticks once a second so "online" can lapse without traffic.
#pragma once

#include <chrono>
#include <functional>

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include "Device.h"

// A unit is online while its last reply is younger than this.
inline constexpr std::chrono::seconds kPresenceWindow{15};

// A lastSeen in the future (the wall clock stepped back) counts as present.
inline bool isPresent(WallClock::time_point lastSeen, WallClock::time_point now)
{
    return now - lastSeen < kPresenceWindow;
}

QDateTime toDateTime(WallClock::time_point instant);
WallClock::time_point toTimePoint(const QDateTime& dateTime);

class PresenceClock : public QObject {
    Q_OBJECT
    Q_PROPERTY(QDateTime now READ nowDateTime NOTIFY ticked)

public:
    using NowFunction = std::function<WallClock::time_point()>;
    static constexpr std::chrono::milliseconds kTickInterval{1000};

    explicit PresenceClock(QObject* parent = nullptr);

    WallClock::time_point now() const { return now_(); }
    QDateTime nowDateTime() const { return toDateTime(now()); }

    // Replaces the wall clock, for tests that move time by hand.
    void setNowFunction(NowFunction now);

    // Announces a new second; the timer calls it, tests may too.
    void tick();

signals:
    void ticked();

private:
    NowFunction now_;
    QTimer* timer_;
};
