// SPDX-License-Identifier: Apache-2.0
// The site store's views as QML sees them: the History tab's list and the footer's notice.
// Compiled into the QML module, which registers these foreign types.
#pragma once

#include <QtQml/qqml.h>
#include <QtQml/qqmlregistration.h>

#include "SiteNotice.h"
#include "UnitHistory.h"

struct UnitHistoryForeign {
    Q_GADGET
    QML_FOREIGN(UnitHistory)
    QML_NAMED_ELEMENT(UnitHistory)
};

struct SiteNoticeForeign {
    Q_GADGET
    QML_FOREIGN(SiteNotice)
    QML_NAMED_ELEMENT(SiteNotice)
};
