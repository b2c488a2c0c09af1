// SPDX-License-Identifier: Apache-2.0
// Frame time of the sidebar list while it scrolls through 10,000 units: the
// real window (offscreen, software scene graph) on a client that listens on a
// free loopback port and is fed through ingest, so nothing leaves the machine.
// Each step moves the list by a fixed distance and times the frame that shows
// it (polish, sync, render), delegates made for rows coming into view included.
//   bench_list_scroll [UNITS] [FRAMES]   (defaults 10000 and 2000)
// Output: "units=N frames=F median_ms=.. p95_ms=.. max_ms=.."
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include "BenchUnits.h"
#include "NextFrame.h"
#include "SharedClient.h"
#include "VisualTree.h"

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)

namespace {

double percentile(std::vector<double> values, double fraction)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(fraction * double(values.size() - 1) + 0.5)];
}

}  // namespace

int main(int argc, char** argv)
{
    const int units = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int frames = argc > 2 ? std::atoi(argv[2]) : 2000;
    // Frames follow update requests at once instead of after the platform's idle delay.
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    QGuiApplication app(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QQmlApplicationEngine engine;
    SharedClient::provide(engine, [] { return std::make_unique<VornClient>(BenchUnits::freeLoopbackPort(), "127.0.0.1"); });
    engine.load(QUrl(QStringLiteral("qrc:/VornLink/Main.qml")));
    auto* window = engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(engine.rootObjects().first());
    if (!window)
        return 1;
    window->show();

    for (int i = 0; i < units; ++i)
        SharedClient::of(engine)->ingest(BenchUnits::report(i));
    QQuickItem* list = findVisualItem(window->contentItem(), QStringLiteral("deviceList"));
    if (!list || !nextFrame(window) || list->property("count").toInt() != units) {
        std::fputs("bench_list_scroll: the list did not show the units\n", stderr);
        return 1;
    }

    const double range = list->property("contentHeight").toDouble() - list->height();
    const double step = range / frames;
    std::vector<double> times;
    QElapsedTimer clock;
    for (int frame = 1; frame <= frames; ++frame) {
        clock.start();
        list->setProperty("contentY", step * frame - list->property("topMargin").toDouble());
        if (!nextFrame(window))
            return 1;
        times.push_back(double(clock.nsecsElapsed()) / 1e6);
    }
    std::printf("units=%d frames=%d step_px=%.1f median_ms=%.3f p95_ms=%.3f max_ms=%.3f\n", units, frames, step,
                percentile(times, 0.5), percentile(times, 0.95), *std::max_element(times.begin(), times.end()));
    return 0;
}
