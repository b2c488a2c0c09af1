// SPDX-License-Identifier: Apache-2.0
// A second program on a site file, for the fault tests:
//   site_burst_writer burst PATH   records changed configurations of ten units
//                                  in one transaction after another and prints
//                                  "committed N" (versions so far) after each,
//                                  until it is killed;
//   site_burst_writer open PATH    opens the store and prints its state and problem.
#include <QCoreApplication>

#include <cstdio>
#include <string>

#include "SiteStore.h"

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3)
        return 2;
    const std::string mode = argv[1];
    auto store = Site::SiteStore::open(QString::fromLocal8Bit(argv[2]));
    if (mode == "open") {
        std::printf("state %d\nproblem %s\n", static_cast<int>(store->state()), store->problem().toUtf8().constData());
        return 0;
    }
    if (mode != "burst" || !store->canRecord())
        return 1;
    long committed = 0;
    for (long round = 0;; ++round) {
        std::vector<Site::Sighting> sightings;
        for (int unit = 0; unit < 10; ++unit) {
            const std::string address = "10.77.2." + std::to_string(unit + 1);
            Vorn::Config config{{"Serial", "KT-B" + std::to_string(unit)}, {"Channel", std::to_string(round % 13)},
                                {"AtemIp", "10.0." + std::to_string(round % 250) + ".1"}};
            sightings.push_back({address, "", config, Site::Clock::now()});
        }
        if (!store->record(sightings))
            return 1;
        committed += 10;
        std::printf("committed %ld\n", committed);
        std::fflush(stdout);
    }
}
