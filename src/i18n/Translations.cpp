// SPDX-License-Identifier: Apache-2.0
#include "Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace VornLink {
namespace {

constexpr auto kResourceFolder = ":/i18n";

QTranslator* programTranslator(QCoreApplication& app, const QLocale& locale)
{
    auto* translator = new QTranslator(&app);
    if (translator->load(locale, QStringLiteral("vornlink"), QStringLiteral("_"), QLatin1String(kResourceFolder))
        || translator->load(QStringLiteral("vornlink_en"), QLatin1String(kResourceFolder)))
        return translator;
    delete translator;
    return nullptr;
}

}  // namespace

QString installTranslations(QCoreApplication& app, const QLocale& locale)
{
    QTranslator* program = programTranslator(app, locale);
    if (!program)
        return {};
    QCoreApplication::installTranslator(program);
    // Qt's own texts in the same language, where the system has them.
    auto* qt = new QTranslator(&app);
    if (program->language().section(QLatin1Char('_'), 0, 0) != QLatin1String("en")
        && qt->load(QLocale(program->language()), QStringLiteral("qt"), QStringLiteral("_"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qt);
    else
        delete qt;
    return program->language().section(QLatin1Char('_'), 0, 0);
}

}  // namespace VornLink
