// SPDX-License-Identifier: Apache-2.0
// The window's tie to the site store: soon after start the client lists the
// remembered units, offline, with their last configuration and sighting, and
// asks them by unicast when they miss a broadcast (a unit behind a router
// comes back with nothing typed); every unit the client lists or hears again
// is handed to the store's own thread to record.
#pragma once

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

#include "SiteRecorder.h"
#include "VornClient.h"

namespace VornLink {

class WindowSite : public QObject {
    Q_OBJECT

public:
    // Opens the store at `path` on its thread and lists its units in
    // `client` once they are read, without holding up the window; units the
    // client lists before then are recorded then.
    WindowSite(VornClient& client, const QString& path);

    Site::SiteRecorder& recorder() { return recorder_; }

    // Keeps the remembered units back until releaseListing(): a window lists
    // them after its first frame, which they would otherwise delay.
    void holdListing();
    void releaseListing();

signals:
    // The remembered units are listed; from now on every unit heard is recorded.
    void rememberedListed();

private:
    void listRemembered(std::vector<VornClient::RememberedDevice> units);
    void recordRows(int first, int last);

    VornClient& client_;
    bool held_ = false;
    std::optional<std::vector<VornClient::RememberedDevice>> read_;
    Site::SiteRecorder recorder_;
};

}  // namespace VornLink
