// SPDX-License-Identifier: Apache-2.0
#include "FontWarmUp.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

namespace VornLink {

void warmUpFonts()
{
    // Reads the list of installed families, which the icon font is looked up in.
    (void)QFontDatabase::families();
    QFont demiBold;
    demiBold.setWeight(QFont::DemiBold);
    for (const QFont& font : {QFont(), demiBold, QFont(QStringLiteral("monospace"))})
        (void)QFontMetricsF(font).height();
}

}  // namespace VornLink
