// SPDX-License-Identifier: Apache-2.0
// The whole window as a screen reader sees it: accessibility switched on the
// way a platform does it, the accessibility tree walked in each state of the
// window, and every interactive item checked for a name and its role.
#include <QAccessible>
#include <QQmlComponent>
#include <QQuickStyle>
#include <QSignalSpy>
#include <QTest>
#include <QtGui/private/qguiapplication_p.h>
#include <QtQml/QQmlExtensionPlugin>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "WindowHarness.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

// The roles a user acts on; each must carry a name.
bool isInteractive(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::Button:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::ListItem:
    case QAccessible::PageTab:
    case QAccessible::MenuItem:
    case QAccessible::Link:
        return true;
    default:
        return false;
    }
}

QString describe(QAccessibleInterface* node)
{
    QObject* object = node->object();
    return QStringLiteral("%1 '%2' (%3)")
        .arg(QString::number(node->role(), 16), node->text(QAccessible::Name),
             object ? QString::fromUtf8(object->metaObject()->className()) + u' ' + object->objectName()
                    : QStringLiteral("no object"));
}

// Every shown node of the accessibility tree below `node`.
void walk(QAccessibleInterface* node, QList<QAccessibleInterface*>& nodes, int depth = 0)
{
    QVERIFY2(depth < 64, "the accessibility tree is deeper than the window");
    if (node->state().invisible)
        return;
    nodes.append(node);
    for (int i = 0; i < node->childCount(); ++i)
        if (QAccessibleInterface* child = node->child(i))
            walk(child, nodes, depth + 1);
}

// The role each kind of control must have for a screen reader.
std::optional<QAccessible::Role> expectedRole(QQuickItem* item)
{
    const QString name = item->objectName();
    if (name.startsWith(QStringLiteral("segment")) && item->inherits("QQuickAbstractButton"))
        return QAccessible::PageTab;
    if (name.endsWith(QStringLiteral("Stepper")))
        return QAccessible::SpinBox;
    if (item->inherits("QQuickSwitch"))
        return QAccessible::CheckBox;
    if (item->inherits("QQuickComboBox"))
        return QAccessible::ComboBox;
    if (item->inherits("QQuickAbstractButton"))
        return QAccessible::Button;
    if (item->inherits("QQuickTextInput"))
        return QAccessible::EditableText;
    // A row of the device list: a delegate in the list's content.
    QQuickItem* parent = item->parentItem();
    if (parent && parent->parentItem() && parent->parentItem()->objectName() == QStringLiteral("deviceList")
        && parent == parent->parentItem()->property("contentItem").value<QQuickItem*>()
        && item->property("online").isValid())
        return QAccessible::ListItem;
    return std::nullopt;
}

void collectControls(QQuickItem* item, QList<QQuickItem*>& controls)
{
    if (!item->isVisible())
        return;
    if (expectedRole(item))
        controls.append(item);
    for (QQuickItem* child : item->childItems())
        collectControls(child, controls);
}

}  // namespace

class AccessibilityTreeTest : public QObject {
    Q_OBJECT

    // The problems of the window as it is now: interactive nodes without a
    // name, and controls whose node is missing, unnamed or of the wrong role.
    QStringList problems(Window& w)
    {
        QTest::qWait(50);  // let bindings and the scene settle
        QStringList found;
        QList<QAccessibleInterface*> nodes;
        walk(QAccessible::queryAccessibleInterface(w.window), nodes);
        if (nodes.size() < 10)
            found.append(QStringLiteral("only %1 nodes in the tree").arg(nodes.size()));
        for (QAccessibleInterface* node : nodes)
            if (isInteractive(node->role()) && node->text(QAccessible::Name).trimmed().isEmpty())
                found.append(QStringLiteral("no name: ") + describe(node));

        QList<QQuickItem*> controls;
        collectControls(w.window->contentItem(), controls);
        for (QQuickItem* control : controls) {
            QAccessibleInterface* node = QAccessible::queryAccessibleInterface(control);
            const QString what = QString::fromUtf8(control->metaObject()->className()) + u' ' + control->objectName();
            if (node == nullptr) {
                found.append(QStringLiteral("not accessible: ") + what);
                continue;
            }
            if (node->role() != *expectedRole(control))
                found.append(QStringLiteral("role %1 instead of %2: ")
                                 .arg(QString::number(node->role(), 16), QString::number(*expectedRole(control), 16))
                             + describe(node));
            if (node->text(QAccessible::Name).trimmed().isEmpty())
                found.append(QStringLiteral("no name: ") + describe(node));
        }
        return found;
    }

