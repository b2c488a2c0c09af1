// SPDX-License-Identifier: Apache-2.0
// The window's tie to the site store: soon after start the client lists the
// remembered units, offline, with their last configuration and sighting, and
// asks them by unicast when they miss a broadcast (a unit behind a router
// comes back with nothing typed); every unit the client lists or hears again,
// and every line of its activity log, is handed to the store's own thread to
// record; a unit the user forgets leaves the store. What the store has to say
// ("Not remembering: …", "Site server unreachable: …", a damaged file moved
// aside) becomes the client's site notice.
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
    ~WindowSite() override;

    Site::SiteRecorder& recorder() { return recorder_; }

    // Keeps the remembered units back until releaseListing(): a window lists
    // them after its first frame, which they would otherwise delay.
    void holdListing();
    void releaseListing();

    // Reads the activity of earlier runs on the store's thread and shows it
    // in the client's log when it arrives; the window calls it once, after
    // its first frame.
    void showEarlierActivity();
    // Reads on the store's thread what other workstations wrote since the
    // last look, and shows each write once in the client's log; called
    // whenever another workstation stored something.
    void showWritesElsewhere();

signals:
    // The remembered units are listed and the store's notice is shown; from
    // now on every unit heard is recorded.
    void rememberedListed();
    // Another workstation stored something on the site server.
    void changedElsewhere();

private:
    // What the store said when it was read at start.
    struct Opening {
        Site::StoreState state = Site::StoreState::Unavailable;
        QString problem;
        std::optional<QString> damagedAside;
    };

    void listRemembered(std::vector<VornClient::RememberedDevice> units, const Opening& opening);
    void recordRows(int first, int last);
    void forget(const Device& unit);
    void showProblem(Site::StoreState state, const QString& problem);
    // A site server that was unreachable at start: its units are listed
    // once it answers (another workstation's news says it does).
    void listRememberedOnceReadable();
    // "kim on audio-room wrote Channel → 10.77.1.5 · confirmed"
    static QString writeElsewhereText(const Site::WriteRecord& write);

    // What was read at start, until the listing is released.
    struct Read {
        std::vector<VornClient::RememberedDevice> units;
        Opening opening;
    };

    VornClient& client_;
    bool held_ = false;
    std::optional<Read> read_;
    Site::SiteRecorder recorder_;
    // This run's activity is recorded from here on; earlier runs' is older.
    const Site::Time startedAt_;
    QString damagedNotice_;
    // The site server did not answer when the units were read at start.
    bool unitsUnread_ = false;
};

}  // namespace VornLink
