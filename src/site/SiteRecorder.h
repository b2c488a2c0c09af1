// SPDX-License-Identifier: Apache-2.0
// The site store on a thread of its own, for a program with a screen to keep
// smooth: the caller hands over what it heard, wrote and logged (a copy under
// a lock, nothing more), and the store's thread commits each batch in one
// go a quarter of a second after its first item, so a discover round's
// replies go in together and everything is stored within a second; a write
// goes in at once, with what was gathered, as other workstations wait for it. The
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

    // Opens the store at `path` (a file or a server URI) on the new thread,
    // without waiting for it: what is handed over or run meanwhile waits for
    // the opening.
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

    // The store's state, and why nothing is remembered (also after a batch
    // failed, e.g. on a full disk or an unreachable server), or empty. These
    // wait for the opening; a window asks from a job (run) instead, which
    // never blocks.
    StoreState state() const;
    QString problem() const;
    std::optional<QString> takeDamagedNotice();
    // Called on the store's thread with state() and problem() whenever a
    // batch or a retry changed them (a full disk, a server gone or back);
    // nullptr for none.
    void setProblemListener(std::function<void(StoreState, const QString&)> listener);

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
    // The lock, taken once the store is open.
    std::unique_lock<std::mutex> lockOpened() const;
    // Makes the store's state and problem the recorder's, and tells the
    // problem listener when they changed.
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
    std::function<void(StoreState, const QString&)> problemListener_;
    mutable std::condition_variable changed_;
    Batch pending_;
    bool opened_ = false;
    bool stopping_ = false;
    StoreState state_ = StoreState::Unavailable;
    QString problem_;
    std::optional<QString> damagedAside_;
    std::thread thread_;
};

}  // namespace Site
