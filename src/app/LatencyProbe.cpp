// SPDX-License-Identifier: Apache-2.0
#include "LatencyProbe.h"

#include <algorithm>
#include <memory>

#include <QElapsedTimer>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include "AppLogging.h"
#include "VornClient.h"
#include "VisualTree.h"

namespace VornLink {
namespace {

constexpr int kTickMs = 20;
constexpr qint64 kReportEveryNs = 1'000'000'000;

struct Probe {
    QQuickWindow* window;
    QElapsedTimer clock;
    qint64 lastTickNs = 0;
    qint64 nextReportNs = kReportEveryNs;
    qint64 worstNs = 0;
    qint64 totalNs = 0;
    int ticks = 0;
    QPointer<QQuickItem> list;

    void tick()
    {
        const qint64 now = clock.nsecsElapsed();
        const qint64 late = std::max<qint64>(0, now - lastTickNs - qint64(kTickMs) * 1'000'000);
        lastTickNs = now;
        worstNs = std::max(worstNs, late);
        totalNs += late;
        ++ticks;
        if (now < nextReportNs)
            return;
        if (!list)
            list = findVisualItem(window->contentItem(), QStringLiteral("deviceList"));
        const int rows = list ? list->property("count").toInt() : -1;
        qCInfo(lcLatency, "at %lld ms: worst %.1f ms, mean %.2f ms late over %d ticks; %d rows listed",
               now / 1'000'000, double(worstNs) / 1e6, double(totalNs) / 1e6 / ticks, ticks, rows);
        nextReportNs = now + kReportEveryNs;
        worstNs = totalNs = 0;
        ticks = 0;
    }
};

}  // namespace

void startLatencyProbe(QQuickWindow* window, VornClient* client)
{
    if (!lcLatency().isInfoEnabled())
        return;
    auto* timer = new QTimer(window);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(kTickMs);
    auto probe = std::make_shared<Probe>();
    probe->window = window;
    probe->clock.start();
    QObject::connect(timer, &QTimer::timeout, window, [probe] { probe->tick(); });
    timer->start();
    const auto reportRows = [probe] {
        if (!probe->list)
            probe->list = findVisualItem(probe->window->contentItem(), QStringLiteral("deviceList"));
        if (probe->list)
            qCInfo(lcLatency, "%d rows listed", probe->list->property("count").toInt());
    };
    QObject::connect(client, &VornClient::deviceCountChanged, window, reportRows);
}

}  // namespace VornLink
