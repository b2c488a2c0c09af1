// SPDX-License-Identifier: Apache-2.0
// Diagnostics of the client, apart from the user-facing activity log.
#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcVornClient)
