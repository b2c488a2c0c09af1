// SPDX-License-Identifier: Apache-2.0
#include "LastSeenText.h"

#include <QCoreApplication>

QString lastSeenText(const QDateTime& lastSeen, const QDateTime& now, const QLocale& locale)
{
    const qint64 seconds = std::max<qint64>(0, lastSeen.secsTo(now));
    if (seconds < 60)
        return QCoreApplication::translate("LastSeen", "just now");
    if (seconds < 60 * 60)
        return QCoreApplication::translate("LastSeen", "%n min ago", nullptr, static_cast<int>(seconds / 60));
    const QDate day = lastSeen.toLocalTime().date();
    const QDate today = now.toLocalTime().date();
    if (day == today)
        return QCoreApplication::translate("LastSeen", "%n h ago", nullptr, static_cast<int>(seconds / 3600));
    if (day == today.addDays(-1))
        return QCoreApplication::translate("LastSeen", "yesterday");
    return locale.toString(day, QLocale::ShortFormat);
}
