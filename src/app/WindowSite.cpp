// SPDX-License-Identifier: Apache-2.0
#include "WindowSite.h"

namespace VornLink {

namespace {

struct Listed {
    std::string address;
    Vorn::Config config;
    Site::Time lastSeen;
};

std::vector<Listed> rememberedUnits(Site::SiteStore& store)
{
    std::vector<Listed> units;
    auto configurations = store.latestConfigurations();
    for (const auto& unit : store.units()) {
        const auto latest = configurations.find(unit.key);
        units.push_back({unit.address, latest == configurations.end() ? Vorn::Config{} : std::move(latest->second),
                         unit.lastSeen});
    }
    return units;
}

}  // namespace

WindowSite::WindowSite(VornClient& client, const QString& path) : client_(client), recorder_(path)
{
    const auto list = [this](std::vector<Listed> units) {
        for (auto& unit : units)
            client_.addRemembered(unit.address, std::move(unit.config), unit.lastSeen);
    };
    if (recorder_.onServer()) {
        // A server may be slow to answer or away: its units come when they
        // come, never holding up the first frame. A unit already heard is not
        // listed again, and a listed one is not recorded as heard.
        recorder_.run([this, list](Site::SiteStore& store) {
            QMetaObject::invokeMethod(this, [list, units = rememberedUnits(store)]() mutable { list(std::move(units)); },
                                      Qt::QueuedConnection);
        });
        recorder_.watch([this] { QMetaObject::invokeMethod(this, &WindowSite::changedElsewhere, Qt::QueuedConnection); });
    } else {
        std::vector<Listed> units;
        recorder_.runAndWait([&units](Site::SiteStore& store) { units = rememberedUnits(store); });
        // Listed before the rows are recorded: what was remembered is not heard anew.
        list(std::move(units));
    }
    connect(&client_, &VornClient::deviceAdded, this, [this](int row) { recordRows(row, row); });
    connect(&client_, &VornClient::devicesUpdated, this, &WindowSite::recordRows);
}

WindowSite::~WindowSite()
{
    recorder_.watch({});
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
