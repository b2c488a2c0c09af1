// SPDX-License-Identifier: Apache-2.0
// Which site store a program uses: the user's own file by default, another
// file or a site server with "--site PATH|URI" or else the environment's
// VORNLINK_SITE, none with "--no-site". vornlink and vornctl both read the
// choice through here.
#pragma once

#include <QString>

#include <optional>
#include <span>
#include <string>
#include <variant>

namespace Site {

struct SiteChoice {
    bool off = false;  // --no-site: nothing is remembered
    QString path;      // --site PATH|URI; empty: VORNLINK_SITE, else the default file
};

// The environment variable that names the store when --site does not.
inline constexpr const char* kSiteVariable = "VORNLINK_SITE";

// $XDG_DATA_HOME/vornlink/site.sqlite on Linux (the platform's data folder elsewhere).
QString defaultSitePath();

// The file or server URI to open, or nullopt with --no-site: --site, else
// VORNLINK_SITE, else `remembered` (the window's own choice), else the default file.
std::optional<QString> sitePath(const SiteChoice& choice, const QString& remembered = {});

// "--site PATH", "--site=PATH" and "--no-site" among a program's arguments;
// the other arguments are left alone. A usage problem as text.
std::variant<SiteChoice, std::string> siteChoiceFromArguments(std::span<const char* const> arguments);

}  // namespace Site
