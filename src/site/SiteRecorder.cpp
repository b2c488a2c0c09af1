// SPDX-License-Identifier: Apache-2.0
#include "SiteRecorder.h"

#include <pthread.h>

namespace Site {

SiteRecorder::SiteRecorder(const QString& path) : thread_([this, path] { loop(path); }) {}

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
    const bool wasEmpty = pending_.empty();
    pending_.writes.push_back(std::move(write));
    wake(lock, wasEmpty);
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

void SiteRecorder::setProblemListener(std::function<void(const QString&)> listener)
{
    std::lock_guard lock(lock_);
    problemListener_ = std::move(listener);
}

void SiteRecorder::loop(QString path)
{
    pthread_setname_np(pthread_self(), "vorn.site");
    auto store = SiteStore::open(path);
    {
        std::lock_guard lock(lock_);
        opened_ = true;
        state_ = store->state();
        problem_ = store->problem();
        damagedAside_ = store->takeDamagedNotice();
    }
    changed_.notify_all();
    std::unique_lock lock(lock_);
    for (;;) {
        changed_.wait(lock, [this] { return stopping_ || !pending_.empty(); });
        if (pending_.empty() && stopping_)
            return;
        // Jobs wait for nothing; records gather a little so a round goes in together.
        if (pending_.jobs.empty() && !stopping_)
            changed_.wait_for(lock, kGather, [this] { return stopping_ || !pending_.jobs.empty(); });
        Batch batch = std::exchange(pending_, Batch{});
        lock.unlock();
        store->record(batch.sightings, batch.writes, batch.activity);
        for (auto& job : batch.jobs)
            job(*store);
        const QString problem = store->problem();
        lock.lock();
        if (std::exchange(problem_, problem) != problem && problemListener_) {
            // Not under the lock: the listener may hand over more.
            const auto listener = problemListener_;
            lock.unlock();
            listener(problem);
            lock.lock();
        }
    }
}

}  // namespace Site
