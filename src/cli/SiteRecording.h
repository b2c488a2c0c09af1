// SPDX-License-Identifier: Apache-2.0
// What vornctl tells the site store: every unit it heard and every write it
// sent with its verdict. Without a store (--no-site, or none available) it
// records nothing.
#pragma once

#include <vector>

#include "SiteStore.h"
#include "UnitLink.h"
#include "WriteCheck.h"

namespace VornCtl {

class SiteRecording {
public:
    explicit SiteRecording(Site::SiteStore* store) : store_(store) {}

    void heard(const std::vector<Sighting>& units);
    // A write sent at `sentAt`, its checks, and the unit's reply after it (if any).
    void wrote(const Sighting& live, const Vorn::Config& changes, Site::Time sentAt,
               const std::vector<Settings::KeyCheck>& checks, const std::optional<Sighting>& reply);

private:
    Site::SiteStore* store_;
};

Site::Sighting siteSighting(const Sighting& unit, Site::Time heardAt);

}  // namespace VornCtl
