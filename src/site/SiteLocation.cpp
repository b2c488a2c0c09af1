// SPDX-License-Identifier: Apache-2.0
#include "SiteLocation.h"

#include <QStandardPaths>

#include <string_view>

namespace Site {

QString defaultSitePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/vornlink/site.sqlite");
}

std::optional<QString> sitePath(const SiteChoice& choice, const QString& remembered)
{
    if (choice.off)
        return std::nullopt;
    if (!choice.path.isEmpty())
        return choice.path;
    const QString named = qEnvironmentVariable(kSiteVariable);
    if (!named.isEmpty())
        return named;
    return remembered.isEmpty() ? defaultSitePath() : remembered;
}

std::variant<SiteChoice, std::string> siteChoiceFromArguments(std::span<const char* const> arguments)
{
    constexpr std::string_view kSite = "--site";
    constexpr std::string_view kSiteIs = "--site=";
    SiteChoice choice;
    bool named = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        QString path;
        if (argument == "--no-site") {
            choice.off = true;
            continue;
        }
        if (argument == kSite) {
            if (i + 1 >= arguments.size())
                return std::string("--site needs a file");
            path = QString::fromLocal8Bit(arguments[++i]);
        } else if (argument.starts_with(kSiteIs)) {
            path = QString::fromLocal8Bit(argument.substr(kSiteIs.size()));
        } else {
            continue;
        }
        if (path.isEmpty())
            return std::string("--site needs a file");
        if (named)
            return std::string("--site is given twice");
        named = true;
        choice.path = path;
    }
    if (choice.off && named)
        return std::string("--site and --no-site exclude each other");
    return choice;
}

}  // namespace Site
