// SPDX-License-Identifier: Apache-2.0
#include "LogTime.h"

QString timeFormatWithoutZone(const QLocale& locale)
{
    const QString longFormat = locale.timeFormat(QLocale::LongFormat);
    QString format;
    bool quoted = false;
    for (const QChar c : longFormat) {
        if (c == u'\'')
            quoted = !quoted;
        if (quoted || c != u't')
            format.append(c);
    }
    return format.simplified();
}

QString logTimeText(const QDateTime& instant, const QLocale& locale)
{
    return locale.toString(instant.toLocalTime().time(), timeFormatWithoutZone(locale));
}

QString LogStamps::textFor(WallClock::time_point instant)
{
    const auto second = std::chrono::floor<std::chrono::seconds>(instant);
    if (second != second_) {
        second_ = second;
        text_ = logTimeText(toDateTime(second));
    }
    return text_;
}
