// SPDX-License-Identifier: Apache-2.0
// The window's tie to the site store: at start the client lists the
// remembered units, offline, with their last configuration and sighting, and
// asks them by unicast when they miss a broadcast (a unit behind a router
// comes back with nothing typed); every unit the client lists or hears again
// is handed to the store's own thread to record.
#pragma once

#include <QObject>
#include <QString>

#include "SiteRecorder.h"
#include "VornClient.h"

namespace VornLink {

class WindowSite : public QObject {
    Q_OBJECT

public:
    // Opens the store at `path` on its thread and lists its units in
    // `client` (a file's before it returns, a server's when they arrive);
    // call before the client starts.
    WindowSite(VornClient& client, const QString& path);
    ~WindowSite() override;

    Site::SiteRecorder& recorder() { return recorder_; }

signals:
    // Another workstation stored something on the site server.
    void changedElsewhere();

private:
    void recordRows(int first, int last);

    VornClient& client_;
    Site::SiteRecorder recorder_;
};

}  // namespace VornLink
