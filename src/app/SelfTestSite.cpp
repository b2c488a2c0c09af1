// SPDX-License-Identifier: Apache-2.0
#include "SelfTestSite.h"

#include <QCoreApplication>

#include <span>

#include "SelfTest.h"
#include "SiteLocation.h"
#include "SiteStore.h"

namespace VornLink {

int runSelfTestWithSite(int& argc, char** argv, std::ostream& out)
{
    // Qt SQL loads the store's driver through the application object.
    QCoreApplication app(argc, argv);
    const auto choice = Site::siteChoiceFromArguments(std::span<const char* const>(argv, static_cast<std::size_t>(argc)));
    if (const auto* problem = std::get_if<std::string>(&choice)) {
        out << "selftest: " << *problem << '\n' << std::flush;
        return 2;
    }
    std::unique_ptr<Site::SiteStore> store;
    if (const auto path = Site::sitePath(std::get<Site::SiteChoice>(choice)))
        store = Site::SiteStore::open(*path);

    SelfTestOptions options;
    if (store) {
        if (const auto aside = store->takeDamagedNotice())
            out << "selftest: the site file was damaged; kept as " << aside->toStdString() << " and started a new one\n";
        if (!store->canRecord() && !store->problem().isEmpty())
            out << "selftest: not remembering: " << store->problem().toStdString() << '\n';
        for (const auto& unit : store->units())
            options.remembered.push_back(unit.address);
        options.heard = [&store](const std::map<std::string, Vorn::Config>& units) {
            std::vector<Site::Sighting> sightings;
            const auto now = Site::Clock::now();
            for (const auto& [address, config] : units)
                sightings.push_back({address, {}, config, now});
            store->record(sightings);
        };
    }
    return runSelfTest(out, options);
}

}  // namespace VornLink