    QAccessibleInterface* nodeOf(Window& w, const char* name)
    {
        QQuickItem* item = w.item(name);
        return item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    }

    bool openStudioUnit(Window& w)
    {
        w.ingest("10.232.1.2", {{"Serial", "KT4-0001B7"}});
        w.ingest("10.232.1.10", studioUnit());
        w.select(QStringLiteral("10.232.1.10"));
        return QTest::qWaitFor([&] { return w.item("segmentBar") != nullptr; });
    }

private slots:
    void initTestCase()
    {
        QQuickStyle::setStyle(QStringLiteral("Basic"));
        // As a platform's screen-reader bridge does; QAccessible::setActive
        // alone leaves the Qt Quick items without their names.
        QPlatformAccessibility* accessibility = QGuiApplicationPrivate::platformIntegration()->accessibility();
        QVERIFY(accessibility != nullptr);
        accessibility->setActive(true);
        QVERIFY(QAccessible::isActive());
    }

    void noUnits()
    {
        Window w;
        QVERIFY(w.load());
        const QStringList found = problems(w);
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));

        QAccessibleInterface* field = nodeOf(w, "addressField");
        QVERIFY(field);
        QCOMPARE(field->role(), QAccessible::EditableText);
        QCOMPARE(field->text(QAccessible::Name), QStringLiteral("Add by IP"));
        QAccessibleInterface* discover = nodeOf(w, "discoverButton");
        QCOMPARE(discover->role(), QAccessible::Button);
        QCOMPARE(discover->text(QAccessible::Name), QStringLiteral("Discover"));
        QAccessibleInterface* status = nodeOf(w, "statusText");
        QCOMPARE(status->role(), QAccessible::StatusBar);
        QTRY_COMPARE(status->text(QAccessible::Name), w.client()->status());
        QCOMPARE(nodeOf(w, "unitCount")->text(QAccessible::Name), QStringLiteral("0 units known"));
        QCOMPARE(nodeOf(w, "deviceList")->role(), QAccessible::List);
        QCOMPARE(nodeOf(w, "deviceList")->text(QAccessible::Name), QStringLiteral("Base stations"));
    }

    void unitsListed()
    {
        Window w;
        QVERIFY(w.load());
        w.ingest("10.232.1.2", {{"Serial", "KT4-0001B7"}});
        w.ingest("10.232.1.10", studioUnit());
        QTRY_COMPARE(w.item("deviceList")->property("count").toInt(), 2);
        const QStringList found = problems(w);
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));

        QList<QAccessibleInterface*> nodes;
        walk(QAccessible::queryAccessibleInterface(w.window), nodes);
        QStringList rows;
        for (QAccessibleInterface* node : nodes)
            if (node->role() == QAccessible::ListItem)
                rows.append(node->text(QAccessible::Name));
        QCOMPARE(rows, (QStringList{QStringLiteral("KT400 \u00b70002C9, 10.232.1.10, online"),
                                    QStringLiteral("KT400 \u00b70001B7, 10.232.1.2, online")}));
        QCOMPARE(nodeOf(w, "unitCount")->text(QAccessible::Name), QStringLiteral("2 units known"));
        // The selected row says so.
        w.select(QStringLiteral("10.232.1.2"));
        QTRY_VERIFY(w.item("segmentBar") != nullptr);
        for (QAccessibleInterface* node : nodes)
            if (node->role() == QAccessible::ListItem)
                QCOMPARE(bool(node->state().selected), node->text(QAccessible::Name).contains(u"10.232.1.2,"));
    }

    void editorTabs_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QStringList>("named");
        QTest::newRow("tally") << 0 << QStringList{"ATEM IP", "ATEM port", "Switcher", "Tally Channel"};
        QTest::newRow("communication") << 1
                                       << QStringList{"Channel", "Password", "Scene Level", "Suppression Level",
                                                      "Wire2"};
        QTest::newRow("network") << 2 << QStringList{"IP address", "Subnet mask", "Gateway", "Apply network\u2026"};
        QTest::newRow("details") << 3 << QStringList{};
    }

    void editorTabs()
    {
        QFETCH(int, tab);
        QFETCH(QStringList, named);
        Window w;
        QVERIFY(w.load());
        QVERIFY(openStudioUnit(w));
        w.detailView()->setProperty("tab", tab);
        const QStringList found = problems(w);
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));

        // The tab bar: five page tabs, the shown one selected.
        const QStringList titles{"Tally", "Communication", "Network", "Details", "History"};
        for (int i = 0; i < titles.size(); ++i) {
            QAccessibleInterface* segment = nodeOf(w, qPrintable(QStringLiteral("segment%1").arg(i)));
            QCOMPARE(segment->text(QAccessible::Name), titles.at(i));
            QCOMPARE(bool(segment->state().selected), i == tab);
            QCOMPARE(segment->text(QAccessible::Description), QStringLiteral("Ctrl+%1").arg(i + 1));
        }
        // The header's chips are read as text.
        QCOMPARE(nodeOf(w, "onlineChip")->text(QAccessible::Name), QStringLiteral("Online"));
        QCOMPARE(nodeOf(w, "channelChip")->text(QAccessible::Name), QStringLiteral("Ch 3"));
        // Every field and control of the tab by the label of its row.
        QList<QAccessibleInterface*> nodes;
        walk(QAccessible::queryAccessibleInterface(w.window), nodes);
        QStringList names;
        for (QAccessibleInterface* node : nodes)
            if (isInteractive(node->role()))
                names.append(node->text(QAccessible::Name));
        for (const QString& name : named)
            QVERIFY2(names.contains(name), qPrintable(name + QStringLiteral(" not in ") + names.join(QStringLiteral(", "))));

        if (tab == 0) {
            QAccessibleInterface* stepper = nodeOf(w, "tallyTypeStepper");
            QCOMPARE(stepper->text(QAccessible::Name), QStringLiteral("type 2"));
            QCOMPARE(stepper->text(QAccessible::Description), QStringLiteral("0 to 9"));
            QAccessibleValueInterface* value = stepper->valueInterface();
            QVERIFY(value);
            QCOMPARE(value->currentValue().toInt(), 2);
            QCOMPARE(value->minimumValue().toInt(), 0);
            QCOMPARE(value->maximumValue().toInt(), 9);
        }
        if (tab == 1) {
            QAccessibleInterface* toggle = nodeOf(w, "wire2Toggle");
            QVERIFY(toggle->state().checkable);
            QVERIFY(toggle->state().checked);
        }
    }

    // Each of the window's buttons and switches, alone, driven through the
    // action a screen reader offers: it acts once, as a click does, and not
    // while disabled; a switch or a box also tells its owner (toggled).
    void actions_data()
    {
        QTest::addColumn<QByteArray>("control");
        QTest::addColumn<QString>("action");
        QTest::addColumn<QByteArray>("signal");
        const QByteArray clicked = SIGNAL(clicked());
        const QByteArray toggled = SIGNAL(toggled());
        QTest::newRow("accent") << QByteArray("AccentButton { tint: \"cyan\"; text: \"Save\" }") << "Press" << clicked;
        QTest::newRow("ghost") << QByteArray("GhostButton { tint: \"white\"; text: \"Reload\" }") << "Press" << clicked;
        QTest::newRow("activity") << QByteArray("ActivityToggle { shown: false }") << "Press" << clicked;
        QTest::newRow("networks") << QByteArray("NetworksButton { networks: [] }") << "Press" << clicked;
        QTest::newRow("menu-entry") << QByteArray("FleetMenuEntry { glyph: \"\"; text: \"Export\" }") << "Press" << clicked;
        QTest::newRow("switch") << QByteArray("Toggle {}") << "Toggle" << toggled;
        QTest::newRow("switch-press") << QByteArray("Toggle {}") << "Press" << toggled;
        QTest::newRow("box") << QByteArray("TickBox { text: \"Include\" }") << "Toggle" << toggled;
    }

    void actions()
    {
        QFETCH(QByteArray, control);
        QFETCH(QString, action);
        QFETCH(QByteArray, signal);
        QQmlEngine engine;
        QQmlComponent component(&engine);
        // Beside the window's own files, as they meet each other.
        component.setData(control, QUrl(QStringLiteral("qrc:/VornLink/Probe.qml")));
        std::unique_ptr<QObject> made{component.create()};
        auto* item = qobject_cast<QQuickItem*>(made.get());
        QVERIFY2(item, qPrintable(component.errorString()));
        QQuickWindow window;
        item->setParentItem(window.contentItem());
        QAccessibleInterface* node = QAccessible::queryAccessibleInterface(item);
        QVERIFY(node && node->actionInterface());
        const QStringList names = node->actionInterface()->actionNames();
        QVERIFY2(names.count(action) == 1, qPrintable(names.join(u',')));

        QSignalSpy acted(item, signal.constData());
        const bool wasChecked = item->property("checked").toBool();
        node->actionInterface()->doAction(action);
        QCOMPARE(acted.count(), 1);
        if (signal == SIGNAL(toggled()))
            QCOMPARE(item->property("checked").toBool(), !wasChecked);
        item->setEnabled(false);
        node->actionInterface()->doAction(action);
        QCOMPARE(acted.count(), 1);
    }

    // A stepper's buttons and the tabs act through their Press action.
    void pressActionsInTheEditor()
    {
        Window w;
        QVERIFY(w.load());
        QVERIFY(openStudioUnit(w));
        QQuickItem* stepper = w.item("tallyTypeStepper");
        auto* increase = stepper->findChild<QQuickItem*>(QStringLiteral("increase"));
        QVERIFY(increase);
        QAccessible::queryAccessibleInterface(increase)->actionInterface()->doAction(QStringLiteral("Press"));
        QTRY_COMPARE(QAccessible::queryAccessibleInterface(stepper)->valueInterface()->currentValue().toInt(), 3);

        QAccessibleInterface* network = nodeOf(w, "segment2");
        QCOMPARE(network->actionInterface()->actionNames().count(QStringLiteral("Press")), 1);
        network->actionInterface()->doAction(QStringLiteral("Press"));
        QTRY_COMPARE(w.detailView()->property("tab").toInt(), 2);
        QVERIFY(network->state().selected);
    }

    void networkConfirmationOpen()
    {
        Window w;
        QVERIFY(w.load());
        QVERIFY(openStudioUnit(w));
        w.detailView()->setProperty("tab", 2);
        w.field("network", "Gateway")->setProperty("text", QStringLiteral("10.232.0.254"));
        w.detailView()->setProperty("networkConfirmOpen", true);
        QTRY_VERIFY(w.item("cancelButton") && w.item("cancelButton")->isVisible());
        const QStringList found = problems(w);
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));

        QAccessibleInterface* cancel = nodeOf(w, "cancelButton");
        QCOMPARE(cancel->text(QAccessible::Name), QStringLiteral("Cancel"));
        QVERIFY(cancel->state().defaultButton);
        QTRY_VERIFY(cancel->state().focused);
        QCOMPARE(nodeOf(w, "applyButton")->text(QAccessible::Name), QStringLiteral("Apply"));
    }
};

QTEST_MAIN(AccessibilityTreeTest)

#include "AccessibilityTreeTest.moc"
