// SPDX-License-Identifier: Apache-2.0
// The whole window rendered offscreen in its main states, saved as PNG for a
// look, and checked for the texts and parts each state must show.
#include <algorithm>

#include <QQmlComponent>
#include <QQuickStyle>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include <net/if.h>
#include <unistd.h>

#include "Ipv4.h"
#include "ClientTestKit.h"
#include "FakeUnit.h"
#include "WindowHarness.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

Vorn::Config unitConfig(const char* serial, const char* channel)
{
    return {{"Serial", serial}, {"Channel", channel}, {"AtemIp", "192.168.10.240"}, {"SwitcherBand", "1"}};
}

// Two made-up links: indexes far above any real interface's, so a send
// through one of them fails instead of leaving the machine.
const Vorn::InterfaceAddress kOffice{"office", 9001, Settings::Ipv4::parse("192.168.50.20")->value(), 24,
                                     IFF_UP | IFF_RUNNING | IFF_BROADCAST};
const Vorn::InterfaceAddress kStudio{"studio", 9002, Settings::Ipv4::parse("10.77.1.5")->value(), 24,
                                     IFF_UP | IFF_RUNNING | IFF_BROADCAST};
const Vorn::Arrival kOnStudio{kStudio.index, kStudio.address};

// The studio unit at a loopback address, so a save stays on this machine.
constexpr const char* kSavedUnit = "127.0.0.5";

// Shoots the window as NAME and fails on any text that does not fit its item.
QImage shoot(Window& w, const QString& name)
{
    const QImage shot = w.shoot(name);
    const QStringList clipped = w.clippedTexts();
    if (!clipped.isEmpty())
        QTest::qFail(qPrintable(name + QStringLiteral(": wider than their item: ") + clipped.join(QLatin1String(" | "))),
                     __FILE__, __LINE__);
    return shot;
}

Vorn::Config savedUnit(const Vorn::Config& changes = {})
{
    Vorn::Config config = studioUnit();
    config.insert_or_assign("IPAddress", kSavedUnit);
    config.insert_or_assign("Netmask", "255.0.0.0");
    config.insert_or_assign("Gateway", "127.0.0.1");
    for (const auto& [key, value] : changes)
        config.insert_or_assign(key, value);
    return config;
}

void clickOn(Window& w, const char* name)
{
    QQuickItem* item = w.item(name);
    QTest::mouseClick(w.window, Qt::LeftButton, {}, item->mapToScene(item->boundingRect().center()).toPoint());
}

// Two units listed, the studio unit selected with its editor open.
bool openStudioUnit(Window& w)
{
    w.ingest("10.232.1.2", unitConfig("KT4-0001B7", "3"));
    w.ingest("10.232.1.10", studioUnit());
    w.select(QStringLiteral("10.232.1.10"));
    return QTest::qWaitFor([&] { return w.item("segmentBar") != nullptr; });
}

}  // namespace

class WindowShotTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QQuickStyle::setStyle(QStringLiteral("Basic"));
        CountingNetwork::Manager::requested.clear();
    }

    void noUnits()
    {
        Window w;
        QVERIFY(w.load());
        QTRY_VERIFY(w.client()->status().startsWith(QStringLiteral("listening on ")));
        const QImage shot = shoot(w, QStringLiteral("no-units"));
        QCOMPARE(shot.size(), w.window->size() * w.window->devicePixelRatio());

        const QStringList texts = w.visibleTexts();
        for (const char* expected : {"Scanning the network\u2026", "Select a base station",
                                     "Pick a unit from the list, or add one by IP.", "Query", "Discover", "0"})
            QVERIFY2(texts.contains(QString::fromUtf8(expected)), expected);
        QVERIFY(texts.contains(w.client()->status()));
        QCOMPARE(w.item("addressField")->property("placeholderText").toString(), QStringLiteral("Add by IP"));
        QCOMPARE(w.item("deviceList")->property("count").toInt(), 0);
        QVERIFY(!w.item("detailLoader")->property("active").toBool());
        QCOMPARE(w.item("statusDot")->property("color").value<QColor>().name(), QStringLiteral("#32d74b"));
        QCOMPARE(w.window->minimumSize(), QSize(860, 560));
        QCOMPARE(w.item("sidebar")->width(), 258.0);
    }

    void threeUnitsOneSelected()
    {
        Window w;
        QVERIFY(w.load());
        w.ingest("10.232.1.2", unitConfig("KT4-0001B7", "3"));
        w.ingest("10.232.1.10", unitConfig("KT4-0002C9", "5"));
        w.ingest("10.232.1.1", unitConfig("KT4-0004F1", "1"));
        w.select(QStringLiteral("10.232.1.10"));
        QTRY_VERIFY(w.item("detailTitle") != nullptr);
        shoot(w, QStringLiteral("three-units"));

        const QStringList texts = w.visibleTexts();
        QVERIFY(!texts.contains(QStringLiteral("Scanning the network\u2026")));
        QVERIFY(!texts.contains(QStringLiteral("Select a base station")));
        QVERIFY(texts.contains(QStringLiteral("3")));
        // The rows in address-text order, each with its title over its address.
        const QStringList rows = {"10.232.1.1", "10.232.1.10", "10.232.1.2"};
        qsizetype previous = -1;
        for (const QString& ip : rows) {
            const qsizetype at = texts.indexOf(ip);
            QVERIFY2(at > previous, qPrintable(ip));
            QCOMPARE(texts.at(at - 1), w.client()->device(ip.toStdString())->title());
            previous = at;
        }
        QCOMPARE(w.item("detailTitle")->property("text").toString(), QStringLiteral("KT400 \u00b70002C9"));
        QCOMPARE(w.item("detailAddress")->property("text").toString(), QStringLiteral("10.232.1.10"));
    }

    // Each tab of the editor for one unit, shot and checked for what it must show.
    void editorTabs_data()
    {
        QTest::addColumn<QString>("segment");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("tally") << "segment0"
                               << QStringList{"Tally source", "ATEM IP", "ATEM port", "Switcher", "Tally Channel",
                                              "Tally / GPIO", "Blackmagic ATEM", "Cameras 13\u201324", "type 2",
                                              "gpio 1",
                                              "A base station drives 12 tally channels at a time. Tally bank selects "
                                              "which 12 \u2014 13\u201324 for cameras beyond 12. One unit can\u2019t "
                                              "span more than 12 at once (firmware limit); use a second base station "
                                              "on the next bank."};
        QTest::newRow("communication")
            << "segment1"
            << QStringList{"Communication", "Channel", "Password", "Scene Level", "Suppression Level", "Wire2",
                           "3 \u00b7 Deafening (loud voice)", "2 \u00b7 2%"};
        QTest::newRow("network") << "segment2"
                                 << QStringList{"Network", "IP address", "Subnet mask", "Gateway",
                                                "Apply network\u2026",
                                                "Changing IP / mask / gateway can take the unit off-network \u2014 "
                                                "recovery then needs the serial DB9 tool. Applied separately, with "
                                                "confirmation."};
        QTest::newRow("details") << "segment3"
                                 << QStringList{"Device details", "IPAddress", "10.232.1.10", "Netmask", "255.255.0.0",
                                                "Gateway", "10.232.0.1", "ManagerIp", "10.232.0.50", "AtemIp",
                                                "10.232.0.20", "AtemPort", "9910", "SwitcherBand", "7",
                                                "SwitcherModel", "0", "Channel", "3", "CallMagic", "studio-b",
                                                "TallyType", "2", "TallyGpioType", "1", "AtemExtTally", "1",
                                                "Serial", "KT4-0002C9", "Version", "2.4.1"};
        QTest::newRow("history") << "segment4"
                                 << QStringList{"Configuration history", "Show passwords",
                                                "VornLink is not remembering this site."};
    }

    void editorTabs()
    {
        QFETCH(QString, segment);
        QFETCH(QStringList, expected);
        Window w;
        QVERIFY(w.load());
        QVERIFY(openStudioUnit(w));
        clickOn(w, qPrintable(segment));
        shoot(w, QStringLiteral("editor-") + QString::fromUtf8(QTest::currentDataTag()));

        const QStringList texts = w.visibleTexts();
        // The header and the tab bar on every tab.
        for (const char* always : {"KT400 \u00b70002C9", "10.232.1.10", "Online", "Blackmagic ATEM", "Ch 3",
                                   "fw 2.4.1", "Reload", "Save changes", "Tally", "Communication", "Network",
                                   "Details"})
            QVERIFY2(texts.contains(QString::fromUtf8(always)), always);
        QVERIFY(!texts.contains(QStringLiteral("unsaved changes")));
        for (const QString& text : expected)
            QVERIFY2(texts.contains(text), qPrintable(text));
    }

    // An edited gateway waiting for confirmation: "unsaved changes" stays off
    // (network edits are not saved by Save changes), the alert repeats the values.
    void networkConfirmation()
    {
        Window w;
        QVERIFY(w.load());
        w.ingest("10.232.1.10", studioUnit());
        w.select(QStringLiteral("10.232.1.10"));
        QTRY_VERIFY(w.item("segmentBar") != nullptr);
        w.field("tally", "AtemPort")->setProperty("text", QStringLiteral("9911"));
        w.detailView()->setProperty("tab", 2);
        w.field("network", "Gateway")->setProperty("text", QStringLiteral("10.232.0.254"));
        w.detailView()->setProperty("networkConfirmOpen", true);
        QTRY_VERIFY(w.visibleTexts().contains(QStringLiteral("Apply network settings to 10.232.1.10?")));
        shoot(w, QStringLiteral("editor-network-confirm"));

        const QStringList texts = w.visibleTexts();
        for (const char* expected : {"unsaved changes", "Apply network settings to 10.232.1.10?", "Apply", "Cancel"})
            QVERIFY2(texts.contains(QString::fromUtf8(expected)), expected);
        QVERIFY(texts.contains(QStringLiteral("New: IP 10.232.1.10, mask 255.255.0.0, gateway 10.232.0.254.\n\n"
                                              "If the IP changes, the unit reappears in the list under its new "
                                              "address. A wrong value can strip it off-network (serial DB9 "
                                              "recovery).")));
    }

    // The activity pane opened from the sidebar under a unit's editor, with
    // the discovery lines and a write, newest last.
    void activityPane()
    {
        Window w;
        QVERIFY(w.load());
        QVERIFY(openStudioUnit(w));
        w.client()->writeChanges("10.232.1.10", {{"Channel", "4"}});
        clickOn(w, "activityToggle");
        QTRY_VERIFY(w.item("activityPane")->isVisible());
        shoot(w, QStringLiteral("activity-pane"));

        const QStringList log = w.client()->log();
        QVERIFY(log.last().endsWith(QStringLiteral("  write \u2192 10.232.1.10: Channel=4")));
        QQuickItem* logView = w.item("logView");
        QCOMPARE(logView->property("count").toInt(), log.size());
        QStringList shown;
        for (QQuickItem* line : logView->property("contentItem").value<QQuickItem*>()->childItems())
            if (line->isVisible() && line->property("line").isValid())
                shown.append(line->property("text").toString());
        std::sort(shown.begin(), shown.end());
        QStringList expected = log;
        std::sort(expected.begin(), expected.end());
        QCOMPARE(shown, expected);
        const QStringList texts = w.visibleTexts();
        for (const char* expected : {"Activity", "Copy all", "KT400 \u00b70002C9"})
            QVERIFY2(texts.contains(QString::fromUtf8(expected)), expected);
    }

    // A studio link with a unit in its subnet, one outside it and two units
    // answering under one address: each warning in its row, the selected
    // unit's chips, the Network tab's note, where it was heard, the networks.
    void networkWarnings_data()
    {
        QTest::addColumn<QString>("selection");
        QTest::addColumn<QString>("segment");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("wrong-subnet") << "192.168.0.50" << "segment2"
                                      << QStringList{"Wrong subnet",
                                                     "Not in the subnet of studio: saves go out through studio, "
                                                     "and the unit needs an address in 10.77.1.0/24."};
        QTest::newRow("conflict") << "10.77.1.30" << "segment3"
                                  << QStringList{"Address conflict", "Heard on", "studio \u00b7 10.77.1.5/24",
                                                 "Serials seen", "KT4-0000A1, KT4-0000B2"};
    }

    void networkWarnings()
    {
        QFETCH(QString, selection);
        QFETCH(QString, segment);
        QFETCH(QStringList, expected);
        Window w;
        w.client()->setInterfaceReader([] { return std::vector{kOffice, kStudio}; });
        QVERIFY(w.load());
        w.ingest("10.77.1.20", {{"Serial", "KT4-0001B7"}, {"Channel", "2"}}, kOnStudio);
        w.ingest("192.168.0.50", {{"Serial", "KT4-00AA50"}, {"Channel", "1"}}, kOnStudio);
        w.ingest("10.77.1.30", {{"Serial", "KT4-0000A1"}, {"Channel", "3"}}, kOnStudio);
        w.ingest("10.77.1.30", {{"Serial", "KT4-0000B2"}, {"Channel", "3"}}, kOnStudio);
        w.select(selection);
        QTRY_VERIFY(w.item("segmentBar") != nullptr);
        clickOn(w, qPrintable(segment));
        shoot(w, QStringLiteral("network-warnings-") + QString::fromUtf8(QTest::currentDataTag()));

        const QStringList texts = w.visibleTexts();
        for (const char* always : {"192.168.0.50", " \u00b7 wrong subnet", "10.77.1.30", " \u00b7 address conflict",
                                   "10.77.1.20", "2 networks"})
            QVERIFY2(texts.contains(QString::fromUtf8(always)), always);
        for (const QString& text : expected)
            QVERIFY2(texts.contains(text), qPrintable(text));
    }

    void networksPopup()
    {
        Window w;
        w.client()->setInterfaceReader([] { return std::vector{kOffice, kStudio}; });
        QVERIFY(w.load());
        w.ingest("10.77.1.20", {{"Serial", "KT4-0001B7"}}, kOnStudio);
        w.ingest("10.77.1.21", {{"Serial", "KT4-0001B8"}}, kOnStudio);
        clickOn(w, "networksButton");
        QTRY_VERIFY(w.visibleTexts().contains(QStringLiteral("Discovery goes out on")));
        shoot(w, QStringLiteral("networks-popup"));

        const QStringList texts = w.visibleTexts();
        for (const char* expected : {"office", "192.168.50.20/24", "0 units", "studio", "10.77.1.5/24", "2 units"})
            QVERIFY2(texts.contains(QString::fromUtf8(expected)), expected);
    }

    // The check every shot runs finds a text squeezed into a narrower item,
    // one running out of the window and one lower than its lines, and lets
    // an eliding text be.
    void clippedTextsAreFound()
    {
        Window w;
        QVERIFY(w.load());
        QVERIFY2(w.clippedTexts().isEmpty(), qPrintable(w.clippedTexts().join(QLatin1String(" | "))));
        const auto place = [&](const QByteArray& text) {
            QQmlComponent component(&w.engine);
            component.setData("import QtQuick\n" + text, QUrl());
            auto* item = qobject_cast<QQuickItem*>(component.create());
            item->setParent(w.window->contentItem());
            item->setParentItem(w.window->contentItem());
            return item;
        };
        QQuickItem* squeezed = place("Text { text: \"Netzwerkeinstellungen\"; width: 30 }");
        QCOMPARE(w.clippedTexts().size(), 1);
        squeezed->setProperty("elide", Qt::ElideRight);
        QVERIFY(w.clippedTexts().isEmpty());
        QQuickItem* outside = place("Text { text: \"Anwenden\" }");
        outside->setX(w.window->width() - outside->width() / 2);
        QCOMPARE(w.clippedTexts().size(), 1);
        outside->setX(0);
        QQuickItem* low = place("Text { text: \"Neu:\\nIP\\nMaske\"; width: 200; height: 12 }");
        QCOMPARE(w.clippedTexts().size(), 1);
        low->setHeight(low->implicitHeight());
        QVERIFY(w.clippedTexts().isEmpty());
    }

    void bindFailure()
    {
        Window w;
        const int holder = ClientTest::bindUdp("0.0.0.0", w.client()->socket().port(), false);
        QVERIFY(holder >= 0);
        QVERIFY(w.load());
        const QString status = QStringLiteral("cannot bind UDP %1 (in use?)").arg(w.port);
        QTRY_COMPARE(w.client()->status(), status);
        shoot(w, QStringLiteral("bind-failure"));
        ::close(holder);

        const QStringList texts = w.visibleTexts();
        QVERIFY(texts.contains(status));
        QVERIFY(texts.contains(QStringLiteral("Scanning the network\u2026")));
        QVERIFY(texts.contains(QStringLiteral("Select a base station")));
        QCOMPARE(w.item("statusDot")->property("color").value<QColor>().name(), QStringLiteral("#ffd60a"));
    }

    void untrustedSerialIsShownAsText()
    {
        Window w;
        QVERIFY(w.load());
        const char* serial = R"(<img src="http://127.0.0.1:9/x.png"><b>big</b>)";
        w.ingest("10.232.1.5", {{"Serial", serial}});
        w.select(QStringLiteral("10.232.1.5"));
        QTRY_VERIFY(w.item("detailTitle") != nullptr);
        shoot(w, QStringLiteral("untrusted-serial"));

        const QString title = w.client()->device("10.232.1.5")->title();
        QVERIFY(title.endsWith(QStringLiteral("</b>")));
        QCOMPARE(w.visibleTexts().count(title), 2);  // the row and the detail header
        QCOMPARE(w.item("detailTitle")->property("text").toString(), title);
        QTest::qWait(200);
        QVERIFY2(CountingNetwork::Manager::requested.isEmpty(), qPrintable(CountingNetwork::Manager::requested.join(' ')));
    }

    // The verdict under the header's buttons after a save or apply, one
    // window each: confirmed, keys not confirmed (also on Details), no
    // answer, and a move with its Show button.
    void saveVerdicts_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("expected");
        QTest::newRow("confirmed") << "confirmed" << QString::fromUtf8("Saved \u00b7 confirmed");
        QTest::newRow("not-confirmed") << "not-confirmed" << "Not confirmed: AtemPort, Channel";
        QTest::newRow("no-answer") << "no-answer" << "No answer after saving";
        QTest::newRow("moved") << "moved" << "Moved to 127.0.0.6";
    }

    void saveVerdicts()
    {
        QFETCH(QString, kind);
        QFETCH(QString, expected);
        Window w;
        QVERIFY(w.load());
        ClientTest::ManualTime time{w.client()->clock()};
        w.ingest(kSavedUnit, savedUnit());
        w.select(QString::fromUtf8(kSavedUnit));
        QTRY_VERIFY(w.item("segmentBar") != nullptr);
        QObject* editor = w.editor();
        if (kind == "moved") {
            w.detailView()->setProperty("tab", 2);
            w.field("network", "IPAddress")->setProperty("text", QStringLiteral("127.0.0.6"));
            QMetaObject::invokeMethod(editor, "applyNetwork");
        } else {
            w.detailView()->setProperty("tab", 1);
            w.field("communication", "Channel")->setProperty("text", QStringLiteral("5"));
            w.field("tally", "AtemPort")->setProperty("text", QStringLiteral("9911"));
            QMetaObject::invokeMethod(editor, "save");
        }
        QVERIFY(!w.item("saveVerdict")->isVisible());
        time.advance(std::chrono::seconds(2));
        if (kind == "confirmed")
            w.ingest(kSavedUnit, savedUnit({{"Channel", "5"}, {"AtemPort", "9911"}}));
        else if (kind == "not-confirmed")
            w.ingest(kSavedUnit, savedUnit());
        else if (kind == "moved")
            w.ingest("127.0.0.6", savedUnit({{"IPAddress", "127.0.0.6"}}));
        else {
            time.advance(std::chrono::seconds(3));
            w.client()->clock()->tick();
        }
        QTRY_VERIFY(w.item("saveVerdict")->isVisible());
        shoot(w, QStringLiteral("verdict-") + kind);
        QVERIFY2(w.visibleTexts().contains(expected), qPrintable(w.visibleTexts().join(" | ")));
        QCOMPARE(w.item("showMovedButton")->isVisible(), kind == "moved");

        if (kind == "not-confirmed") {
            w.detailView()->setProperty("tab", 3);
            QTRY_VERIFY(w.item("lastSave")->isVisible());
            shoot(w, QStringLiteral("verdict-not-confirmed-details"));
            QVERIFY(w.visibleTexts().contains(QStringLiteral("AtemPort: wrote 9911, unit reports 9910\n"
                                                             "Channel: wrote 5, unit reports 3")));
        }
        if (kind == "moved") {
            clickOn(w, "showMovedButton");
            QTRY_COMPARE(w.selection(), QStringLiteral("127.0.0.6"));
            QTRY_COMPARE(w.editor()->property("ip").toString(), QStringLiteral("127.0.0.6"));
            QVERIFY(!w.item("saveVerdict")->isVisible());
        }
    }
};

QTEST_MAIN(WindowShotTest)

#include "WindowShotTest.moc"
