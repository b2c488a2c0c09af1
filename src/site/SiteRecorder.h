// SPDX-License-Identifier: Apache-2.0
// The site store on a thread of its own, for a program with a screen to keep
// smooth: the caller hands over what it heard, wrote and logged (a copy under
// a lock, nothing more), and the store's thread commits each batch in one
// go a quarter of a second after its first item, so a discover round's
// replies go in together and everything is stored within a second. The
// store splits a large batch into short transactions (see SiteStore::record).
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

#include "SiteStore.h"

namespace Site {

class SiteRecorder {
public:
    // How long the store's thread gathers after the first item of a batch.
    static constexpr auto kGather = std::chrono::milliseconds(250);

    // Opens the store at `path` on the new thread, without waiting for it:
    // what is handed over or run meanwhile waits for the opening.
    explicit SiteRecorder(const QString& path);
    // Stores what is still pending, then ends the thread.
    ~SiteRecorder();
    SiteRecorder(const SiteRecorder&) = delete;
    SiteRecorder& operator=(const SiteRecorder&) = delete;

    void heard(Sighting sighting);
    // A whole round at once: one lock for all of it.
    void heard(std::vector<Sighting> sightings);
    void wrote(WriteRecord write);
    void logged(ActivityEntry entry);

    // Runs `job` on the store's thread after what was handed over before it.
    void run(std::function<void(SiteStore&)> job);
    // The same, and waits until it has run.
    void runAndWait(const std::function<void(SiteStore&)>& job);

    // As the store was at opening, and why nothing is remembered (also after
    // a batch failed, e.g. on a full disk), or empty. These wait for the
    // opening; a window asks from a job (run) instead, which never blocks.
    StoreState state() const;
    QString problem() const;
    std::optional<QString> takeDamagedNotice();
    // Called on the store's thread with problem() whenever a batch changed it
    // (a full disk, and the write after it went through again); nullptr for none.
    void setProblemListener(std::function<void(const QString&)> listener);

private:
    struct Batch {
        std::vector<Sighting> sightings;
        std::vector<WriteRecord> writes;
        std::vector<ActivityEntry> activity;
        std::deque<std::function<void(SiteStore&)>> jobs;
        bool empty() const { return sightings.empty() && writes.empty() && activity.empty() && jobs.empty(); }
    };

    void loop(QString path);
    // The lock, taken once the store is open.
    std::unique_lock<std::mutex> lockOpened() const;
    void wake(std::unique_lock<std::mutex>& lock, bool wasEmpty);

    mutable std::mutex lock_;
    mutable std::condition_variable changed_;
    Batch pending_;
    bool opened_ = false;
    bool stopping_ = false;
    StoreState state_ = StoreState::Unavailable;
    QString problem_;
    std::optional<QString> damagedAside_;
    std::function<void(const QString&)> problemListener_;
    std::thread thread_;
};

}  // namespace Site
