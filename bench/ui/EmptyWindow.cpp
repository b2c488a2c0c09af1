// SPDX-License-Identifier: Apache-2.0
// The baselines for the window's start-up figures: an empty ApplicationWindow
// in the same style and size, reporting its first frame the same way; with
// --text, the same window drawing one line of text, which is what opening the
// text faces costs any window that shows a word.
#include <cstdio>
#include <cstring>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>

int main(int argc, char** argv)
{
    const bool withText = argc > 1 && std::strcmp(argv[1], "--text") == 0;
    QGuiApplication app(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QQmlApplicationEngine engine;
    engine.loadData(withText ? "import QtQuick\nimport QtQuick.Controls.Basic\n"
                               "ApplicationWindow { width: 1040; height: 680; visible: true; Text { text: \"VornLink\" } }"
                             : "import QtQuick.Controls.Basic\nApplicationWindow { width: 1040; height: 680; visible: true }");
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    if (!window)
        return 1;
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window, [] { std::fputs("first frame\n", stderr); },
        Qt::SingleShotConnection);
    return app.exec();
}
