// SPDX-License-Identifier: Apache-2.0
#include "SiteCopy.h"

#include <algorithm>
#include <set>

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

std::vector<WriteRecord> missingWrites(SiteStore& from, SiteStore& to, const std::string& unitKey)
{
    return missing(from.writes(unitKey), to.writes(unitKey), [](const WriteRecord& a, const WriteRecord& b) {
        return a.sentAt == b.sentAt && a.host == b.host && a.sent == b.sent;
    });
}

}  // namespace

bool copySite(SiteStore& from, SiteStore& to, CopyCount& count)
{
    std::set<std::string> copiedKeys;
    for (const auto& unit : from.units()) {
        auto stored = from.versions(unit.key);
        if (stored.empty())
            continue;
        const StoredVersion newest = stored.back();
        const auto versions = missing(std::move(stored), to.versions(unit.key),
                                      [](const StoredVersion& a, const StoredVersion& b) {
                                          return a.seenAt == b.seenAt && a.config == b.config;
                                      });
        const auto writes = missingWrites(from, to, unit.key);
        std::vector<Sighting> sightings;
        for (const auto& version : versions)
            sightings.push_back({version.address, unit.interface, version.config, version.seenAt, version.host});
        // Heard last after its latest change: that time too.
        if (unit.lastSeen > newest.seenAt)
            sightings.push_back({unit.address, unit.interface, newest.config, unit.lastSeen, newest.host});
        if (!to.record(sightings, writes))
            return false;
        copiedKeys.insert(unit.key);
        ++count.units;
        count.versions += versions.size();
        count.writes += writes.size();
    }
    // Writes to units that this store did not hear (the target may have).
    for (const auto& key : from.writtenUnitKeys()) {
        if (copiedKeys.contains(key))
            continue;
        const auto writes = missingWrites(from, to, key);
        if (!writes.empty() && !to.record({}, writes))
            return false;
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
