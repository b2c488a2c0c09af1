// SPDX-License-Identifier: Apache-2.0
#include "WindowSite.h"

namespace VornLink {

WindowSite::WindowSite(VornClient& client, const QString& path) : client_(client), recorder_(path)
{
    struct Listed {
        std::string address;
        Vorn::Config config;
        Site::Time lastSeen;
    };
    std::vector<Listed> units;
    recorder_.runAndWait([&units](Site::SiteStore& store) {
        auto configurations = store.latestConfigurations();
        for (const auto& unit : store.units()) {
            const auto latest = configurations.find(unit.key);
            units.push_back({unit.address, latest == configurations.end() ? Vorn::Config{} : std::move(latest->second),
                             unit.lastSeen});
        }
    });
    // Listed before the rows are recorded: what was remembered is not heard anew.
    for (auto& unit : units)
        client_.addRemembered(unit.address, std::move(unit.config), unit.lastSeen);
    connect(&client_, &VornClient::deviceAdded, this, [this](int row) { recordRows(row, row); });
    connect(&client_, &VornClient::devicesUpdated, this, &WindowSite::recordRows);
}

void WindowSite::recordRows(int first, int last)
{
    const auto& devices = client_.devices();
    std::vector<Site::Sighting> sightings;
    for (int row = std::max(first, 0); row <= last && row < static_cast<int>(devices.size()); ++row) {
        const Device& device = devices[static_cast<std::size_t>(row)];
        if (device.remembered)
            continue;  // not heard in this run
        sightings.push_back({device.ip, client_.heardOnText(device), device.config, device.lastSeen});
    }
    if (!sightings.empty())
        recorder_.heard(std::move(sightings));
}

}  // namespace VornLink
