// Time from one batch write to the last verdict, the figure a user sees after
// "Restore <N> units" (or a save to N units): the client finds the units on
// the private LAN, then BatchWriter sends each unit its change and the clock
// runs until no unit is waiting. Each run flips the channel, so every unit
// has something to write. Run it on the LAN:
//   scripts/lan-harness run --sim "--count 100" -- build/bench/ui/bench_batch_write 100 5
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include "BatchWriter.h"
#include "FleetValues.h"
#include "VornClient.h"

namespace {

// Runs the event loop until `done` or `timeoutMs`; whether `done` came true.
template <typename Done>
bool spinUntil(Done done, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!done() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return done();
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int units = argc > 1 ? std::atoi(argv[1]) : 100;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 3;

    VornClient client;
    client.start();
    if (!spinUntil([&] { return client.deviceCount() >= units; }, 20000)) {
        std::fprintf(stderr, "bench_batch_write: %d of %d units answered\n", client.deviceCount(), units);
        return 1;
    }

    BatchWriter writer;
    writer.setClient(&client);
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const Vorn::Config touched{{"Channel", run % 2 == 0 ? "9" : "4"}};
        std::vector<BatchWriter::UnitWrite> writes;
        int unchanged = 0;
        for (const Device& device : client.devices()) {
            writes.push_back({device.ip, Settings::batchChanges(touched, device.config)});
            unchanged += writes.back().changes.empty() ? 1 : 0;
        }
        QElapsedTimer clock;
        clock.start();
        writer.write(writes);
        const bool settled = spinUntil([&] { return writer.waiting() == 0; }, 20000);
        const double ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        std::printf("run %d: %d units (%d already equal), %d confirmed, last verdict after %.0f ms%s\n", run + 1,
                    writer.count(), unchanged, writer.confirmed(), ms, settled ? "" : " (still waiting)");
        times.push_back(ms);
    }
    std::sort(times.begin(), times.end());
    std::printf("median: %.0f ms from the write to the last verdict, %d units\n", times[times.size() / 2], units);
    return 0;
}
