// SPDX-License-Identifier: Apache-2.0
#include "WindowSite.h"

namespace VornLink {

WindowSite::WindowSite(VornClient& client, const QString& path) : client_(client), recorder_(path)
{
    std::vector<std::string> addresses;
    recorder_.runAndWait([&addresses](Site::SiteStore& store) {
        for (const auto& unit : store.units())
            addresses.push_back(unit.address);
    });
    client_.setRemembered(addresses);
    connect(&client_, &VornClient::deviceAdded, this, [this](int row) { recordRows(row, row); });
    connect(&client_, &VornClient::devicesUpdated, this, &WindowSite::recordRows);
}

void WindowSite::recordRows(int first, int last)
{
    const auto& devices = client_.devices();
    std::vector<Site::Sighting> sightings;
    for (int row = std::max(first, 0); row <= last && row < static_cast<int>(devices.size()); ++row) {
        const Device& device = devices[static_cast<std::size_t>(row)];
        sightings.push_back({device.ip, client_.heardOnText(device), device.config, device.lastSeen});
    }
    if (!sightings.empty())
        recorder_.heard(std::move(sightings));
}

}  // namespace VornLink
