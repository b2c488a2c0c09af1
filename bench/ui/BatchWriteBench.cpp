// SPDX-License-Identifier: Apache-2.0
// Time from one batch write to the last verdict, the figure a user sees after
// "Restore <N> units" (or a save to N units): the client finds the units on
// the private LAN, then BatchWriter sends each unit its change and the clock
// runs until no unit is waiting. Each run flips the channel, so every unit
// has something to write. With "editor" as third argument the runs go
// through the editor of several units instead, as "Save to <N> units" does:
// the channel field set, then its save (each unit's changes worked out,
// then the writes) until the last verdict. Run it on the LAN:
//   scripts/lan-harness run --sim "--count 100" -- build/bench/ui/bench_batch_write 100 5 [editor]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <cstring>

#include "BatchWriter.h"
#include "FleetValues.h"
#include "MultiEditor.h"
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
    const bool throughEditor = argc > 3 && std::strcmp(argv[3], "editor") == 0;

    VornClient client;
    client.start();
    if (!spinUntil([&] { return client.deviceCount() >= units; }, 20000)) {
        std::fprintf(stderr, "bench_batch_write: %d of %d units answered\n", client.deviceCount(), units);
        return 1;
    }

    BatchWriter ownWriter;
    ownWriter.setClient(&client);
    MultiEditor editor;
    editor.setClient(&client);
    QStringList addresses;
    for (const Device& device : client.devices())
        addresses << QString::fromStdString(device.ip);
    editor.setAddresses(addresses);
    BatchWriter& writer = throughEditor ? *editor.writer() : ownWriter;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const char* channel = run % 2 == 0 ? "9" : "4";
        const Vorn::Config touched{{"Channel", channel}};
        std::vector<BatchWriter::UnitWrite> writes;
        int unchanged = 0;
        for (const Device& device : client.devices()) {
            writes.push_back({device.ip, Settings::batchChanges(touched, device.config)});
            unchanged += writes.back().changes.empty() ? 1 : 0;
        }
        if (throughEditor) {
            editor.load();
            editor.communication()->fieldAs<TextField>("Channel")->setText(QString::fromLatin1(channel));
        }
        QElapsedTimer clock;
        clock.start();
        if (throughEditor)
            editor.save();
        else
            writer.write(writes);
        const bool settled = spinUntil([&] { return writer.waiting() == 0; }, 20000);
        const double ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        std::printf("run %d: %d units (%d already equal), %d confirmed, last verdict after %.0f ms%s\n", run + 1,
                    writer.count(), unchanged, writer.confirmed(), ms, settled ? "" : " (still waiting)");
        times.push_back(ms);
    }
    std::sort(times.begin(), times.end());
    std::printf("median: %.0f ms from the %s to the last verdict, %d units\n", times[times.size() / 2],
                throughEditor ? "editor's save" : "write", units);
    return 0;
}
