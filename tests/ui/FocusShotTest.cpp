// SPDX-License-Identifier: Apache-2.0
// The whole window offscreen driven by keys alone, shot to PNG with the
// focus ring showing: in the list, on a field of each editor tab, and on the
// default button of the network confirmation. Each shot is checked for the
// ring's colour where the ring is drawn. The tooltips name the shortcuts.
#include <QQmlProperty>
#include <QQuickStyle>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include "WindowHarness.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

void press(Window& w, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(w.window, key, modifiers);
}

QQuickItem* focused(Window& w)
{
    return w.window->activeFocusItem();
}

// Presses Tab until the keyboard is on `item` or inside it.
bool tabInto(Window& w, QQuickItem* item)
{
    for (int presses = 0; presses < 40; ++presses) {
        QQuickItem* now = focused(w);
        if (now && (now == item || item->isAncestorOf(now)))
            return true;
        press(w, Qt::Key_Tab);
    }
    return false;
}

// The focus ring drawn for the item that has the keyboard: the shown ring
// among the item and the items around it (a list row's ring is the row's).
QQuickItem* shownRing(QQuickItem* item)
{
    for (QQuickItem* at = item; at != nullptr; at = at->parentItem())
        for (QQuickItem* child : at->childItems())
            if (child->objectName() == QStringLiteral("focusRing") && child->isVisible())
                return child;
    return nullptr;
}

// Whether the shot shows the ring colour on the ring's top edge, at its middle.
bool ringDrawn(const QImage& shot, QQuickItem* ring, qreal dpr)
{
    const QColor expected = ring->property("border").value<QObject*>()->property("color").value<QColor>();
    const QPointF top = ring->mapToScene(QPointF(ring->width() / 2, 0));
    const int x = qRound(top.x() * dpr);
    for (int y = qFloor(top.y() * dpr) - 1; y <= qCeil(top.y() * dpr) + 3; ++y) {
        const QColor seen = shot.pixelColor(x, y);
        if (qAbs(seen.red() - expected.red()) < 12 && qAbs(seen.green() - expected.green()) < 12
            && qAbs(seen.blue() - expected.blue()) < 12)
            return true;
    }
    return false;
}

}  // namespace

class FocusShotTest : public QObject {
    Q_OBJECT

    // The window, active, with two units and the studio unit selected by
    // keys: Tab to the list, Down.
    bool openByKeys(Window& w)
    {
        if (!w.load())
            return false;
        w.window->requestActivate();
        if (!QTest::qWaitForWindowActive(w.window))
            return false;
        w.ingest("10.232.1.10", studioUnit());
        w.ingest("10.232.1.2", {{"Serial", "KT4-0001B7"}});
        if (!tabInto(w, w.item("deviceList")))
            return false;
        press(w, Qt::Key_Down);
        return QTest::qWaitFor([&] { return w.item("segmentBar") != nullptr; });
    }

    void checkRing(Window& w, const QString& shotName)
    {
        QQuickItem* ring = shownRing(focused(w));
        QVERIFY2(ring, qPrintable(QStringLiteral("no ring for ") + focused(w)->objectName()));
        const QImage shot = w.shoot(shotName);
        QVERIFY2(ringDrawn(shot, ring, w.window->devicePixelRatio()), qPrintable(shotName));
    }

private slots:
    void initTestCase() { QQuickStyle::setStyle(QStringLiteral("Basic")); }

    void list()
    {
        Window w;
        QVERIFY(openByKeys(w));
        QCOMPARE(w.selection(), QStringLiteral("10.232.1.10"));
        checkRing(w, QStringLiteral("focus-list"));
    }

    void editorTabs_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("target");
        QTest::newRow("tally") << 0 << "atemIpField";
        QTest::newRow("communication") << 1 << "scenePicker";
        QTest::newRow("network") << 2 << "gatewayField";
        QTest::newRow("details") << 3 << "segment3";
    }

    void editorTabs()
    {
        QFETCH(int, tab);
        QFETCH(QString, target);
        Window w;
        QVERIFY(openByKeys(w));
        press(w, Qt::Key_Return);
        press(w, Qt::Key(Qt::Key_1 + tab), Qt::ControlModifier);
        QCOMPARE(w.detailView()->property("tab").toInt(), tab);
        QVERIFY(tabInto(w, w.item(qPrintable(target))));
        checkRing(w, QStringLiteral("focus-") + QString::fromUtf8(QTest::currentDataTag()));
    }

    // Each shortcut is named in its control's tooltip, in the platform's own words.
    void tooltipsNameTheShortcuts_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("keys");
        QTest::newRow("discover") << "discoverButton" << "Discover" << "F5";
        QTest::newRow("address") << "addressField" << "Add by IP" << "Ctrl+L";
        QTest::newRow("reload") << "reloadButton" << "Reload" << "Ctrl+R";
        QTest::newRow("save") << "saveButton" << "Save changes" << "Ctrl+S";
        QTest::newRow("tally") << "segment0" << "Tally" << "Ctrl+1";
        QTest::newRow("details") << "segment3" << "Details" << "Ctrl+4";
        QTest::newRow("activity") << "activityToggle" << "Show or hide the activity log" << "Ctrl+Shift+A";
    }

    void tooltipsNameTheShortcuts()
    {
        QFETCH(QString, control);
        QFETCH(QString, text);
        QFETCH(QString, keys);
        Window w;
        QVERIFY(openByKeys(w));
        QQuickItem* item = w.item(qPrintable(control));
        QVERIFY(item);
        const QString native = QKeySequence(keys).toString(QKeySequence::NativeText);
        QCOMPARE(QQmlProperty::read(item, QStringLiteral("ToolTip.text"), qmlContext(item)).toString(),
                 QStringLiteral("%1 (%2)").arg(text, native));
    }

    // Ctrl+Q quits from wherever the keyboard is.
    void quitShortcut()
    {
        Window w;
        QVERIFY(w.load());
        QSignalSpy quit(&w.engine, &QQmlEngine::quit);
        QTest::keyClick(w.window, Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(quit.count(), 1);
        // Also from a text field.
        w.item("addressField")->forceActiveFocus();
        QVERIFY(w.item("addressField")->hasActiveFocus());
        QTest::keyClick(w.window, Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(quit.count(), 2);
    }

    void networkConfirmation()
    {
        Window w;
        QVERIFY(openByKeys(w));
        press(w, Qt::Key_Return);
        press(w, Qt::Key_3, Qt::ControlModifier);
        QVERIFY(tabInto(w, w.item("gatewayField")));
        press(w, Qt::Key_A, Qt::ControlModifier);
        for (const QChar character : QStringLiteral("10.232.0.254"))
            QTest::keyClick(w.window, character.toLatin1());
        QVERIFY(tabInto(w, w.item("applyNetworkButton")));
        press(w, Qt::Key_Return);
        QTRY_VERIFY(w.item("cancelButton") && w.item("cancelButton")->hasActiveFocus());
        checkRing(w, QStringLiteral("focus-network-confirm"));
        press(w, Qt::Key_Return);
        QTRY_VERIFY(!w.item("cancelButton") || !w.item("cancelButton")->isVisible());
    }
};

QTEST_MAIN(FocusShotTest)

#include "FocusShotTest.moc"
