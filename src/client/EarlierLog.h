// SPDX-License-Identifier: Apache-2.0
// The activity of earlier runs as the log shows it above this run's lines:
// each day's entries under a line with its date, then a line where this run
// begins. Only the newest entries that fit are shown, never an entry without
// its date line.
#pragma once

#include <vector>

#include <QDate>
#include <QLocale>
#include <QString>
#include <QStringList>

#include "PresenceClock.h"

struct EarlierEntry {
    WallClock::time_point at;
    QString message;
};

// `entries` oldest first; at most `room` lines, none when nothing fits.
QStringList earlierLogLines(const std::vector<EarlierEntry>& entries, qsizetype room, QDate today,
                            const QLocale& locale = QLocale::system());
