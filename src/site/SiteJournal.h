// SPDX-License-Identifier: Apache-2.0
// Where a program keeps what it would have stored on an unreachable site
// server: an SQLite file of the same store
// ($XDG_DATA_HOME/vornlink/site-journal.sqlite), sent to the server once it
// answers again and then removed. Sending skips what the server already
// holds, so a send cut short and repeated stores nothing twice.
#pragma once

#include <QString>

#include <memory>
#include <vector>

#include "SiteStore.h"

namespace Site {

// $XDG_DATA_HOME/vornlink/site-journal.sqlite on Linux.
QString defaultJournalPath();

class SiteJournal {
public:
    explicit SiteJournal(QString path = defaultJournalPath());

    const QString& path() const { return path_; }
    // True when something waits to be sent.
    bool holdsAny();
    // Keeps records for later; false (problem() says why) when the file cannot take them.
    bool keep(const std::vector<Sighting>& sightings, const std::vector<WriteRecord>& writes,
              const std::vector<ActivityEntry>& activity);
    // The journal as a store, for a program that records through one (vornctl).
    SiteStore& store();
    // Sends everything kept to `server`, then removes the file; false when
    // the server took not all of it (what it took stays there, the rest here).
    bool sendTo(SiteStore& server);
    QString problem() const;

private:
    QString path_;
    std::unique_ptr<SiteStore> store_;
};

}  // namespace Site
