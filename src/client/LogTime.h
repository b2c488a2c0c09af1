// SPDX-License-Identifier: Apache-2.0
// Time stamps of the activity log: the user's locale, hours to seconds, no date.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

// The locale's long time format without its time-zone part.
QString timeFormatWithoutZone(const QLocale& locale);

QString logTimeText(const QDateTime& instant, const QLocale& locale = QLocale::system());
