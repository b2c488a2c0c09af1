// SPDX-License-Identifier: Apache-2.0
// What the stress tests read off the running program: its main-thread latency
// reports (vornlink.latency), its resident memory and its namespace's UDP
// counters, and the key=value summary of vorn_flood.
#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Stress {

// One line of the latency probe: "at 4001 ms: worst 1.3 ms, mean 0.21 ms late
// over 50 ticks; 200 rows listed".
struct LatencyReport {
    long atMs = 0;
    double worstMs = 0;
    double meanMs = 0;
    int ticks = 0;
    int rows = 0;
};
std::vector<LatencyReport> latencyReports(const std::string& stderrText);

// Worst lateness and tick-weighted mean lateness of the reports in [fromMs, toMs].
struct Lateness {
    double worstMs = 0;
    double meanMs = 0;
    int reports = 0;
};
Lateness latenessBetween(const std::vector<LatencyReport>& reports, long fromMs, long toMs);

// The process named `comm` inside network namespace `netns` (as made by
// "ip netns add"), or nullopt.
std::optional<pid_t> processInNamespace(const std::string& netns, const std::string& comm);

// UDP counters of the network namespace that `pid` lives in.
struct UdpCounters {
    long inDatagrams = 0;
    long receiveBufferErrors = 0;  // datagrams dropped because a socket's buffer was full
};
UdpCounters udpCounters(pid_t pid);

// "sent=3 rate=10 ..." as a map.
std::map<std::string, std::string> keyValues(const std::string& line);

}  // namespace Stress
