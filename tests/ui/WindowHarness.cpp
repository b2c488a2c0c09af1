#include "WindowHarness.h"

#include <QDir>
#include <QTest>

#include "FakeUnit.h"
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

Window::Window()
{
    SharedClient::provide(engine, [this] {
        port = ClientTest::freeUdpPort();
        return std::make_unique<VornClient>(port, "127.0.0.3");
    });
}

bool Window::load()
{
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

QImage Window::shoot(const QString& name)
{
    QTest::qWait(50);  // let the scene settle after the last change
    QImage image = window->grabWindow();
    QDir().mkpath(QStringLiteral(VORN_SHOT_DIR));
    image.save(QStringLiteral(VORN_SHOT_DIR "/%1.png").arg(name));
    return image;
}
