// SPDX-License-Identifier: Apache-2.0
// Main-thread cost of a reply burst reaching the window: the real window
// (offscreen, software scene graph) on a client that listens on a free
// loopback port and is fed through ingestAll, so nothing leaves the machine.
// Two bursts of new units, each taken in one go as the receive hand-over
// delivers them: the first half of the units into an empty list, then the
// other half into the gaps between them (a second discovery round that
// finds the units the first one missed). Each figure runs from handing
// the burst over to the frame that shows the result.
//   bench_list_arrivals [UNITS] [REPEATS]   (defaults 5000 and 5)
// Output: "units=N first_burst_ms=.. gap_burst_ms=.." (medians)
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
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

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Window {
    QQmlApplicationEngine engine;
    QQuickWindow* window = nullptr;
    QQuickItem* list = nullptr;

    Window()
    {
        SharedClient::provide(engine, [] { return std::make_unique<VornClient>(BenchUnits::freeLoopbackPort(), "127.0.0.1"); });
        engine.load(QUrl(QStringLiteral("qrc:/VornLink/Main.qml")));
        if (!engine.rootObjects().isEmpty())
            window = qobject_cast<QQuickWindow*>(engine.rootObjects().first());
        if (!window)
            return;
        window->show();
        list = findVisualItem(window->contentItem(), QStringLiteral("deviceList"));
    }
};

// Milliseconds from handing `burst` over to the frame that lists `expected` rows; negative on failure.
double takeBurst(Window& view, std::vector<Vorn::Reply> burst, int expected)
{
    QElapsedTimer clock;
    clock.start();
    std::vector<HeardReply> heard(std::make_move_iterator(burst.begin()), std::make_move_iterator(burst.end()));
    SharedClient::of(view.engine)->ingestAll(std::move(heard));
    if (!nextFrame(view.window) || view.list->property("count").toInt() != expected)
        return -1;
    return double(clock.nsecsElapsed()) / 1e6;
}

}  // namespace

int main(int argc, char** argv)
{
    const int units = argc > 1 ? std::atoi(argv[1]) : 5000;
    const int repeats = argc > 2 ? std::atoi(argv[2]) : 5;
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    QGuiApplication app(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Basic"));

    // Units in the order a simulated fleet sends them; every other one misses the first round.
    std::vector<Vorn::Reply> first;
    std::vector<Vorn::Reply> gaps;
    for (int i = 0; i < units; ++i)
        (i % 2 == 0 ? first : gaps).push_back(BenchUnits::report(i));

    std::vector<double> firstTimes;
    std::vector<double> gapTimes;
    for (int repeat = 0; repeat < repeats; ++repeat) {
        Window view;
        if (!view.list || !nextFrame(view.window)) {
            std::fputs("bench_list_arrivals: the window did not come up\n", stderr);
            return 1;
        }
        const double firstMs = takeBurst(view, first, static_cast<int>(first.size()));
        const double gapMs = takeBurst(view, gaps, units);
        if (firstMs < 0 || gapMs < 0) {
            std::fputs("bench_list_arrivals: the list did not show the units\n", stderr);
            return 1;
        }
        firstTimes.push_back(firstMs);
        gapTimes.push_back(gapMs);
    }
    std::printf("units=%d repeats=%d first_burst_ms=%.1f gap_burst_ms=%.1f\n", units, repeats, median(firstTimes),
                median(gapTimes));
    return 0;
}
