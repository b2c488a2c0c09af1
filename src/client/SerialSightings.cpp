// SPDX-License-Identifier: Apache-2.0
#include "SerialSightings.h"

#include <algorithm>

bool SerialSightings::isRecent(const Sighting& sighting, Clock::time_point now)
{
    return now - sighting.lastHeard < kWindow;
}

void SerialSightings::record(std::string_view serial, Clock::time_point now)
{
    std::erase_if(sightings_, [&](const Sighting& sighting) { return !isRecent(sighting, now); });
    const auto known = std::find_if(sightings_.begin(), sightings_.end(),
                                    [&](const Sighting& sighting) { return sighting.serial == serial; });
    if (known != sightings_.end())
        known->lastHeard = std::max(known->lastHeard, now);
    else
        sightings_.push_back({std::string(serial), now});
}

std::vector<std::string> SerialSightings::seenWithin(Clock::time_point now) const
{
    std::vector<std::string> serials;
    for (const auto& sighting : sightings_) {
        if (isRecent(sighting, now))
            serials.push_back(sighting.serial);
    }
    return serials;
}

bool SerialSightings::conflict(Clock::time_point now) const
{
    return std::count_if(sightings_.begin(), sightings_.end(),
                         [&](const Sighting& sighting) { return isRecent(sighting, now); }) >= 2;
}
