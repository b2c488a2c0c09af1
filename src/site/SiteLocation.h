// SPDX-License-Identifier: Apache-2.0
// Which site store a program uses: the user's own by default, another file
// with "--site PATH", none with "--no-site". vornlink and vornctl both read
// the choice through here.
#pragma once

#include <QString>

#include <optional>
#include <span>
#include <string>
#include <variant>

namespace Site {

struct SiteChoice {
    bool off = false;  // --no-site: nothing is remembered
    QString path;      // --site PATH; empty: the default file
};

// $XDG_DATA_HOME/vornlink/site.sqlite on Linux (the platform's data folder elsewhere).
QString defaultSitePath();

// The file to open, or nullopt with --no-site.
std::optional<QString> sitePath(const SiteChoice& choice);

// "--site PATH", "--site=PATH" and "--no-site" among a program's arguments;
// the other arguments are left alone. A usage problem as text.
std::variant<SiteChoice, std::string> siteChoiceFromArguments(std::span<const char* const> arguments);

}  // namespace Site
