// SPDX-License-Identifier: Apache-2.0
#include "EarlierLog.h"

#include <QCoreApplication>

#include "LogTime.h"

namespace {

QDate localDate(WallClock::time_point at)
{
    return toDateTime(at).toLocalTime().date();
}

QString dateLine(QDate date, const QLocale& locale)
{
    return QCoreApplication::translate("EarlierLog", "—— %1 ——", "a date line above a day's earlier activity")
        .arg(locale.toString(date, QLocale::LongFormat));
}

}  // namespace

QStringList earlierLogLines(const std::vector<EarlierEntry>& entries, qsizetype room, QDate today,
                            const QLocale& locale)
{
    // From the newest back: each entry takes a line, and the first of each
    // day one more for its date line; the line of this run takes one.
    qsizetype used = 1;
    std::size_t first = entries.size();
    while (first > 0) {
        const bool newDay = first == entries.size() || localDate(entries[first - 1].at) != localDate(entries[first].at);
        if (used + 1 + (newDay ? 1 : 0) > room)
            break;
        used += 1 + (newDay ? 1 : 0);
        --first;
    }
    QStringList lines;
    if (first == entries.size())
        return lines;
    QDate day;
    for (std::size_t i = first; i < entries.size(); ++i) {
        const QDate date = localDate(entries[i].at);
        if (date != day) {
            lines.append(dateLine(date, locale));
            day = date;
        }
        lines.append(logTimeText(toDateTime(entries[i].at), locale) + QStringLiteral("  ") + entries[i].message);
    }
    lines.append(QCoreApplication::translate("EarlierLog", "—— %1 · this run ——",
                                             "the line between earlier runs' activity and this run's")
                     .arg(locale.toString(today, QLocale::LongFormat)));
    return lines;
}
