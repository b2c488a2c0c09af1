// SPDX-License-Identifier: Apache-2.0
// Diagnostics of the window application (off by default; QT_LOGGING_RULES
// "vornlink.window.info=true" turns them on). Not the user's activity log.
#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcWindow)
// Main-thread lateness, see LatencyProbe.h.
Q_DECLARE_LOGGING_CATEGORY(lcLatency)
