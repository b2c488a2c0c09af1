// SPDX-License-Identifier: Apache-2.0
// The site store's cost, on a real file in a temporary folder:
//  - main-thread time per discover round: 1,000 units answering, each reply
//    handed to the recorder (a copy of the unit's configuration under a lock);
//  - the store thread's time for a round of 1,000 new units, of 1,000
//    unchanged units with their last-seen times due, of 1,000 changed
//    configurations, and its longest single transaction (what another
//    program writing the same file may wait for);
//  - from handing over a new unit to finding it in the file from a second
//    connection;
//  - the file after a simulated month: 1,000 units, each changed once a day
//    by a write, last-seen times refreshed, the activity of that month.
//   bench_site [ROUNDS]   (default 20)
// Output: one line "key=value ..." (medians and maxima in ms, size in MiB).
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "SiteRecorder.h"

namespace {

constexpr int kUnits = 1000;
constexpr int kDays = 30;

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double msSince(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// A unit's report as vorn-sim gives it: the eighteen keys of a real unit.
Site::Sighting unit(int index, int channel, Site::Time heardAt)
{
    const std::string address = "10.77." + std::to_string(index / 250 + 1) + "." + std::to_string(index % 250 + 1);
    Vorn::Config config{{"Serial", "KT-" + std::to_string(100000 + index)}, {"Version", "2.1.4"},
                        {"IPAddress", address},          {"Netmask", "255.255.0.0"},
                        {"Gateway", "10.77.0.1"},        {"AtemIp", "10.77.0.20"},
                        {"AtemPort", "9910"},            {"Channel", std::to_string(channel)},
                        {"CallMagic", "1234"},           {"ScenarioType", "0"},
                        {"SilenceThreshold", "12"},      {"SilenceSuppress", "1"},
                        {"TallyType", "2"},              {"TallyGpioType", "0"},
                        {"AtemExtTally", "0"},           {"SwitcherBand", "7"},
                        {"SwitcherModel", "0"},          {"Wire2Enable", "1"}};
    return {address, "studio0 \u00B7 10.77.0.2/16", config, heardAt};
}

std::vector<Site::Sighting> round(int channel, Site::Time heardAt)
{
    std::vector<Site::Sighting> units;
    units.reserve(kUnits);
    for (int index = 0; index < kUnits; ++index)
        units.push_back(unit(index, channel, heardAt));
    return units;
}

// The round stored as the store thread stores it, one transaction per
// kSightingsPerTransaction units; adds the round's time to `total` and each
// transaction's to `single`.
void storeRound(Site::SiteStore& store, const std::vector<Site::Sighting>& sightings, std::vector<double>& total,
                std::vector<double>& single)
{
    double sum = 0;
    for (std::size_t first = 0; first < sightings.size(); first += Site::kSightingsPerTransaction) {
        const auto last = std::min(sightings.size(), first + Site::kSightingsPerTransaction);
        const std::vector<Site::Sighting> slice(sightings.begin() + static_cast<long>(first),
                                                sightings.begin() + static_cast<long>(last));
        QElapsedTimer timer;
        timer.start();
        if (!store.record(slice))
            std::fprintf(stderr, "bench_site: not stored: %s\n", store.problem().toUtf8().constData());
        single.push_back(msSince(timer));
        sum += single.back();
    }
    total.push_back(sum);
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(3, std::atoi(argv[1])) : 20;
    QTemporaryDir dir;
    const auto start = Site::Clock::now();

    // Main-thread time per round; the store thread commits between rounds, as
    // rounds are five seconds apart.
    std::vector<double> handOver;
    {
        Site::SiteRecorder recorder(dir.filePath("rounds.sqlite"));
        for (int r = 0; r < rounds; ++r) {
            const auto replies = round(3, start + std::chrono::seconds(5 * r));
            QElapsedTimer timer;
            timer.start();
            for (const auto& reply : replies)
                recorder.heard(reply);
            handOver.push_back(msSince(timer));
            recorder.runAndWait([](Site::SiteStore&) {});
        }
    }

    // The store thread's work per round, and its longest transaction.
    std::vector<double> fresh, unchanged, changed, single;
    for (int r = 0; r < std::max(3, rounds / 4); ++r) {
        auto store = Site::SiteStore::open(dir.filePath("tx-" + QString::number(r) + ".sqlite"));
        storeRound(*store, round(3, start), fresh, single);
        storeRound(*store, round(3, start + std::chrono::minutes(2)), unchanged, single);
        storeRound(*store, round(4, start + std::chrono::minutes(3)), changed, single);
    }

    // From handing over a new unit to seeing it from another connection.
    std::vector<double> visible;
    {
        Site::SiteRecorder recorder(dir.filePath("latency.sqlite"));
        auto reader = Site::SiteStore::open(dir.filePath("latency.sqlite"));
        for (int r = 0; r < 5; ++r) {
            const auto sighting = unit(5000 + r, 3, Site::Clock::now());
            const std::string serial = Site::serialOf(sighting.config);
            QElapsedTimer timer;
            timer.start();
            recorder.heard(sighting);
            while (!reader->findUnit(serial) && timer.elapsed() < 10000)
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            visible.push_back(msSince(timer));
        }
    }

    // A simulated month, hour by hour: every unit's last-seen time written
    // once an hour (it changes a row, not the file's size), a write and its changed configuration
    // per unit per day, and two activity lines for each (sent, verified).
    const QString monthPath = dir.filePath("month.sqlite");
    QElapsedTimer monthTimer;
    monthTimer.start();
    {
        auto store = Site::SiteStore::open(monthPath, start);
        for (int day = 0; day < kDays; ++day) {
            for (int hour = 0; hour < 24; ++hour) {
                const auto at = start + std::chrono::hours(24 * day + hour);
                // Units 0..999 change spread over the day: ~42 an hour.
                std::vector<Site::Sighting> sightings;
                std::vector<Site::WriteRecord> writes;
                std::vector<Site::ActivityEntry> activity;
                for (int index = hour * kUnits / 24; index < (hour + 1) * kUnits / 24; ++index) {
                    const int channel = day % 12 + 1;
                    auto written = unit(index, channel, at + std::chrono::seconds(2));
                    writes.push_back({at, "vornlink", "desk-3", "kim", Site::serialOf(written.config), written.address,
                                      {{"Channel", std::to_string(channel)}}, Site::Verdict::Confirmed, {}});
                    activity.push_back({at, written.address + "  Channel=" + std::to_string(channel)});
                    activity.push_back({at + std::chrono::seconds(2), written.address + "  saved and confirmed"});
                    sightings.push_back(std::move(written));
                }
                store->record(sightings, writes, activity);
                // Every unit heard again; its last-seen time is due (a minute passed).
                {
                    const int minute = 30;
                    std::vector<Site::Sighting> seen;
                    for (int index = 0; index < kUnits; ++index) {
                        auto heard = unit(index, 0, at + std::chrono::minutes(minute) + std::chrono::seconds(30));
                        // What the unit reports now: today's channel once changed today, else yesterday's.
                        const bool changedToday = index < (hour + 1) * kUnits / 24;
                        const int channel = changedToday ? day % 12 + 1 : (day == 0 ? 0 : (day - 1) % 12 + 1);
                        if (channel == 0)
                            continue;
                        heard.config.insert_or_assign("Channel", std::to_string(channel));
                        seen.push_back(std::move(heard));
                    }
                    store->record(seen);
                }
            }
        }
    }
    const double monthSeconds = msSince(monthTimer) / 1000.0;
    const double mib = static_cast<double>(QFileInfo(monthPath).size()) / (1024.0 * 1024.0);

    std::printf("units=%d round_main_ms=%.3f round_main_max_ms=%.3f tx_new_ms=%.1f tx_unchanged_ms=%.1f "
                "tx_changed_ms=%.1f tx_max_ms=%.1f new_unit_stored_ms=%.1f month_mib=%.1f month_build_s=%.1f\n",
                kUnits, median(handOver), *std::max_element(handOver.begin(), handOver.end()), median(fresh),
                median(unchanged), median(changed), *std::max_element(single.begin(), single.end()),
                *std::max_element(visible.begin(), visible.end()), mib, monthSeconds);
    return 0;
}
