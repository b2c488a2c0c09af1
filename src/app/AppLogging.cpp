// SPDX-License-Identifier: Apache-2.0
#include "AppLogging.h"

Q_LOGGING_CATEGORY(lcWindow, "vornlink.window", QtWarningMsg)
Q_LOGGING_CATEGORY(lcLatency, "vornlink.latency", QtWarningMsg)
