// SPDX-License-Identifier: Apache-2.0
// The window comes back as it was left: a first window is arranged and
// closed, a second one on the same settings file shows the same place and
// size, sidebar width, Activity pane, unit, tab and backup folder. A
// damaged file and a place on no present screen are ignored. Runs with
// XDG_CONFIG_HOME in a folder of its own and a 1920 x 1080 offscreen screen.
#include <QDir>
#include <QFile>
#include <QQuickStyle>
#include <QSettings>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include "WindowHarness.h"
#include "WindowMemory.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

const QRect kPlace(120, 90, 1100, 700);

// A window on the user's settings, placed as they say.
struct RememberingWindow : Window {
    bool open()
    {
        WindowMemory::provide(engine, std::make_unique<QSettings>());
        if (!load())
            return false;
        memory()->restoreGeometry(*window);
        return true;
    }
    WindowMemory* memory() { return WindowMemory::of(engine); }
    QQuickItem* view() { return item("contentView"); }
    void close()
    {
        memory()->saveGeometry(*window);
        window->close();
    }
};

QString settingsFile()
{
    return QSettings().fileName();
}

}  // namespace

class WindowMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QQuickStyle::setStyle(QStringLiteral("Basic"));
        QCoreApplication::setOrganizationName(QStringLiteral("vornlink"));
        QCoreApplication::setApplicationName(QStringLiteral("VornLink"));
        const QString config = qEnvironmentVariable("XDG_CONFIG_HOME");
        QVERIFY2(!config.isEmpty() && settingsFile().startsWith(config), qPrintable(settingsFile()));
        QCOMPARE(settingsFile(), config + QStringLiteral("/vornlink/VornLink.conf"));
    }

    void init() { QFile::remove(settingsFile()); }

    void theWindowComesBackAsItWasLeft()
    {
        const QString folder = QDir::tempPath();
        {
            RememberingWindow first;
            QVERIFY(first.open());
            first.window->setGeometry(kPlace);
            QTRY_COMPARE(first.window->geometry(), kPlace);
            first.ingest("10.232.1.2", studioUnit());
            first.ingest("10.232.1.10", studioUnit());
            first.select(QStringLiteral("10.232.1.10"));
            QTRY_VERIFY(first.detailView() != nullptr);
            first.detailView()->setProperty("tab", 2);
            first.view()->setProperty("activityShown", true);
            first.view()->setProperty("sidebarWidth", 330.0);
            QTRY_COMPARE(first.item("sidebar")->width(), 330.0);
            first.memory()->rememberBackupFile(QUrl::fromLocalFile(folder + QStringLiteral("/rig.json")));
            first.close();
        }
        QVERIFY(QFile::exists(settingsFile()));

        RememberingWindow second;
        QVERIFY(second.open());
        QTRY_COMPARE(second.window->geometry(), kPlace);
        QCOMPARE(second.item("sidebar")->width(), 330.0);
        QVERIFY(second.item("activityPane")->isVisible());
        QCOMPARE(second.selection(), QStringLiteral("10.232.1.10"));
        // The unit's editor opens on the remembered tab once the unit answers.
        QVERIFY(second.detailView() == nullptr);
        second.ingest("10.232.1.10", studioUnit());
        QTRY_VERIFY(second.detailView() != nullptr);
        QCOMPARE(second.detailView()->property("tab").toInt(), 2);
        QCOMPARE(second.memory()->backupFolder(), QUrl::fromLocalFile(folder));
    }

    void aPlaceOnNoPresentScreenKeepsOnlyTheSize()
    {
        {
            QSettings settings;
            settings.setValue(QStringLiteral("window/geometry"), QRect(5000, 3000, 1000, 650));
        }
        RememberingWindow w;
        QVERIFY(w.open());
        QTRY_COMPARE(w.window->size(), QSize(1000, 650));
        const QRect screen = w.window->screen()->availableGeometry();
        QVERIFY2(screen.intersects(w.window->geometry()), "the window is on the screen");
    }

    void aDamagedFileIsIgnored()
    {
        QDir().mkpath(QFileInfo(settingsFile()).absolutePath());
        QFile file(settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[window]\ngeometry=@Rect(\x01\xff garbage\nsidebarWidth=wide\nlastTab=99\nlastUnit=<b>x</b>\n"
                   "activityShown=@Variant(\\0\\0\\0\x7f\\0\\0\nbackup\\folder=\"http://example.invalid/\"\n");
        file.close();

        RememberingWindow w;
        QVERIFY(w.open());
        QCOMPARE(w.item("sidebar")->width(), 258.0);
        QCOMPARE(w.selection(), QString());
        QCOMPARE(w.memory()->lastTab(), 0);
        QVERIFY(w.memory()->backupFolder().isEmpty());
        QCOMPARE(w.window->size(), QSize(w.window->width(), w.window->height()));
        QVERIFY(w.window->width() >= w.window->minimumWidth());
    }
};

QTEST_MAIN(WindowMemoryTest)

#include "WindowMemoryTest.moc"
