// SPDX-License-Identifier: Apache-2.0
// The site store on a thread of its own, for a program with a screen to keep
// smooth: the caller hands over what it heard, wrote and logged (a copy under
// a lock, nothing more), and the store's thread commits each batch in one
// go a quarter of a second after its first item, so a discover round's
// replies go in together and everything is stored within a second. The
// store splits a large batch into short transactions (see SiteStore::record).
// While a site server is unreachable, what was handed over waits in the
// journal (see SiteJournal) and goes in once the server answers again
// (tried every kRetry), as does what an earlier run left there.
//
//   Site::SiteRecorder recorder(Site::defaultSitePath());
//   recorder.heard({address, interface, config, now});   // per reply
//   recorder.wrote(record); recorder.logged({now, "found 10.77.1.5"});
//   recorder.run([](Site::SiteStore& store) { ... store.units() ... });  // on the store's thread
#pragma once

#include <QString>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "SiteJournal.h"
#include "SiteStore.h"

namespace Site {

class SiteRecorder {
public:
    // How long the store's thread gathers after the first item of a batch.
    static constexpr auto kGather = std::chrono::milliseconds(250);
    // How often the store's thread tries an unreachable site server again.
    static constexpr auto kRetry = std::chrono::seconds(2);
    // How often it reads what the site server told of other programs' changes.
    static constexpr auto kWatch = std::chrono::milliseconds(250);

    // Opens the store at `path` on the new thread; returns once a file is
    // open, at once for a server URI (state() is Unavailable with no problem
    // until the first connection attempt ends; what is handed over waits).
    explicit SiteRecorder(const QString& path, const QString& journalPath = defaultJournalPath());
    // Stores what is still pending, then ends the thread.
    ~SiteRecorder();
    SiteRecorder(const SiteRecorder&) = delete;
    SiteRecorder& operator=(const SiteRecorder&) = delete;

    void heard(Sighting sighting);
    // A whole round at once: one lock for all of it.
    void heard(std::vector<Sighting> sightings);
    void wrote(WriteRecord write);
    void logged(ActivityEntry entry);

    // True when the store is on a site server.
    bool onServer() const { return onServer_; }
    // `changedElsewhere` runs on the store's thread whenever another program
    // stored something on the site server (within kWatch of its commit, or
    // when the server is back after it was unreachable).
    void watch(std::function<void()> changedElsewhere);

    // Runs `job` on the store's thread after what was handed over before it.
    void run(std::function<void(SiteStore&)> job);
    // The same, and waits until it has run.
    void runAndWait(const std::function<void(SiteStore&)>& job);

    // As the store was at opening, and why nothing is remembered (also after
    // a batch failed, e.g. on a full disk), or empty.
    StoreState state() const;
    QString problem() const;
    std::optional<QString> takeDamagedNotice();

private:
    struct Batch {
        std::vector<Sighting> sightings;
        std::vector<WriteRecord> writes;
        std::vector<ActivityEntry> activity;
        std::deque<std::function<void(SiteStore&)>> jobs;
        bool empty() const { return sightings.empty() && writes.empty() && activity.empty() && jobs.empty(); }
        bool hasRecords() const { return !sightings.empty() || !writes.empty() || !activity.empty(); }
        // Puts `earlier`'s records before this batch's own.
        void takeBefore(Batch&& earlier);
    };

    void loop(QString path);
    // Makes the store's state and problem the recorder's.
    void publish(const SiteStore& store);
    void tellWatcher();
    void wake(std::unique_lock<std::mutex>& lock, bool wasEmpty);

    // Until the server answers again: what could not be sent and the journal
    // did not take either, in order (store's thread only).
    Batch unsent_;
    SiteJournal journal_;
    bool journalWaiting_ = false;

    const bool onServer_;
    mutable std::mutex lock_;
    std::function<void()> watcher_;
    std::condition_variable changed_;
    Batch pending_;
    bool opened_ = false;
    bool stopping_ = false;
    StoreState state_ = StoreState::Unavailable;
    QString problem_;
    std::optional<QString> damagedAside_;
    std::thread thread_;
};

}  // namespace Site
