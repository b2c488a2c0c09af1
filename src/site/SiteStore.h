// SPDX-License-Identifier: Apache-2.0
// The site store: what this user's programs remember of the site. One object
// is one database connection, to be used on the thread that opened it (the
// window records through SiteRecorder, which owns one on its own thread;
// vornctl uses one directly).
//
//   auto store = Site::SiteStore::open(Site::defaultSitePath(), "vornctl");
//   if (auto notice = store->takeDamagedNotice()) tell the user once;
//   if (!store->canRecord()) show store->problem() ("Not remembering: …");
//   store->record({sightings}, {writes}, {activity});   // one transaction
//   store->units(); store->history(unit.key); store->forget(unit.key);
//
// Every call is safe in every state: an unavailable store records nothing and
// lists nothing; a file from a newer VornLink is read but never written.
#pragma once

#include <QSqlDatabase>
#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "SiteHistory.h"
#include "SiteTypes.h"
#include "WriteOrigin.h"

namespace Site {

enum class StoreState {
    Ready,        // remembering
    NewerSchema,  // written by a newer VornLink: read-only
    Unavailable,  // not remembering; problem() says why
    Unreachable,  // the site server does not answer (problem() says why); reconnect() tries again
};

// Activity entries older than this are removed.
inline constexpr auto kActivityKept = std::chrono::hours(24 * 90);
// Sightings per transaction: another program waits at most for one of them
// (about 100 ms for 1,000 changed configurations measured on one core).
inline constexpr std::size_t kSightingsPerTransaction = 250;
// How long after it was sent a write stored by another program is still news.
inline constexpr auto kNewsLookBack = std::chrono::minutes(10);
// A unit heard again with nothing new gets its last-seen time written at most this often.
inline constexpr auto kLastSeenInterval = std::chrono::minutes(1);

class SiteStore {
public:
    // Opens the store at `path`, making the folder and file on first use and
    // bringing an older file up to date. A damaged file is moved aside and a
    // fresh store started (see takeDamagedNotice). A "postgresql://" URI
    // instead connects to the site's server and brings its store up to date.
    static std::unique_ptr<SiteStore> open(const QString& path, Time now = Clock::now());
    ~SiteStore();
    SiteStore(const SiteStore&) = delete;
    SiteStore& operator=(const SiteStore&) = delete;

    StoreState state() const { return state_; }
    bool canRecord() const { return state_ == StoreState::Ready; }
    bool canRead() const { return state_ == StoreState::Ready || state_ == StoreState::NewerSchema; }
    // True for a store on a PostgreSQL server.
    bool onServer() const { return server_; }
    // Connects again to a server that was unreachable; true when the store is ready.
    bool reconnect(Time now = Clock::now());
    // On a server: true when another program stored something since the last
    // call (the server tells at once; this only reads what it told). Always
    // false on a file.
    bool changedElsewhere();
    // Why nothing is remembered ("cannot write /home/…: Permission denied"), or empty.
    const QString& problem() const { return problem_; }
    const QString& path() const { return path_; }
    // Where a damaged file was kept, the first time it is asked; then nullopt.
    std::optional<QString> takeDamagedNotice();

    // Records a round: units heard (a new unit, a changed configuration; an
    // unchanged one refreshes its last-seen time at most once a minute),
    // writes sent, activity entries; in one transaction, or in one per
    // kSightingsPerTransaction sightings, so that no other program waits long.
    // False when something could not be stored; problem() then says why, and
    // state() is Unreachable when the server went away (nothing of the failed
    // transaction was kept).
    bool record(const std::vector<Sighting>& sightings, const std::vector<WriteRecord>& writes = {},
                const std::vector<ActivityEntry>& activity = {});

    // Every remembered unit, by address.
    std::vector<RememberedUnit> units();
    // Every remembered unit's latest configuration, by unit key, in one query.
    std::map<std::string, Vorn::Config> latestConfigurations();
    // The unit whose serial is `name`, else the one last seen at address `name`.
    std::optional<RememberedUnit> findUnit(const std::string& name);
    // The unit's configuration versions, newest first, with their causes.
    std::vector<HistoryEntry> history(const std::string& unitKey);
    // The unit's configuration versions and the writes sent to it, oldest first.
    std::vector<StoredVersion> versions(const std::string& unitKey);
    std::vector<WriteRecord> writes(const std::string& unitKey);
    // The writes other programs stored (not through this store) since the
    // last call, or since the store was opened, oldest first: what other
    // workstations did meanwhile. A write stored up to kNewsLookBack after
    // it was sent (it waited in a journal) still counts.
    std::vector<WriteRecord> newWritesElsewhere();
    // Every unit key that writes were recorded for (a unit heard elsewhere may have none here).
    std::vector<std::string> writtenUnitKeys();
    // True when the store remembers no unit, no write and no activity.
    bool holdsNothing();
    // Activity entries from `since` on, oldest first.
    std::vector<ActivityEntry> activity(Time since);
    // The newest `count` activity entries from before `before`, oldest first.
    std::vector<ActivityEntry> activityBefore(Time before, std::size_t count);
    // Removes the unit, its versions and its writes; false when it was not there.
    bool forget(const std::string& unitKey);
    // Removes activity older than kActivityKept; how many entries went.
    int pruneActivity(Time now);

private:
    struct Known {
        std::string configText;
        std::string address;
        std::string interface;
        std::int64_t lastSeenStoredMs = 0;
    };

    SiteStore() = default;
    void setUnavailable(const QString& problem);
    void connectServer(Time now);
    void dropConnection();
    // After a failure: true (and Unreachable) when the server's connection is gone.
    bool noteLostServer();
    bool recordSighting(const Sighting& sighting);
    bool recordInOne(std::span<const Sighting> sightings, const std::vector<WriteRecord>& writes,
                     const std::vector<ActivityEntry>& activity);
    bool recordWrite(const WriteRecord& write);
    std::optional<Known> loadKnown(const std::string& key);
    bool failed(const class QSqlQuery& query);

    StoreState state_ = StoreState::Unavailable;
    bool server_ = false;
    // Whether the transaction at hand changed anything, to be announced.
    bool wrote_ = false;
    QString problem_;
    QString path_;
    QString connection_;
    std::optional<QString> damagedAside_;
    // What this connection last stored per unit, so an unchanged reply costs no query.
    std::map<std::string, Known> known_;
    // The computer a version heard here is stored with.
    const std::string host_ = hostName();
    // For newWritesElsewhere: the writes stored through this store, those
    // told already, and the newest one's time.
    std::set<std::string> ownWrites_;
    std::set<std::string> toldWrites_;
    Time newsFrom_;
};

}  // namespace Site
