// SPDX-License-Identifier: Apache-2.0
// The window in German, as LANG=de_DE.UTF-8 starts it: every tab, the fleet
// views, the dialogs and the footer's site notice shot to window-shots/de-*.png for a look, checked
// for German texts and for text that does not fit its item. Run again under
// QT_SCALE_FACTOR (shots de-x2-*.png and so on).
#include <QQuickStyle>
#include <QTemporaryDir>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include "BackupFile.h"
#include "WindowHarness.h"
#include "WindowSite.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

Vorn::Config otherUnit(const char* serial, const char* channel)
{
    Vorn::Config config = studioUnit();
    config.insert_or_assign("Serial", serial);
    config.insert_or_assign("Channel", channel);
    return config;
}

void clickOn(Window& w, const char* name)
{
    QQuickItem* item = w.item(name);
    QVERIFY2(item, name);
    QTest::mouseClick(w.window, Qt::LeftButton, {}, item->mapToScene(item->boundingRect().center()).toPoint());
}

}  // namespace

class GermanShotTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QQuickStyle::setStyle(QStringLiteral("Basic"));
        QCOMPARE(useLanguage(QLocale(QStringLiteral("de_DE"))), QStringLiteral("de"));
    }

    void emptyWindow()
    {
        Window w;
        QVERIFY(w.load());
        QTRY_VERIFY(w.client()->status().startsWith(QStringLiteral("empfängt auf ")));
        check(w, QStringLiteral("de-no-units"),
              {"Netzwerk wird durchsucht\u2026", "Basisstation auswählen", "Abfragen", "Suchen"});
    }

    void editorTabs_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("tally") << 0 << QStringList{"Tally-Quelle", "ATEM-Port", "Bildmischer", "Typ 2", "GPIO 1"};
        QTest::newRow("communication") << 1 << QStringList{"Kommunikation", "Kanal", "Passwort", "Umgebungspegel"};
        QTest::newRow("network") << 2 << QStringList{"IP-Adresse", "Subnetzmaske", "Netzwerk anwenden\u2026"};
        QTest::newRow("details") << 3 << QStringList{"Gerätedetails"};
        QTest::newRow("history") << 4 << QStringList{"Verlauf der Konfiguration", "Passwörter zeigen",
                                                     "VornLink merkt sich diesen Standort nicht."};
    }

    void editorTabs()
    {
        QFETCH(int, tab);
        QFETCH(QStringList, expected);
        Window w;
        QVERIFY(w.load());
        openStudioUnit(w);
        w.detailView()->setProperty("tab", tab);
        expected << QStringLiteral("Neu laden") << QStringLiteral("Änderungen speichern")
                 << QStringLiteral("Kommunikation") << QStringLiteral("Kan. 3");
        check(w, QStringLiteral("de-editor-") + QString::fromUtf8(QTest::currentDataTag()), expected);
    }

    void networkConfirmation()
    {
        Window w;
        QVERIFY(w.load());
        openStudioUnit(w);
        w.detailView()->setProperty("tab", 2);
        w.field("network", "Gateway")->setProperty("text", QStringLiteral("10.232.0.254"));
        w.detailView()->setProperty("networkConfirmOpen", true);
        QTRY_VERIFY(w.visibleTexts().contains(QStringLiteral("Netzwerkeinstellungen auf 10.232.1.10 anwenden?")));
        check(w, QStringLiteral("de-editor-network-confirm"), {"Anwenden", "Abbrechen"});
    }

    void activityPane()
    {
        Window w;
        QVERIFY(w.load());
        openStudioUnit(w);
        w.client()->writeChanges("10.232.1.10", {{"Channel", "4"}});
        clickOn(w, "activityToggle");
        QTRY_VERIFY(w.item("activityPane")->isVisible());
        check(w, QStringLiteral("de-activity-pane"), {"Aktivität", "Alles kopieren"});
        QVERIFY(w.client()->log().last().contains(QStringLiteral("Schreiben \u2192 10.232.1.10")));
    }

    void selectedUnits()
    {
        Window w;
        QVERIFY(w.load());
        openStudioUnit(w);
        QObject* selection = w.item("contentView")->property("unitSelection").value<QObject*>();
        QMetaObject::invokeMethod(selection, "selectAll");
        QTRY_VERIFY(w.visibleTexts().contains(QStringLiteral("3 Geräte ausgewählt")));
        check(w, QStringLiteral("de-fleet-selected-units"), {"In 3 Geräten speichern", "Neu laden"});
    }

    void restoreReview()
    {
        Window w;
        QVERIFY(w.load());
        openStudioUnit(w);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("rig.json"));
        Settings::Backup backup{"2026-11-23T01:02:03Z", {}};
        backup.units.push_back(Settings::backupUnitOf("10.232.1.10", otherUnit("KT4-0002C9", "7")));
        backup.units.push_back(Settings::backupUnitOf("10.232.1.77", otherUnit("KT4-00FFFF", "2")));
        QVERIFY(Settings::writeBackupFile(path.toStdString(), backup));
        QObject* fleet = w.item("contentView")->property("fleet").value<QObject*>();
        QMetaObject::invokeMethod(fleet, "reviewFile", Q_ARG(QVariant, QUrl::fromLocalFile(path)));
        QTRY_VERIFY(w.visibleTexts().contains(QStringLiteral("Aus Sicherung wiederherstellen")));
        check(w, QStringLiteral("de-fleet-restore-review"),
              {"über die Seriennummer zugeordnet", "nicht gefunden", "Netzwerkeinstellungen einbeziehen", "Abbrechen"});
    }

    void forgetConfirmationAndSiteNotice()
    {
        Window w;
        QVERIFY(w.load());
        openStudioUnit(w);
        // A store whose folder cannot be made: the footer says nothing is remembered.
        QTemporaryDir dir;
        QFile blocker(dir.filePath(QStringLiteral("vornlink")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        VornLink::WindowSite site(*w.client(), dir.filePath(QStringLiteral("vornlink/site.sqlite")));
        QObject* dialog = w.item("contentView")->findChild<QObject*>(QStringLiteral("forgetDialog"));
        QVERIFY(dialog);
        QMetaObject::invokeMethod(dialog, "ask", Q_ARG(QVariant, QStringLiteral("10.232.1.10")));
        QTRY_VERIFY(w.visibleTexts().contains(QStringLiteral("KT400 \u00b70002C9 vergessen?")));
        // The store's notice comes once it has been opened on its own thread.
        QTRY_VERIFY(w.visibleTexts().contains(QStringLiteral("Wird nicht gemerkt: cannot make the folder ") +
                                              dir.filePath(QStringLiteral("vornlink"))));
        check(w, QStringLiteral("de-forget-confirm"), {"Vergessen", "Abbrechen"});
    }

    void refusedFile()
    {
        Window w;
        QVERIFY(w.load());
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("broken.json"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("{\"format\": \"vornlink-backup\", \"version\": 9}");
        file.close();
        QObject* fleet = w.item("contentView")->property("fleet").value<QObject*>();
        QMetaObject::invokeMethod(fleet, "reviewFile", Q_ARG(QVariant, QUrl::fromLocalFile(path)));
        const QString reason = QStringLiteral("Diese Datei kann nicht wiederhergestellt werden: %1: Datei: Version 9 ist "
                                              "neuer als die, die dieses Programm liest (1)")
                                   .arg(path);
        QTRY_VERIFY2(w.visibleTexts().contains(reason), qPrintable(w.visibleTexts().join(QLatin1String(" | "))));
        check(w, QStringLiteral("de-fleet-refused-file"), {"Abbrechen"});
    }

private:
    static void openStudioUnit(Window& w)
    {
        w.ingest("10.232.1.2", otherUnit("KT4-0001B7", "3"));
        w.ingest("10.232.1.1", otherUnit("KT4-0004F1", "1"));
        w.ingest("10.232.1.10", studioUnit());
        w.select(QStringLiteral("10.232.1.10"));
        QTRY_VERIFY(w.item("segmentBar") != nullptr);
    }

    // Shoots the window, finds the expected German texts and no text running over.
    static void check(Window& w, const QString& shot, const QStringList& expected)
    {
        w.shoot(shot);
        const QStringList texts = w.visibleTexts();
        for (const QString& text : expected)
            QVERIFY2(texts.contains(text), qPrintable(text + QStringLiteral(" not in: ") + texts.join(QLatin1String(" | "))));
        const QStringList clipped = w.clippedTexts();
        QVERIFY2(clipped.isEmpty(), qPrintable(QStringLiteral("wider than their item: ") + clipped.join(QLatin1String(" | "))));
    }
};

QTEST_MAIN(GermanShotTest)

#include "GermanShotTest.moc"
