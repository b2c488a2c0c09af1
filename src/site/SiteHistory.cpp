// SPDX-License-Identifier: Apache-2.0
#include "SiteHistory.h"

#include <algorithm>

#include "ConfigOrder.h"

namespace Site {
namespace {

std::string valueOf(const Vorn::Config& config, const std::string& key)
{
    const auto found = config.find(key);
    return found == config.end() ? std::string() : found->second;
}

bool explains(const WriteRecord& write, const std::vector<KeyChange>& changes)
{
    return std::any_of(changes.begin(), changes.end(), [&](const KeyChange& change) {
        const auto sent = write.sent.find(change.key);
        return sent != write.sent.end() && sent->second == change.to;
    });
}

}  // namespace

std::vector<KeyChange> keyChanges(const Vorn::Config& before, const Vorn::Config& after)
{
    Vorn::Config every = before;
    for (const auto& [key, value] : after)
        every.insert_or_assign(key, value);
    std::vector<KeyChange> changes;
    for (const auto& [key, unused] : Settings::inDisplayOrder(every)) {
        auto from = valueOf(before, key);
        auto to = valueOf(after, key);
        if (from != to || before.contains(key) != after.contains(key))
            changes.push_back({key, std::move(from), std::move(to)});
    }
    return changes;
}

std::vector<HistoryEntry> buildHistory(const std::vector<StoredVersion>& versions,
                                       const std::vector<WriteRecord>& writes)
{
    std::vector<HistoryEntry> history;
    history.reserve(versions.size());
    for (std::size_t i = 0; i < versions.size(); ++i) {
        HistoryEntry entry;
        entry.at = versions[i].seenAt;
        entry.config = versions[i].config;
        entry.host = versions[i].host;
        if (i > 0) {
            entry.changes = keyChanges(versions[i - 1].config, versions[i].config);
            entry.cause = Cause::Outside;
            for (auto write = writes.rbegin(); write != writes.rend(); ++write) {
                if (write->sentAt > versions[i].seenAt || write->sentAt < versions[i - 1].seenAt)
                    continue;
                if (explains(*write, entry.changes)) {
                    entry.cause = Cause::Written;
                    entry.write = *write;
                    break;
                }
            }
        }
        history.push_back(std::move(entry));
    }
    std::reverse(history.begin(), history.end());
    return history;
}

}  // namespace Site
