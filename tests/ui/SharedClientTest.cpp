// SPDX-License-Identifier: Apache-2.0
// The engine's client behind QML's SharedClient: made once on first use, the
// same object for the scene and for C++, one per engine, gone with its engine
// whatever was declared first, and never made for an engine not given one.
#include <QGuiApplication>
#include <QPointer>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include <memory>

#include "ClientTestKit.h"
#include "SharedClient.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

constexpr const char* kAskWithoutClient = "--ask-without-client";

// A scene that reads the singleton, as the window's root view does.
const QByteArray kScene = "import QtQuick\nimport VornLink\nQtObject { property var client: SharedClient }\n";

std::unique_ptr<QObject> sceneReadingClient(QQmlEngine& engine)
{
    QQmlComponent component(&engine);
    component.setData(kScene, QUrl());
    std::unique_ptr<QObject> scene(component.create());
    if (!scene)
        qWarning() << component.errors();
    return scene;
}

void prepare(QQmlEngine& engine)
{
    engine.addImportPath(QStringLiteral("qrc:/"));
}

}  // namespace

class SharedClientTest : public QObject {
    Q_OBJECT

private slots:
    void theClientIsMadeOnFirstUseAndOnlyOnce()
    {
        QQmlEngine engine;
        int made = 0;
        SharedClient::provide(engine, [&made] {
            ++made;
            return ClientTest::loopbackClient();
        });
        QCOMPARE(made, 0);
        VornClient* first = SharedClient::of(engine);
        QVERIFY(first);
        QCOMPARE(SharedClient::of(engine), first);
        QCOMPARE(made, 1);
    }

    void theSceneAndCppShareOneClient()
    {
        QQmlEngine engine;
        prepare(engine);
        SharedClient::provide(engine, [] { return ClientTest::loopbackClient(); });
        auto scene = sceneReadingClient(engine);
        QVERIFY(scene);
        QCOMPARE(scene->property("client").value<QObject*>(), SharedClient::of(engine));
    }

    void eachEngineHasItsOwnClient()
    {
        QQmlEngine first;
        QQmlEngine second;
        SharedClient::provide(first, [] { return ClientTest::loopbackClient(); });
        SharedClient::provide(second, [] { return ClientTest::loopbackClient(); });
        QVERIFY(SharedClient::of(first) != SharedClient::of(second));
    }

    // The trap this replaces: an owner declared after the engine died first and
    // left the engine's scenes with a dangling client. Now the engine's end is
    // the client's end, and its scenes are gone before it.
    void theClientEndsWithItsEngineAfterItsScenes()
    {
        auto engine = std::make_unique<QQmlApplicationEngine>();
        prepare(*engine);
        SharedClient::provide(*engine, [] { return ClientTest::loopbackClient(); });
        engine->loadData(kScene);
        QCOMPARE(engine->rootObjects().size(), 1);
        QPointer<QObject> scene = engine->rootObjects().constFirst();
        QPointer<VornClient> client = SharedClient::of(*engine);
        QCOMPARE(scene->property("client").value<QObject*>(), client.data());
        bool sceneWentFirst = false;
        connect(client, &QObject::destroyed, this, [&] { sceneWentFirst = scene.isNull(); });
        engine.reset();
        QVERIFY(!client);
        QVERIFY(sceneWentFirst);
    }

    void anEngineNotGivenAClientStopsInsteadOfMakingOne()
    {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kAskWithoutClient)});
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        QVERIFY(child.readAllStandardError().contains("was asked for a client it was not given"));
    }
};

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], kAskWithoutClient) == 0) {
        QQmlEngine engine;
        SharedClient::of(engine);
        return 0;
    }
    SharedClientTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "SharedClientTest.moc"
