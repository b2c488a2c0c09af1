// SPDX-License-Identifier: Apache-2.0
// When a remembered unit was last heard, as the sidebar says it: "just now",
// "3 min ago", "2 h ago" (the same day), "yesterday", or the date.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

QString lastSeenText(const QDateTime& lastSeen, const QDateTime& now, const QLocale& locale = QLocale::system());
