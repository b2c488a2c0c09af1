// SPDX-License-Identifier: Apache-2.0
#include "ClientTestKit.h"

#include <QCoreApplication>
#include <QThread>

namespace ClientTest {

std::unique_ptr<VornClient> loopbackClient(std::uint16_t port)
{
    return std::make_unique<VornClient>(port, kUnitAddress);
}

std::vector<std::string> addresses(const VornClient& client)
{
    std::vector<std::string> ips;
    for (const Device& device : client.devices())
        ips.push_back(device.ip);
    return ips;
}

bool processEventsUntil(const std::function<bool()>& done, std::chrono::milliseconds patience)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!done() && std::chrono::steady_clock::now() < deadline) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(2);
    }
    return done();
}

ManualTime::ManualTime(PresenceClock* clock) : now_(std::make_shared<WallClock::time_point>(kStart))
{
    clock->setNowFunction([now = now_] { return *now; });
}

}  // namespace ClientTest
