// SPDX-License-Identifier: Apache-2.0
#include "SiteCopy.h"

#include <algorithm>

namespace Site {
namespace {

// What the target already holds is not copied again, so that a merge can be repeated.
template <typename Item, typename Same>
std::vector<Item> missing(std::vector<Item> items, const std::vector<Item>& held, Same same)
{
    std::erase_if(items, [&](const Item& item) {
        return std::any_of(held.begin(), held.end(), [&](const Item& other) { return same(item, other); });
    });
    return items;
}

}  // namespace

bool copySite(SiteStore& from, SiteStore& to, CopyCount& count)
{
    for (const auto& unit : from.units()) {
        auto stored = from.versions(unit.key);
        if (stored.empty())
            continue;
        const StoredVersion newest = stored.back();
        const auto versions = missing(std::move(stored), to.versions(unit.key),
                                      [](const StoredVersion& a, const StoredVersion& b) {
                                          return a.seenAt == b.seenAt && a.config == b.config;
                                      });
        const auto writes = missing(from.writes(unit.key), to.writes(unit.key),
                                    [](const WriteRecord& a, const WriteRecord& b) {
                                        return a.sentAt == b.sentAt && a.host == b.host && a.sent == b.sent;
                                    });
        std::vector<Sighting> sightings;
        for (const auto& version : versions)
            sightings.push_back({version.address, unit.interface, version.config, version.seenAt});
        // Heard last after its latest change: that time too.
        if (unit.lastSeen > newest.seenAt)
            sightings.push_back({unit.address, unit.interface, newest.config, unit.lastSeen});
        if (!to.record(sightings, writes))
            return false;
        ++count.units;
        count.versions += versions.size();
        count.writes += writes.size();
    }
    const auto activity = missing(from.activity(Time{}), to.activity(Time{}),
                                  [](const ActivityEntry& a, const ActivityEntry& b) {
                                      return a.at == b.at && a.message == b.message;
                                  });
    if (!activity.empty() && !to.record({}, {}, activity))
        return false;
    count.activity = activity.size();
    return true;
}

}  // namespace Site
