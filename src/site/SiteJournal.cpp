// SPDX-License-Identifier: Apache-2.0
#include "SiteJournal.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "SiteCopy.h"

namespace Site {

QString defaultJournalPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/vornlink/site-journal.sqlite");
}

SiteJournal::SiteJournal(QString path) : path_(std::move(path)) {}

SiteStore& SiteJournal::store()
{
    if (!store_)
        store_ = SiteStore::open(path_);
    return *store_;
}

bool SiteJournal::holdsAny()
{
    // Opening a file that is not there would make one.
    return (store_ || QFileInfo::exists(path_)) && !store().holdsNothing();
}

bool SiteJournal::keep(const std::vector<Sighting>& sightings, const std::vector<WriteRecord>& writes,
                       const std::vector<ActivityEntry>& activity)
{
    return store().record(sightings, writes, activity);
}

bool SiteJournal::sendTo(SiteStore& server)
{
    if (!holdsAny())
        return true;
    CopyCount count;
    if (!copySite(store(), server, count))
        return false;
    store_.reset();
    for (const auto& suffix : {"", "-wal", "-shm"})
        QFile::remove(path_ + QLatin1String(suffix));
    return true;
}

QString SiteJournal::problem() const
{
    return store_ ? store_->problem() : QString();
}

}  // namespace Site
