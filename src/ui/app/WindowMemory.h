// SPDX-License-Identifier: Apache-2.0
// What the window remembers between runs: its place and size, the sidebar's
// width, whether the Activity pane is open, the last unit and tab, and the
// folder of the last backup file. Kept in the user's settings
// (~/.config/vornlink/VornLink.conf on Linux) where the program provides
// them; an engine not given any (the tests) remembers for its own life only.
#pragma once

#include <QObject>
#include <QRect>
#include <QSettings>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <memory>

class QQmlEngine;
class QJSEngine;
class QWindow;

class WindowMemory : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // 0 while nothing is remembered: the sidebar keeps its own width.
    Q_PROPERTY(qreal sidebarWidth READ sidebarWidth WRITE setSidebarWidth NOTIFY changed)
    Q_PROPERTY(bool activityShown READ activityShown WRITE setActivityShown NOTIFY changed)
    Q_PROPERTY(QString lastUnit READ lastUnit WRITE setLastUnit NOTIFY changed)
    Q_PROPERTY(int lastTab READ lastTab WRITE setLastTab NOTIFY changed)
    // The folder of the last backup file chosen, or empty.
    Q_PROPERTY(QUrl backupFolder READ backupFolder NOTIFY changed)
    // The site file or server URI chosen with "Site store…", used from the
    // next start; empty: the user's own file.
    Q_PROPERTY(QString siteStore READ siteStore WRITE setSiteStore NOTIFY changed)

public:
    // Remembers in `settings`; with none, for this object's life only. No
    // default constructor: QML takes the engine's memory through create().
    WindowMemory(std::unique_ptr<QSettings> settings, QObject* parent);
    ~WindowMemory() override;

    // Gives `engine` the memory its scenes use; call once, before a scene loads.
    static void provide(QQmlEngine& engine, std::unique_ptr<QSettings> settings);
    // The memory of `engine`: the provided one, else one of its own that keeps nothing.
    static WindowMemory* of(QQmlEngine& engine);
    static WindowMemory* create(QQmlEngine* engine, QJSEngine*) { return of(*engine); }

    qreal sidebarWidth() const { return sidebarWidth_; }
    void setSidebarWidth(qreal width);
    bool activityShown() const { return activityShown_; }
    void setActivityShown(bool shown);
    QString lastUnit() const { return lastUnit_; }
    void setLastUnit(const QString& address);
    int lastTab() const { return lastTab_; }
    void setLastTab(int tab);
    QUrl backupFolder() const { return backupFolder_; }
    QString siteStore() const { return siteStore_; }
    void setSiteStore(const QString& location);
    // Remembers the folder of a backup file just chosen.
    Q_INVOKABLE void rememberBackupFile(const QUrl& file);

    // Puts `window` where it was left when that place is on a present screen
    // (else only its size, where a screen holds it); remembers it from then on.
    void restoreGeometry(QWindow& window);
    void saveGeometry(const QWindow& window);

signals:
    void changed();

private:
    void store(const char* key, const QVariant& value);

    std::unique_ptr<QSettings> settings_;
    qreal sidebarWidth_ = 0;
    bool activityShown_ = false;
    QString lastUnit_;
    int lastTab_ = 0;
    QUrl backupFolder_;
    QString siteStore_;
};
