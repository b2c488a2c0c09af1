// SPDX-License-Identifier: Apache-2.0
#include "NextFrame.h"

#include <QEventLoop>
#include <QQuickWindow>
#include <QTimer>

bool nextFrame(QQuickWindow* window)
{
    QEventLoop loop;
    QTimer::singleShot(1000, &loop, [&loop] { loop.exit(1); });
    QObject::connect(window, &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(0); });
    window->update();
    return loop.exec() == 0;
}
