// SPDX-License-Identifier: Apache-2.0
#include "Diagnostics.h"

#include <QLoggingCategory>

namespace {
Q_LOGGING_CATEGORY(lcSidebar, "vornlink.sidebar", QtWarningMsg)
}

bool Diagnostics::sidebarRows() const
{
    return lcSidebar().isInfoEnabled();
}
