// SPDX-License-Identifier: Apache-2.0
// Main-thread responsiveness for stress runs. Off by default, and then nothing
// runs at all; QT_LOGGING_RULES "vornlink.latency.info=true" turns it on:
// a 20 ms timer notes how late each of its ticks comes, and about once a
// second one line reports the worst and mean lateness together with how many
// rows the sidebar lists at that moment (the load it was measured under).
//   vornlink.latency: at 4001 ms: worst 1.3 ms, mean 0.21 ms late over 50 ticks; 200 rows listed
// "at" counts from the start of the probe, right after the window was loaded.
// Each time the client's table grows, one more line says how many rows the
// list holds then, so the time to a full list can be read off the log:
//   vornlink.latency: 1000 rows listed
#pragma once

class QQuickWindow;
class VornClient;

namespace VornLink {

void startLatencyProbe(QQuickWindow* window, VornClient* client);

}  // namespace VornLink
