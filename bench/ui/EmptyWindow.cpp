// SPDX-License-Identifier: Apache-2.0
// The baseline for the window's start-up figures: an empty ApplicationWindow
// in the same style and size, reporting its first frame the same way.
#include <cstdio>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick.Controls.Basic\nApplicationWindow { width: 1040; height: 680; visible: true }");
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    if (!window)
        return 1;
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window, [] { std::fputs("first frame\n", stderr); },
        Qt::SingleShotConnection);
    return app.exec();
}
