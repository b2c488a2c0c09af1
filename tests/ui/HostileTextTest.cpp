// SPDX-License-Identifier: Apache-2.0
// Whatever a unit reports is shown as the characters it sent: markup stays
// text and fetches nothing, and very long, right-to-left or combining text
// neither crashes the window nor pushes its layout out of shape.
#include <QQuickStyle>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include "WindowHarness.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

const std::string kMarkup = R"(<img src="http://127.0.0.1:9/x.png"><b>big</b><a href="http://127.0.0.1:9/">x</a>)";
const std::string kLong(2000, 'W');
const std::string kRightToLeft = "\u202Eevil \u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627";
const std::string kCombining = "Z\u0336\u0337\u0338\u0334\u0335\u0321\u0322\u0327\u0328\u0316\u0317\u0318\u0319"
                               "\u031C\u031D\u031E\u031F\u0320\u0324\u0325\u0326\u0329\u032A\u032B\u032C";

// Every key the window shows, each carrying one kind of hostile text.
Vorn::Config hostileUnit()
{
    return {
        {"Serial", kMarkup},          {"Version", kLong},          {"Channel", kMarkup},
        {"AtemIp", kLong},            {"AtemPort", kRightToLeft},  {"CallMagic", kCombining},
        {"IPAddress", kMarkup},       {"Netmask", kRightToLeft},   {"Gateway", kCombining},
        {"ManagerIp", kLong},         {"SwitcherBand", "-9223372036854775808"},
        {"SwitcherModel", "9223372036854775807"},                  {"TallyType", "9223372036854775807"},
        {"TallyGpioType", "-1"},      {"AtemExtTally", "99"},      {"ScenarioType", kMarkup},
        {"SilenceSuppress", "7"},     {"Wire2Enable", kMarkup},
    };
}

bool clippedByAncestor(QQuickItem* item)
{
    for (QQuickItem* parent = item->parentItem(); parent != nullptr; parent = parent->parentItem()) {
        if (parent->clip())
            return true;
    }
    return false;
}

}  // namespace

class HostileTextTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QQuickStyle::setStyle(QStringLiteral("Basic")); }

    void everyTabShowsHostileTextLiterallyWithinTheWindow_data()
    {
        QTest::addColumn<QString>("segment");
        QTest::newRow("tally") << "segment0";
        QTest::newRow("communication") << "segment1";
        QTest::newRow("network") << "segment2";
        QTest::newRow("details") << "segment3";
    }

    void everyTabShowsHostileTextLiterallyWithinTheWindow()
    {
        QFETCH(QString, segment);
        CountingNetwork::Manager::requested.clear();
        Window w;
        QVERIFY(w.load());
        w.ingest("10.232.1.5", hostileUnit());
        w.ingest("10.232.1.6", {{"Serial", kRightToLeft}});
        w.select(QStringLiteral("10.232.1.5"));
        QTRY_VERIFY(w.item("segmentBar") != nullptr);
        QQuickItem* tab = w.item(qPrintable(segment));
        QTest::mouseClick(w.window, Qt::LeftButton, {}, tab->mapToScene(tab->boundingRect().center()).toPoint());
        w.shoot(QStringLiteral("hostile-") + QString::fromUtf8(QTest::currentDataTag()));

        // The header shows the unit's text as it came, whatever it looks like.
        const QStringList texts = w.visibleTexts();
        const QString title = w.client()->device("10.232.1.5")->title();
        QVERIFY(texts.contains(title));
        QVERIFY(texts.contains(QStringLiteral("Ch ") + QString::fromStdString(kMarkup)));
        QVERIFY(texts.contains(QStringLiteral("fw ") + QString::fromStdString(kLong)));

        // Nothing from a unit may be read as markup or fetched.
        for (QQuickItem* text : w.visibleTextItems())
            QVERIFY2(text->property("textFormat").toInt() == 0 /* Text.PlainText */ ||
                         !text->property("text").toString().contains(QLatin1Char('<')),
                     qPrintable(text->property("text").toString().left(80)));
        QTest::qWait(200);
        QVERIFY2(CountingNetwork::Manager::requested.isEmpty(),
                 qPrintable(CountingNetwork::Manager::requested.join(QLatin1Char(' '))));

        // The layout holds: fixed columns keep their size, the header's buttons
        // stay inside the window, and no text runs past the window's edge
        // unless a clipping parent (a field, an elided cell) keeps it in.
        const qreal width = w.window->width();
        QCOMPARE(w.item("sidebar")->width(), 258.0);
        for (const char* name : {"saveButton", "reloadButton", "segmentBar"}) {
            QQuickItem* item = w.item(name);
            QVERIFY2(item->mapToScene(QPointF(item->width(), 0)).x() <= width, name);
        }
        for (QQuickItem* text : w.visibleTextItems()) {
            const QRectF onScreen = text->mapRectToScene(QRectF(0, 0, text->width(), text->height()));
            QVERIFY2(onScreen.right() <= width + 0.5 || clippedByAncestor(text),
                     qPrintable(QStringLiteral("%1 ends at %2").arg(text->property("text").toString().left(40)).arg(onScreen.right())));
        }
    }

    void detailsGridShowsEveryHostileValueVerbatim()
    {
        Window w;
        QVERIFY(w.load());
        const Vorn::Config unit = hostileUnit();
        w.ingest("10.232.1.5", unit);
        w.select(QStringLiteral("10.232.1.5"));
        QTRY_VERIFY(w.item("segmentBar") != nullptr);
        QQuickItem* tab = w.item("segment3");
        QTest::mouseClick(w.window, Qt::LeftButton, {}, tab->mapToScene(tab->boundingRect().center()).toPoint());
        QTRY_VERIFY(w.item("detailsGrid") != nullptr);

        const QStringList texts = w.visibleTexts();
        for (const char* key : {"IPAddress", "Netmask", "Gateway", "ManagerIp", "AtemIp", "AtemPort", "SwitcherBand",
                                "SwitcherModel", "Channel", "CallMagic", "TallyType", "TallyGpioType", "AtemExtTally",
                                "Serial", "Version"}) {
            QVERIFY2(w.item(qPrintable(QStringLiteral("detail_") + QLatin1String(key))) != nullptr, key);
            QVERIFY2(texts.contains(QString::fromStdString(unit.at(key))), key);
        }
    }
};

QTEST_MAIN(HostileTextTest)

#include "HostileTextTest.moc"
