// SPDX-License-Identifier: Apache-2.0
#include "FontWarmUp.h"

#include <QFont>
#include <QFontMetricsF>

namespace VornLink {

void warmUpFonts()
{
    // The first face opened also reads the installed fonts into Qt's database.
    QFont demiBold;
    demiBold.setWeight(QFont::DemiBold);
    for (const QFont& font : {QFont(), demiBold, QFont(QStringLiteral("monospace"))})
        (void)QFontMetricsF(font).height();
}

}  // namespace VornLink
