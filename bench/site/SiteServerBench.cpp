// SPDX-License-Identifier: Apache-2.0
// Two workstations on one site server, each with its store on a thread of
// its own as a window has it: from one handing over a write to the other's
// store thread hearing that something changed elsewhere (the window then
// reads the History tab and the Activity pane's news). The server is a real
// PostgreSQL the bench starts, as the tests do.
//   bench_site_server [WRITES]   (default 10)
// Output: one line "elsewhere_ms=<median> elsewhere_max_ms=<max>", or
// "no server: <why>" with exit status 77.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <vector>

#include "SiteRecorder.h"
#include "TestServer.h"

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int writes = argc > 1 ? std::max(3, std::atoi(argv[1])) : 10;
    auto& server = SiteTest::TestServer::shared();
    if (!server.running()) {
        std::printf("no server: %s\n", qPrintable(server.whyNot()));
        return 77;
    }
    const QString uri = server.newDatabase();
    // Each workstation's journal, used only while the server is away.
    QTemporaryDir journals;
    Site::SiteRecorder vision(uri, journals.filePath(QStringLiteral("vision.sqlite")));
    Site::SiteRecorder audio(uri, journals.filePath(QStringLiteral("audio.sqlite")));
    vision.runAndWait([](Site::SiteStore&) {});
    audio.runAndWait([](Site::SiteStore&) {});
    if (vision.state() != Site::StoreState::Ready || audio.state() != Site::StoreState::Ready) {
        std::printf("no server: %s\n", qPrintable(vision.problem() + audio.problem()));
        return 77;
    }

    std::mutex lock;
    std::condition_variable told;
    int heard = 0;
    audio.watch([&] {
        std::lock_guard guard(lock);
        ++heard;
        told.notify_all();
    });
    std::vector<double> latencies;
    for (int write = 0; write < writes; ++write) {
        std::unique_lock wait(lock);
        const int before = heard;
        QElapsedTimer timer;
        timer.start();
        vision.wrote({Site::Clock::now(), "vornlink", "vision", "kim", "KT-100001", "10.77.1.5",
                      {{"Channel", std::to_string(write % 12 + 1)}}, Site::Verdict::Confirmed, {}});
        if (!told.wait_for(wait, std::chrono::seconds(10), [&] { return heard > before; })) {
            std::printf("no server: nothing heard of a write within 10 s\n");
            return 1;
        }
        latencies.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    audio.watch(nullptr);
    std::sort(latencies.begin(), latencies.end());
    std::printf("elsewhere_ms=%.1f elsewhere_max_ms=%.1f\n", latencies[latencies.size() / 2], latencies.back());
    return 0;
}
