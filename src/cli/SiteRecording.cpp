// SPDX-License-Identifier: Apache-2.0
#include "SiteRecording.h"

#include "UnitReport.h"
#include "WriteOrigin.h"

namespace VornCtl {

Site::Sighting siteSighting(const Sighting& unit, Site::Time heardAt)
{
    return {unit.address, unitInterface(unit), unit.config, heardAt};
}

void SiteRecording::heard(const std::vector<Sighting>& units)
{
    if (!store_ || units.empty())
        return;
    const auto now = Site::Clock::now();
    std::vector<Site::Sighting> sightings;
    sightings.reserve(units.size());
    for (const auto& unit : units)
        sightings.push_back(siteSighting(unit, now));
    store_->record(sightings);
}

void SiteRecording::wrote(const Sighting& live, const Vorn::Config& changes, Site::Time sentAt,
                          const std::vector<Settings::KeyCheck>& checks, const std::optional<Sighting>& reply)
{
    if (!store_)
        return;
    Site::WriteRecord write{sentAt, "vornctl", Site::hostName(), Site::userName(), Site::serialOf(live.config),
                            live.address, changes, Site::Verdict::Confirmed, {}};
    if (!reply) {
        write.verdict = Site::Verdict::NoAnswer;
    } else if (!Settings::allConfirmed(checks)) {
        write.verdict = Site::Verdict::NotConfirmed;
        for (const auto& check : checks) {
            if (check.outcome != Settings::KeyOutcome::Confirmed)
                write.unconfirmedKeys.push_back(check.key);
        }
    }
    std::vector<Site::Sighting> heard;
    if (reply)
        heard.push_back(siteSighting(*reply, Site::Clock::now()));
    store_->record(heard, {write});
}

}  // namespace VornCtl
