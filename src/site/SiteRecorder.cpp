// SPDX-License-Identifier: Apache-2.0
#include "SiteRecorder.h"

#include <pthread.h>

#include "PostgresServer.h"

namespace Site {

SiteRecorder::SiteRecorder(const QString& path, const QString& journalPath)
    : journal_(journalPath), onServer_(Postgres::isServerUri(path)), thread_([this, path] { loop(path); })
{
}

SiteRecorder::~SiteRecorder()
{
    {
        std::lock_guard lock(lock_);
        stopping_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void SiteRecorder::wake(std::unique_lock<std::mutex>& lock, bool wasEmpty)
{
    lock.unlock();
    // The store thread waits for a first item, then gathers on its own.
    if (wasEmpty)
        changed_.notify_all();
}

void SiteRecorder::heard(Sighting sighting)
{
    std::unique_lock lock(lock_);
    const bool wasEmpty = pending_.empty();
    pending_.sightings.push_back(std::move(sighting));
    wake(lock, wasEmpty);
}

void SiteRecorder::heard(std::vector<Sighting> sightings)
{
    std::unique_lock lock(lock_);
    const bool wasEmpty = pending_.empty();
    if (pending_.sightings.empty())
        pending_.sightings = std::move(sightings);
    else
        std::move(sightings.begin(), sightings.end(), std::back_inserter(pending_.sightings));
    wake(lock, wasEmpty);
}

void SiteRecorder::wrote(WriteRecord write)
{
    std::unique_lock lock(lock_);
    pending_.writes.push_back(std::move(write));
    lock.unlock();
    // Also ends a gathering early: other workstations wait for a write.
    changed_.notify_all();
}

void SiteRecorder::logged(ActivityEntry entry)
{
    std::unique_lock lock(lock_);
    const bool wasEmpty = pending_.empty();
    pending_.activity.push_back(std::move(entry));
    wake(lock, wasEmpty);
}

void SiteRecorder::run(std::function<void(SiteStore&)> job)
{
    std::unique_lock lock(lock_);
    pending_.jobs.push_back(std::move(job));
    lock.unlock();
    // Also ends a gathering early: jobs wait for nothing.
    changed_.notify_all();
}

void SiteRecorder::runAndWait(const std::function<void(SiteStore&)>& job)
{
    std::mutex doneLock;
    std::condition_variable doneChanged;
    bool done = false;
    run([&](SiteStore& store) {
        job(store);
        std::lock_guard guard(doneLock);
        done = true;
        doneChanged.notify_all();
    });
    std::unique_lock wait(doneLock);
    doneChanged.wait(wait, [&] { return done; });
}

std::unique_lock<std::mutex> SiteRecorder::lockOpened() const
{
    std::unique_lock lock(lock_);
    changed_.wait(lock, [this] { return opened_; });
    return lock;
}

StoreState SiteRecorder::state() const
{
    const auto lock = lockOpened();
    return state_;
}

QString SiteRecorder::problem() const
{
    const auto lock = lockOpened();
    return problem_;
}

std::optional<QString> SiteRecorder::takeDamagedNotice()
{
    const auto lock = lockOpened();
    return std::exchange(damagedAside_, std::nullopt);
}

void SiteRecorder::setProblemListener(std::function<void(StoreState, const QString&)> listener)
{
    std::lock_guard lock(lock_);
    problemListener_ = std::move(listener);
}

void SiteRecorder::Batch::takeBefore(Batch&& earlier)
{
    const auto prepend = [](auto& into, auto& from) {
        into.insert(into.begin(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
    };
    prepend(sightings, earlier.sightings);
    prepend(writes, earlier.writes);
    prepend(activity, earlier.activity);
}

void SiteRecorder::publish(const SiteStore& store)
{
    const StoreState state = store.state();
    const QString problem = store.problem();
    std::function<void(StoreState, const QString&)> listener;
    {
        std::lock_guard lock(lock_);
        const bool changed = state_ != state || problem_ != problem;
        state_ = state;
        problem_ = problem;
        if (changed)
            listener = problemListener_;
    }
    // Not under the lock: the listener may hand over more.
    if (listener)
        listener(state, problem);
}

void SiteRecorder::watch(std::function<void()> changedElsewhere)
{
    std::lock_guard lock(lock_);
    watcher_ = std::move(changedElsewhere);
}

void SiteRecorder::tellWatcher()
{
    std::function<void()> watcher;
    {
        std::lock_guard lock(lock_);
        watcher = watcher_;
    }
    if (watcher)
        watcher();
}

void SiteRecorder::loop(QString path)
{
    pthread_setname_np(pthread_self(), "vorn.site");
    auto store = SiteStore::open(path);
    // What an earlier run could not send goes first.
    journalWaiting_ = store->onServer() && journal_.holdsAny();
    {
        std::lock_guard lock(lock_);
        opened_ = true;
        state_ = store->state();
        problem_ = store->problem();
        damagedAside_ = store->takeDamagedNotice();
    }
    changed_.notify_all();
    auto nextTry = std::chrono::steady_clock::now() + kRetry;
    std::unique_lock lock(lock_);
    for (;;) {
        const bool waiting = store->state() == StoreState::Unreachable;
        if (waiting) {
            // Tries the server again now and then, and once more when asked to end.
            changed_.wait_until(lock, nextTry, [this] { return stopping_ || !pending_.jobs.empty(); });
        } else if (store->onServer()) {
            // Looks now and then at what the server told of other programs' changes.
            changed_.wait_for(lock, kWatch, [this] { return stopping_ || !pending_.empty(); });
        } else {
            changed_.wait(lock, [this] { return stopping_ || !pending_.empty(); });
        }
        if (pending_.empty() && stopping_ && !waiting)
            return;
        // Jobs and writes wait for nothing; the rest gathers a little so a round goes in together.
        const auto urgent = [this] { return stopping_ || !pending_.jobs.empty() || !pending_.writes.empty(); };
        if (!waiting && pending_.hasRecords() && !urgent())
            changed_.wait_for(lock, kGather, urgent);
        Batch batch = std::exchange(pending_, Batch{});
        const bool ending = stopping_;
        lock.unlock();
        bool elsewhere = false;
        if (waiting && (ending || std::chrono::steady_clock::now() >= nextTry)) {
            // What others stored meanwhile is news once the server is back.
            elsewhere = store->reconnect();
            nextTry = std::chrono::steady_clock::now() + kRetry;
        }
        auto jobs = std::move(batch.jobs);
        batch.takeBefore(std::move(unsent_));
        unsent_ = {};
        if (journalWaiting_ && store->canRecord())
            journalWaiting_ = !journal_.sendTo(*store);
        // The batch goes in after what waits in the journal. When the server
        // went away in the middle, it goes into the journal as a whole: a
        // sighting that went in before adds nothing the second time, and the
        // writes and the activity are in the batch's last transaction, which
        // did not commit.
        const bool sendNow = !journalWaiting_ && store->state() != StoreState::Unreachable;
        if (batch.hasRecords() && sendNow && !store->record(batch.sightings, batch.writes, batch.activity)
            && store->state() == StoreState::Unreachable)
            nextTry = std::chrono::steady_clock::now() + kRetry;
        if (batch.hasRecords() && (!sendNow || store->state() == StoreState::Unreachable)) {
            if (journal_.keep(batch.sightings, batch.writes, batch.activity))
                journalWaiting_ = true;
            else
                unsent_ = std::move(batch);
        }
        // A job sees the state its records left, and so does whoever it tells.
        publish(*store);
        for (auto& job : jobs)
            job(*store);
        publish(*store);
        if (store->changedElsewhere() || elsewhere)
            tellWatcher();
        lock.lock();
        if (stopping_ && (state_ == StoreState::Unreachable || pending_.empty()))
            return;
    }
}

}  // namespace Site
