// SPDX-License-Identifier: Apache-2.0
// vornctl history: a remembered unit's configuration versions, newest first,
// with what caused each one and its key changes.
#include <nlohmann/json.hpp>

#include "BackupFile.h"
#include "Commands.h"
#include "ExitCodes.h"
#include "EditableKeys.h"

namespace VornCtl {
namespace {

constexpr const char* kHidden = "(hidden)";

std::string causeName(Site::Cause cause)
{
    switch (cause) {
    case Site::Cause::FirstSeen: return "first seen";
    case Site::Cause::Written: return "written";
    case Site::Cause::Outside: return "outside";
    }
    return {};
}

// "Set by vornctl by kim on desk-3 · not confirmed: Channel", as the window says it.
std::string causeLine(const Site::HistoryEntry& entry)
{
    if (entry.cause == Site::Cause::FirstSeen)
        return entry.host.empty() ? "First seen" : "First seen on " + entry.host;
    if (!entry.write)
        return entry.host.empty() ? "Changed outside VornLink" : "Changed outside VornLink \u00B7 heard on " + entry.host;
    const auto& write = *entry.write;
    std::string line = (write.program == "vornctl" ? "Set by vornctl" : "Saved from VornLink") + std::string(" by ")
        + write.user + " on " + write.host + " \u00B7 " + Site::verdictText(write.verdict);
    for (std::size_t i = 0; i < write.unconfirmedKeys.size(); ++i)
        line += (i == 0 ? ": " : ", ") + write.unconfirmedKeys[i];
    return line;
}

std::string shown(const Site::KeyChange& change, const std::string& value, bool showSecrets)
{
    return Settings::isSecret(change.key) && !showSecrets ? kHidden : value;
}

nlohmann::ordered_json entryJson(const Site::HistoryEntry& entry, bool showSecrets)
{
    auto orNull = [&](auto field) {
        return entry.write ? nlohmann::ordered_json(field(*entry.write)) : nlohmann::ordered_json();
    };
    nlohmann::ordered_json changes = nlohmann::ordered_json::array();
    for (const auto& change : entry.changes)
        changes.push_back({{"key", change.key},
                           {"from", shown(change, change.from, showSecrets)},
                           {"to", shown(change, change.to, showSecrets)}});
    return {{"time", Settings::utcTimestamp(entry.at)},
            {"cause", causeName(entry.cause)},
            {"program", orNull([](const Site::WriteRecord& w) { return w.program; })},
            {"user", orNull([](const Site::WriteRecord& w) { return w.user; })},
            {"host", orNull([](const Site::WriteRecord& w) { return w.host; })},
            {"verdict", orNull([](const Site::WriteRecord& w) { return Site::verdictText(w.verdict); })},
            {"heard_on", entry.host.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(entry.host)},
            {"changes", changes}};
}

}  // namespace

int runHistory(SiteContext& context, const HistoryRequest& request)
{
    const auto unit = context.store.findUnit(request.unit);
    if (!unit) {
        context.err << "vornctl: " << request.unit << " is not a remembered unit\n";
        return kExitNoAnswer;
    }
    std::vector<Site::HistoryEntry> entries;
    for (auto& entry : context.store.history(unit->key)) {
        if (!request.since || entry.at >= *request.since)
            entries.push_back(std::move(entry));
    }
    if (request.json) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const auto& entry : entries)
            list.push_back(entryJson(entry, request.showSecrets));
        context.out << list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    } else {
        for (const auto& entry : entries) {
            context.out << Settings::utcTimestamp(entry.at) << "  " << causeLine(entry) << '\n';
            for (const auto& change : entry.changes)
                context.out << "  " << change.key << ": " << shown(change, change.from, request.showSecrets)
                            << " \u2192 " << shown(change, change.to, request.showSecrets) << '\n';
        }
    }
    context.out << std::flush;
    return kExitOk;
}

}  // namespace VornCtl
