// SPDX-License-Identifier: Apache-2.0
#include "WindowSite.h"

#include <QMetaObject>
#include <QStringList>

#include <utility>

#include "UnitHistory.h"

namespace VornLink {
namespace {

// Every remembered unit with its latest configuration, as the list shows it offline.
std::vector<VornClient::RememberedDevice> rememberedUnitsOf(Site::SiteStore& store)
{
    std::vector<VornClient::RememberedDevice> units;
    auto configurations = store.latestConfigurations();
    for (const auto& unit : store.units()) {
        const auto latest = configurations.find(unit.key);
        units.push_back({unit.address, latest == configurations.end() ? Vorn::Config{} : std::move(latest->second),
                         unit.lastSeen});
    }
    return units;
}

}  // namespace

WindowSite::WindowSite(VornClient& client, const QString& path)
    : client_(client), recorder_(path), startedAt_(Site::Clock::now())
{
    // Read on the store's thread while the window builds; listed on the
    // window's thread in one go, with what the store has to say.
    recorder_.run([this](Site::SiteStore& store) {
        auto units = rememberedUnitsOf(store);
        // The store is open by now: asking the recorder does not wait.
        Opening opening{store.state(), store.problem(), recorder_.takeDamagedNotice()};
        QMetaObject::invokeMethod(
            this,
            [this, units = std::move(units), opening = std::move(opening)]() mutable {
                read_ = Read{std::move(units), std::move(opening)};
                if (!held_)
                    releaseListing();
            },
            Qt::QueuedConnection);
    });
    connect(&client_, &VornClient::unitForgotten, this, &WindowSite::forget);
    connect(&client_, &VornClient::logged, this, [this](WallClock::time_point at, const QString& message) {
        recorder_.logged({at, message.toStdString()});
    });
    // A batch that fails later (a full disk) is told from the store's thread.
    // This object outlives the store's thread (its recorder ends it first).
    recorder_.setProblemListener([this](Site::StoreState state, const QString& problem) {
        QMetaObject::invokeMethod(this, [this, state, problem] { showProblem(state, problem); }, Qt::QueuedConnection);
    });
    recorder_.watch([this] { QMetaObject::invokeMethod(this, &WindowSite::changedElsewhere, Qt::QueuedConnection); });
    connect(this, &WindowSite::changedElsewhere, this, &WindowSite::showWritesElsewhere);
    connect(this, &WindowSite::changedElsewhere, this, &WindowSite::listRememberedOnceReadable);
}

WindowSite::~WindowSite()
{
    recorder_.setProblemListener(nullptr);
    recorder_.watch(nullptr);
}

void WindowSite::holdListing()
{
    held_ = true;
}

void WindowSite::releaseListing()
{
    held_ = false;
    if (auto read = std::exchange(read_, std::nullopt))
        listRemembered(std::move(read->units), read->opening);
}

void WindowSite::listRemembered(std::vector<VornClient::RememberedDevice> units, const Opening& opening)
{
    // Listed before the rows are recorded: what was remembered is not heard anew.
    client_.addRemembered(std::move(units));
    connect(&client_, &VornClient::deviceAdded, this, &WindowSite::recordRows);
    connect(&client_, &VornClient::devicesUpdated, this, &WindowSite::recordRows);
    recordRows(0, static_cast<int>(client_.devices().size()) - 1);
    if (opening.damagedAside)
        damagedNotice_ = tr("The site file was damaged; kept as %1 and started a new one").arg(*opening.damagedAside);
    unitsUnread_ = opening.state == Site::StoreState::Unreachable;
    showProblem(opening.state, opening.problem);
    emit rememberedListed();
}

void WindowSite::listRememberedOnceReadable()
{
    if (!unitsUnread_)
        return;
    recorder_.run([this](Site::SiteStore& store) {
        if (!store.canRead())
            return;
        QMetaObject::invokeMethod(
            this,
            [this, units = rememberedUnitsOf(store)]() mutable {
                // Whichever look came first lists them; a unit listed meanwhile keeps its row.
                if (std::exchange(unitsUnread_, false))
                    client_.addRemembered(std::move(units));
            },
            Qt::QueuedConnection);
    });
}

void WindowSite::showProblem(Site::StoreState state, const QString& problem)
{
    // What is recorded while the server is away waits in the journal: it is
    // remembered, only later.
    if (state == Site::StoreState::Unreachable)
        client_.setSiteNotice(tr("Site server unreachable: %1").arg(problem));
    else if (state == Site::StoreState::NewerSchema && recorder_.onServer())
        client_.setSiteNotice(tr("The site server holds the store of a newer VornLink; changes are not remembered"));
    else if (state == Site::StoreState::NewerSchema)
        client_.setSiteNotice(tr("This site file is from a newer VornLink; changes are not remembered"));
    else if (!problem.isEmpty())
        client_.setSiteNotice(tr("Not remembering: %1").arg(problem));
    else
        client_.setSiteNotice(damagedNotice_);
}

void WindowSite::showEarlierActivity()
{
    recorder_.run([this, before = startedAt_](Site::SiteStore& store) {
        std::vector<EarlierEntry> earlier;
        for (auto& entry : store.activityBefore(before, VornClient::kLogLimit))
            earlier.push_back({entry.at, QString::fromStdString(entry.message)});
        if (earlier.empty())
            return;
        // Back on the window's thread, in one hand-over.
        QMetaObject::invokeMethod(
            this, [this, earlier = std::move(earlier)] { client_.showEarlierLog(earlier); }, Qt::QueuedConnection);
    });
}

void WindowSite::showWritesElsewhere()
{
    recorder_.run([this](Site::SiteStore& store) {
        auto writes = store.newWritesElsewhere();
        if (writes.empty())
            return;
        QMetaObject::invokeMethod(
            this,
            [this, writes = std::move(writes)] {
                for (const auto& write : writes)
                    client_.showElsewhere(write.sentAt, writeElsewhereText(write));
            },
            Qt::QueuedConnection);
    });
}

QString WindowSite::writeElsewhereText(const Site::WriteRecord& write)
{
    // The keys only: a value may be a password.
    QStringList keys;
    for (const auto& [key, value] : write.sent)
        keys << QString::fromStdString(key);
    const auto text = [](const std::string& value) { return QString::fromStdString(value); };
    return tr("%1 on %2 wrote %3 \u2192 %4 · %5")
        .arg(text(write.user), text(write.host), keys.join(QStringLiteral(", ")), text(write.address),
             UnitHistory::verdictText(write));
}

void WindowSite::forget(const Device& unit)
{
    const std::string key = Site::unitKey(Site::serialOf(unit.config), unit.ip);
    recorder_.run([key](Site::SiteStore& store) { store.forget(key); });
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
