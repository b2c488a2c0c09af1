// SPDX-License-Identifier: Apache-2.0
#include "WindowHarness.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include "EditorSection.h"
#include "FakeUnit.h"
#include "Translations.h"
#include "UnitSelection.h"
#include "VisualTree.h"

QNetworkReply* CountingNetwork::Manager::createRequest(Operation op, const QNetworkRequest& request, QIODevice* data)
{
    requested.append(request.url().toString());
    return QNetworkAccessManager::createRequest(op, request, data);
}

namespace {

void collect(QQuickItem* item, QList<QQuickItem*>& texts)
{
    if (!item->isVisible())
        return;
    if (QByteArray(item->metaObject()->className()) == "QQuickText")
        texts.append(item);
    for (QQuickItem* child : item->childItems())
        collect(child, texts);
}

}  // namespace

QString useLanguage(const QLocale& locale)
{
    static const QString loaded = VornLink::installTranslations(*QCoreApplication::instance(), locale);
    return loaded;
}

Vorn::Config studioUnit()
{
    return {{"IPAddress", "10.232.1.10"}, {"Netmask", "255.255.0.0"},    {"Gateway", "10.232.0.1"},
            {"ManagerIp", "10.232.0.50"}, {"AtemIp", "10.232.0.20"},     {"AtemPort", "9910"},
            {"SwitcherBand", "7"},        {"SwitcherModel", "0"},        {"Channel", "3"},
            {"CallMagic", "studio-b"},    {"TallyType", "2"},            {"TallyGpioType", "1"},
            {"AtemExtTally", "1"},        {"ScenarioType", "3"},         {"SilenceSuppress", "2"},
            {"Wire2Enable", "1"},         {"Serial", "KT4-0002C9"},      {"Version", "2.4.1"}};
}

Window::Window()
{
    SharedClient::provide(engine, [this] {
        port = ClientTest::freeUdpPort();
        return std::make_unique<VornClient>(port, "127.0.0.3");
    });
}

bool Window::load()
{
    useLanguage(QLocale(QLocale::English, QLocale::UnitedStates));
    engine.setNetworkAccessManagerFactory(&network);
    engine.load(QUrl(QStringLiteral("qrc:/VornLink/Main.qml")));
    if (engine.rootObjects().isEmpty())
        return false;
    window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    window->show();
    return QTest::qWaitForWindowExposed(window);
}

QQuickItem* Window::item(const char* name)
{
    return findVisualItem(window->contentItem(), QString::fromUtf8(name));
}

QObject* Window::detailView()
{
    QQuickItem* loader = item("detailLoader");
    return loader ? loader->property("item").value<QObject*>() : nullptr;
}

QObject* Window::editor()
{
    QObject* view = detailView();
    return view ? view->property("editor").value<QObject*>() : nullptr;
}

QObject* Window::field(const char* section, std::string_view key)
{
    QObject* open = editor();
    auto* part = open ? qobject_cast<EditorSection*>(open->property(section).value<QObject*>()) : nullptr;
    return part ? part->field(key) : nullptr;
}

namespace {

UnitSelection* selectionOf(Window& w)
{
    QQuickItem* view = w.item("contentView");
    return view ? qobject_cast<UnitSelection*>(view->property("unitSelection").value<QObject*>()) : nullptr;
}

}  // namespace

void Window::select(const QString& ip)
{
    if (UnitSelection* selection = selectionOf(*this))
        selection->show(ip);
}

QString Window::selection()
{
    UnitSelection* selection = selectionOf(*this);
    return selection ? selection->current() : QString();
}

void Window::ingest(const std::string& ip, Vorn::Config config, Vorn::Arrival arrival)
{
    client()->ingest(Vorn::Reply{ip, Vorn::kCmdReport, std::move(config)}, arrival);
}

QList<QQuickItem*> Window::visibleTextItems()
{
    QList<QQuickItem*> items;
    collect(window->contentItem(), items);
    return items;
}

QStringList Window::visibleTexts()
{
    QStringList texts;
    for (QQuickItem* text : visibleTextItems())
        texts.append(text->property("text").toString());
    return texts;
}

QStringList Window::clippedTexts()
{
    QStringList found;
    const QRectF windowArea(QPointF(0, 0), window->size());
    for (QQuickItem* text : visibleTextItems()) {
        const QString shown = text->property("text").toString();
        const bool wraps = text->property("wrapMode").toInt() != 0;
        // Text.ElideNone is Qt::ElideNone (3), not 0: 0 is Text.ElideLeft.
        const bool elides = text->property("elide").toInt() != Qt::ElideNone;
        if (!wraps && !elides && text->implicitWidth() > text->width() + 1.0) {
            found << QStringLiteral("%1 (%2 wide in %3)").arg(shown).arg(text->implicitWidth()).arg(text->width());
            continue;
        }
        if (!elides && text->implicitHeight() > text->height() + 1.0) {
            found << QStringLiteral("%1 (%2 high in %3)").arg(shown).arg(text->implicitHeight()).arg(text->height());
            continue;
        }
        // Laid out in full, but cut by the view or the window around it.
        QQuickItem* clipping = text->parentItem();
        while (clipping && !clipping->clip())
            clipping = clipping->parentItem();
        const QRectF area = clipping ? clipping->mapRectToScene(clipping->boundingRect()) : windowArea;
        const QRectF drawn = text->mapRectToScene(QRectF(0, 0, text->width(), text->height()));
        if (shown.trimmed().isEmpty() || drawn.isEmpty() || !drawn.intersects(area))
            continue;  // scrolled out of its view, not cut
        if (drawn.left() < area.left() - 1.0 || drawn.right() > area.right() + 1.0)
            found << QStringLiteral("%1 (cut at the side of %2)")
                         .arg(shown, clipping ? clipping->objectName() : QStringLiteral("the window"));
    }
    return found;
}

QImage Window::shoot(const QString& name)
{
    QTest::qWait(50);  // let the scene settle after the last change
    QImage image = window->grabWindow();
    QDir().mkpath(QStringLiteral(VORN_SHOT_DIR));
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR");
    const QString file = scale.isEmpty() ? name : QStringLiteral("x%1-%2").arg(scale, name);
    image.save(QStringLiteral(VORN_SHOT_DIR "/%1.png").arg(file));
    return image;
}
