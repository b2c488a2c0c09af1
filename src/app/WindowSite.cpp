// SPDX-License-Identifier: Apache-2.0
#include "WindowSite.h"

#include <QMetaObject>

#include <utility>

namespace VornLink {

WindowSite::WindowSite(VornClient& client, const QString& path) : client_(client), recorder_(path)
{
    // Read on the store's thread while the window builds; listed on the
    // window's thread in one go.
    recorder_.run([this](Site::SiteStore& store) {
        std::vector<VornClient::RememberedDevice> units;
        auto configurations = store.latestConfigurations();
        for (const auto& unit : store.units()) {
            const auto latest = configurations.find(unit.key);
            units.push_back({unit.address, latest == configurations.end() ? Vorn::Config{} : std::move(latest->second),
                             unit.lastSeen});
        }
        QMetaObject::invokeMethod(
            this,
            [this, units = std::move(units)]() mutable {
                read_ = std::move(units);
                if (!held_)
                    releaseListing();
            },
            Qt::QueuedConnection);
    });
}

void WindowSite::holdListing()
{
    held_ = true;
}

void WindowSite::releaseListing()
{
    held_ = false;
    if (auto units = std::exchange(read_, std::nullopt))
        listRemembered(std::move(*units));
}

void WindowSite::listRemembered(std::vector<VornClient::RememberedDevice> units)
{
    // Listed before the rows are recorded: what was remembered is not heard anew.
    client_.addRemembered(std::move(units));
    connect(&client_, &VornClient::deviceAdded, this, &WindowSite::recordRows);
    connect(&client_, &VornClient::devicesUpdated, this, &WindowSite::recordRows);
    recordRows(0, static_cast<int>(client_.devices().size()) - 1);
    emit rememberedListed();
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
