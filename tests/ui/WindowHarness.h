// SPDX-License-Identifier: Apache-2.0
// The whole window loaded offscreen on a loopback client, with helpers to
// feed it units, find its items, read what it shows and save it as PNG.
#pragma once

#include <QImage>
#include <QLocale>
#include <QNetworkAccessManager>
#include <QQmlApplicationEngine>
#include <QQmlNetworkAccessManagerFactory>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <memory>
#include <string_view>

#include "SharedClient.h"
#include "VornProtocol.h"

// Counts every request the QML engine makes: the window must make none.
class CountingNetwork : public QQmlNetworkAccessManagerFactory {
public:
    class Manager : public QNetworkAccessManager {
    public:
        using QNetworkAccessManager::QNetworkAccessManager;
        inline static QStringList requested;

    protected:
        QNetworkReply* createRequest(Operation op, const QNetworkRequest& request, QIODevice* data) override;
    };

    QNetworkAccessManager* create(QObject* parent) override { return new Manager(parent); }
};

// Installs the program's translations for `locale` as the program does at
// start, once per test process (the first call wins; Window::load asks for
// English, whose file gives the plural forms: "1 network", not "1
// network(s)"). Returns the language loaded, e.g. "en" or "de".
QString useLanguage(const QLocale& locale);

// A unit as a studio has it: every key the editor shows, firmware and serial.
Vorn::Config studioUnit();

// The window on a loopback client (free port, broadcast to 127.0.0.3).
struct Window {
    Window();

    bool load();
    VornClient* client() { return SharedClient::of(engine); }
    // The first item named `name` in the visual tree (views move their items
    // away from their object parents), or null.
    QQuickItem* item(const char* name);
    // The open editor's view (its tab, its confirmation), or null.
    QObject* detailView();
    // The DeviceEditor of the open editor, or null when none is open.
    QObject* editor();
    // The field of `key` in one of the open editor's sections, e.g. ("tally", "AtemPort").
    QObject* field(const char* section, std::string_view key);
    // Shows the unit at `ip` alone, as a click or "Add by IP" does.
    void select(const QString& ip);
    // The unit the single-unit views show.
    QString selection();
    void ingest(const std::string& ip, Vorn::Config config, Vorn::Arrival arrival = {});
    // Texts of every Text item that is on screen.
    QStringList visibleTexts();
    // Every visible Text item, for checks of where texts were laid out.
    QList<QQuickItem*> visibleTextItems();
    // The texts on screen that do not fit and do not elide: wider than their
    // item without wrapping, lower than their lines, or cut at the side by a
    // clipping view or the window's edge.
    QStringList clippedTexts();
    // Saves the window as window-shots/NAME.png, or x<SCALE>-NAME.png under
    // QT_SCALE_FACTOR, and returns the image.
    QImage shoot(const QString& name);

    std::uint16_t port = 0;
    CountingNetwork network;
    QQmlApplicationEngine engine;
    QQuickWindow* window = nullptr;
};
