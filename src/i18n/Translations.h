// SPDX-License-Identifier: Apache-2.0
// The window's language: its translation, compiled into the program, chosen
// for the user's languages, and Qt's own texts (file dialogs) from the system.
#pragma once

#include <QLocale>

class QCoreApplication;

namespace VornLink {

// Installs into `app` the translations for `locale`: the first of its
// languages that the program has, else English (for its plural forms), and
// Qt's own catalogue when the system holds one. Returns the language loaded
// from the program's own translations, e.g. "de" or "en".
QString installTranslations(QCoreApplication& app, const QLocale& locale = QLocale::system());

}  // namespace VornLink
