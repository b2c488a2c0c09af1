// SPDX-License-Identifier: Apache-2.0
#include "WindowApp.h"

#include <cstdio>
#include <optional>
#include <span>

#include <QGuiApplication>
#include <QIcon>
#include <QImageReader>
#include <QPixmap>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QSettings>
#include <QScopeGuard>
#include <QtQml/QQmlExtensionPlugin>

#include "AppLogging.h"
#include "FontWarmUp.h"
#include "LatencyProbe.h"
#include "SharedClient.h"
#include "SingleInstance.h"
#include "Translations.h"
#include "WindowMemory.h"
#include "SiteLocation.h"
#include "UnitHistory.h"
#include "WindowRecorder.h"
#include "WindowSite.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace VornLink {
namespace {

bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

void bringToFront(QQuickWindow* window)
{
    window->show();
    window->raise();
    window->requestActivate();
}

void reportFirstFrame(QQuickWindow* window)
{
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window, [] { qCInfo(lcWindow, "first frame"); },
        Qt::SingleShotConnection);
}

// The icon built into the program, read by Qt's own PNG reader: a reader
// that may detect the format loads every image format plugin installed first,
// to ask each whether it reads the file.
QIcon bundledIcon()
{
    QImageReader reader(QStringLiteral(":/icons/" VORN_APP_ID ".png"), "png");
    reader.setAutoDetectImageFormat(false);
    return QIcon(QPixmap::fromImage(reader.read()));
}

}  // namespace

int runWindowApp(int& argc, char** argv)
{
    if (!hasDisplay()) {
        std::fputs(QCoreApplication::translate("VornLink",
                                               "vornlink: no display for the window (DISPLAY, WAYLAND_DISPLAY and"
                                               " QT_QPA_PLATFORM are unset); 'vornlink --selftest' runs without one\n")
                       .toUtf8()
                       .constData(),
                   stderr);
        return 1;
    }

    QGuiApplication app(argc, argv);
    // The user's settings: ~/.config/vornlink/VornLink.conf on Linux.
    QGuiApplication::setOrganizationName(QStringLiteral("vornlink"));
    QGuiApplication::setApplicationName(QStringLiteral("VornLink"));
    // Closing the window leaves discovery running; a new launch or the dock brings it back.
    QGuiApplication::setQuitOnLastWindowClosed(false);

    SingleInstance instance(SingleInstance::defaultName());
    if (instance.handOverToRunning()) {
        qCInfo(lcWindow, "handed over to the running instance");
        return 0;
    }

    const auto site = Site::siteChoiceFromArguments(std::span<const char* const>(argv, static_cast<std::size_t>(argc)));
    if (const auto* problem = std::get_if<std::string>(&site)) {
        std::fprintf(stderr, "vornlink: %s\n", problem->c_str());
        return 2;
    }

    // The QML loader thread starts reading the window's types at once; what
    // this thread does until the scene is made overlaps with it.
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QQmlApplicationEngine engine;
    const QUrl mainUrl(QStringLiteral("qrc:/VornLink/Main.qml"));
    QQmlComponent typesAhead(&engine, mainUrl, QQmlComponent::Asynchronous);

    installTranslations(app);
    // The desktop entry, the metadata and the icon are all named by the application id.
    QGuiApplication::setDesktopFileName(QStringLiteral(VORN_APP_ID));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral(VORN_APP_ID), bundledIcon()));

    SharedClient::provide(engine, SharedClient::deviceFactory());
    WindowMemory::provide(engine, std::make_unique<QSettings>());
    // The store opens and is read on its own thread while the scene builds; its
    // units are listed after the first frame, long before the first round
    // asks them by unicast.
    std::optional<WindowSite> siteMemory;
    if (const auto path = Site::sitePath(std::get<Site::SiteChoice>(site), WindowMemory::of(engine)->siteStore())) {
        siteMemory.emplace(*SharedClient::of(engine), *path);
        siteMemory->holdListing();
        QObject::connect(&*siteMemory, &WindowSite::changedElsewhere, &UnitHistory::storeChangedElsewhere);
    }
    // The History tabs and every write from the window go through the store; not after it is gone.
    WindowRecorder::use(siteMemory ? &siteMemory->recorder() : nullptr);
    const auto forgetRecorder = qScopeGuard([] { WindowRecorder::use(nullptr); });
    warmUpFonts();
    // Waits for what the loader thread has not read yet, then makes the scene.
    engine.load(mainUrl);
    auto* window = engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    if (!window) {
        std::fputs(QCoreApplication::translate("VornLink", "vornlink: the window could not be created\n").toUtf8().constData(),
                   stderr);
        return 1;
    }

    WindowMemory* memory = WindowMemory::of(engine);
    memory->restoreGeometry(*window);
    // Kept when the window closes (the program goes on) and when the program quits.
    QObject::connect(window, &QWindow::visibleChanged, memory, [memory, window](bool visible) {
        if (!visible)
            memory->saveGeometry(*window);
    });
    QObject::connect(&app, &QCoreApplication::aboutToQuit, memory, [memory, window] {
        if (window->isVisible())
            memory->saveGeometry(*window);
    });

    reportFirstFrame(window);
    if (siteMemory) {
        // The remembered units and earlier runs' activity come after the first frame, off its path.
        WindowSite* site = &*siteMemory;
        QObject::connect(
            window, &QQuickWindow::frameSwapped, site,
            [site] {
                site->releaseListing();
                site->showEarlierActivity();
            },
            Qt::SingleShotConnection);
    }
    startLatencyProbe(window, SharedClient::of(engine));
    bringToFront(window);
    QObject::connect(&instance, &SingleInstance::activationRequested, window, [window] {
        qCInfo(lcWindow, "raising the window for another launch");
        bringToFront(window);
    });
#if defined(Q_OS_MACOS)
    // The dock icon activates the application; bring a closed window back then.
    QObject::connect(&app, &QGuiApplication::applicationStateChanged, window, [window](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive && !window->isVisible())
            bringToFront(window);
    });
#endif
    return app.exec();
}

}  // namespace VornLink
