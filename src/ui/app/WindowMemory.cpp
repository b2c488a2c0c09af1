// SPDX-License-Identifier: Apache-2.0
#include "WindowMemory.h"

#include <algorithm>
#include <optional>

#include <QFileInfo>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QScreen>
#include <QSettings>
#include <QWindow>

#include "Ipv4.h"

namespace {

constexpr auto kHolderName = "vornlink.windowMemory";
constexpr auto kGeometry = "window/geometry";
constexpr auto kSidebarWidth = "window/sidebarWidth";
constexpr auto kActivityShown = "window/activityShown";
constexpr auto kLastUnit = "window/lastUnit";
constexpr auto kLastTab = "window/lastTab";
constexpr auto kBackupFolder = "backup/folder";
constexpr auto kSiteStore = "site/store";
// The editor's tabs: Tally, Communication, Network, Details.
constexpr int kTabCount = 4;
// No sidebar wider than this is taken from the file.
constexpr qreal kWidestSidebar = 4000;

// A value of the type asked for, or nothing: a damaged file gives nothing.
template <typename T>
std::optional<T> read(const QSettings& settings, const char* key)
{
    const QVariant value = settings.value(QLatin1String(key));
    if (!value.isValid() || !value.canConvert<T>())
        return std::nullopt;
    return value.value<T>();
}

bool isAddress(const QString& text)
{
    return Settings::Ipv4::parse(text.toStdString()).has_value();
}

}  // namespace

WindowMemory::WindowMemory(std::unique_ptr<QSettings> settings, QObject* parent)
    : QObject(parent), settings_(std::move(settings))
{
    if (!settings_)
        return;
    // An unreadable file is left behind: every value keeps its default.
    if (settings_->status() != QSettings::NoError) {
        qWarning("window settings %s cannot be read; starting with defaults", qPrintable(settings_->fileName()));
        return;
    }
    if (const auto width = read<qreal>(*settings_, kSidebarWidth); width && *width > 0 && *width < kWidestSidebar)
        sidebarWidth_ = *width;
    if (const auto shown = read<bool>(*settings_, kActivityShown))
        activityShown_ = *shown;
    if (const auto unit = read<QString>(*settings_, kLastUnit); unit && isAddress(*unit))
        lastUnit_ = *unit;
    if (const auto tab = read<int>(*settings_, kLastTab); tab && *tab >= 0 && *tab < kTabCount)
        lastTab_ = *tab;
    if (const auto folder = read<QUrl>(*settings_, kBackupFolder); folder && folder->isLocalFile())
        backupFolder_ = *folder;
    if (const auto site = read<QString>(*settings_, kSiteStore))
        siteStore_ = site->trimmed();
}

WindowMemory::~WindowMemory() = default;

void WindowMemory::provide(QQmlEngine& engine, std::unique_ptr<QSettings> settings)
{
    if (engine.findChild<WindowMemory*>(QLatin1String(kHolderName), Qt::FindDirectChildrenOnly))
        qFatal("WindowMemory: the engine already has one");
    auto* memory = new WindowMemory(std::move(settings), &engine);
    memory->setObjectName(QLatin1String(kHolderName));
    QJSEngine::setObjectOwnership(memory, QJSEngine::CppOwnership);
}

WindowMemory* WindowMemory::of(QQmlEngine& engine)
{
    if (auto* memory = engine.findChild<WindowMemory*>(QLatin1String(kHolderName), Qt::FindDirectChildrenOnly))
        return memory;
    provide(engine, nullptr);
    return of(engine);
}

void WindowMemory::store(const char* key, const QVariant& value)
{
    if (settings_)
        settings_->setValue(QLatin1String(key), value);
    emit changed();
}

void WindowMemory::setSidebarWidth(qreal width)
{
    if (width <= 0 || width >= kWidestSidebar || qFuzzyCompare(width, sidebarWidth_))
        return;
    sidebarWidth_ = width;
    store(kSidebarWidth, width);
}

void WindowMemory::setActivityShown(bool shown)
{
    if (shown == activityShown_)
        return;
    activityShown_ = shown;
    store(kActivityShown, shown);
}

void WindowMemory::setLastUnit(const QString& address)
{
    // Only a unit: an empty selection or several units leave the last one.
    if (address == lastUnit_ || !isAddress(address))
        return;
    lastUnit_ = address;
    store(kLastUnit, address);
}

void WindowMemory::setSiteStore(const QString& location)
{
    const QString trimmed = location.trimmed();
    if (trimmed == siteStore_)
        return;
    siteStore_ = trimmed;
    store(kSiteStore, trimmed);
}

void WindowMemory::setLastTab(int tab)
{
    if (tab == lastTab_ || tab < 0 || tab >= kTabCount)
        return;
    lastTab_ = tab;
    store(kLastTab, tab);
}

void WindowMemory::rememberBackupFile(const QUrl& file)
{
    if (!file.isLocalFile())
        return;
    const QUrl folder = QUrl::fromLocalFile(QFileInfo(file.toLocalFile()).absolutePath());
    if (folder == backupFolder_)
        return;
    backupFolder_ = folder;
    store(kBackupFolder, folder);
}

void WindowMemory::restoreGeometry(QWindow& window)
{
    const auto saved = settings_ && settings_->status() == QSettings::NoError ? read<QRect>(*settings_, kGeometry)
                                                                                : std::nullopt;
    if (saved && saved->isValid() && saved->width() >= window.minimumWidth()
        && saved->height() >= window.minimumHeight()) {
        const auto screens = QGuiApplication::screens();
        const bool placeFits = std::any_of(screens.cbegin(), screens.cend(), [&](const QScreen* screen) {
            return screen->availableGeometry().contains(*saved);
        });
        const bool sizeFits = std::any_of(screens.cbegin(), screens.cend(), [&](const QScreen* screen) {
            const QSize room = screen->availableGeometry().size();
            return saved->width() <= room.width() && saved->height() <= room.height();
        });
        if (placeFits)
            window.setGeometry(*saved);
        else if (sizeFits)
            window.resize(saved->size());
    }
}

void WindowMemory::saveGeometry(const QWindow& window)
{
    // A maximised or full-screen window keeps the place it had before.
    if (window.windowStates() & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized))
        return;
    store(kGeometry, window.geometry());
}
