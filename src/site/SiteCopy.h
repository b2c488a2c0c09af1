// SPDX-License-Identifier: Apache-2.0
// Moving a site: everything one store remembers into another (a laptop's
// file into the facility's server, or back), through the stores' own record
// path, so that the target keeps its rules: a version equal to the one the
// target already holds for the unit is not stored again.
#pragma once

#include <QString>

#include "SiteStore.h"

namespace Site {

struct CopyCount {
    std::size_t units = 0;
    std::size_t versions = 0;
    std::size_t writes = 0;
    std::size_t activity = 0;
};

// Copies every unit with its versions and writes, oldest first, then the
// activity. False, with `to.problem()` saying why, when `to` refused a part;
// what went in before stays.
bool copySite(SiteStore& from, SiteStore& to, CopyCount& count);

}  // namespace Site
