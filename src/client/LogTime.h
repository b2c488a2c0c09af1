// SPDX-License-Identifier: Apache-2.0
// Time stamps of the activity log: the user's locale, hours to seconds, no date.
#pragma once

#include <optional>

#include <QDateTime>
#include <QLocale>
#include <QString>

#include "PresenceClock.h"

// The locale's long time format without its time-zone part.
QString timeFormatWithoutZone(const QLocale& locale);

QString logTimeText(const QDateTime& instant, const QLocale& locale = QLocale::system());

// The time stamps of a stream of log lines: each second's text is made once,
// since making one reads the time zone and the locale's format.
class LogStamps {
public:
    QString textFor(WallClock::time_point instant);

private:
    std::optional<WallClock::time_point> second_;
    QString text_;
};
