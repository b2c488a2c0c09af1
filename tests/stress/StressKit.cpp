// SPDX-License-Identifier: Apache-2.0
#include "StressKit.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace Stress {
namespace {

std::string firstLine(const std::filesystem::path& path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

bool sameFile(const std::string& a, const std::string& b)
{
    struct stat first = {};
    struct stat second = {};
    return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 && first.st_ino == second.st_ino &&
           first.st_dev == second.st_dev;
}

}  // namespace

std::vector<LatencyReport> latencyReports(const std::string& stderrText)
{
    static const std::string prefix = "vornlink.latency: ";
    std::vector<LatencyReport> reports;
    std::istringstream lines(stderrText);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(prefix, 0) != 0)
            continue;
        LatencyReport r;
        if (std::sscanf(line.c_str() + prefix.size(), "at %ld ms: worst %lf ms, mean %lf ms late over %d ticks; %d rows",
                        &r.atMs, &r.worstMs, &r.meanMs, &r.ticks, &r.rows) == 5)
            reports.push_back(r);
    }
    return reports;
}

Lateness latenessBetween(const std::vector<LatencyReport>& reports, long fromMs, long toMs)
{
    Lateness lateness;
    double weighted = 0;
    int ticks = 0;
    for (const auto& r : reports) {
        if (r.atMs < fromMs || r.atMs > toMs)
            continue;
        lateness.worstMs = std::max(lateness.worstMs, r.worstMs);
        weighted += r.meanMs * r.ticks;
        ticks += r.ticks;
        ++lateness.reports;
    }
    lateness.meanMs = ticks > 0 ? weighted / ticks : 0;
    return lateness;
}

std::optional<pid_t> processInNamespace(const std::string& netns, const std::string& comm)
{
    const std::string named = "/run/netns/" + netns;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") != std::string::npos)
            continue;
        if (firstLine(entry.path() / "comm") == comm && sameFile(entry.path() / "ns/net", named))
            return static_cast<pid_t>(std::stol(name));
    }
    return std::nullopt;
}

UdpCounters udpCounters(pid_t pid)
{
    // Two "Udp:" lines: the names, then the values in the same order.
    std::ifstream snmp("/proc/" + std::to_string(pid) + "/net/snmp");
    std::vector<std::vector<std::string>> udp;
    for (std::string line; std::getline(snmp, line);) {
        if (line.rfind("Udp: ", 0) != 0)
            continue;
        std::istringstream words(line.substr(5));
        udp.emplace_back(std::istream_iterator<std::string>(words), std::istream_iterator<std::string>());
    }
    UdpCounters counters;
    if (udp.size() < 2)
        return counters;
    for (std::size_t i = 0; i < udp[0].size() && i < udp[1].size(); ++i) {
        if (udp[0][i] == "InDatagrams")
            counters.inDatagrams = std::stol(udp[1][i]);
        else if (udp[0][i] == "RcvbufErrors")
            counters.receiveBufferErrors = std::stol(udp[1][i]);
    }
    return counters;
}

std::map<std::string, std::string> keyValues(const std::string& line)
{
    std::map<std::string, std::string> values;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        const auto equals = word.find('=');
        if (equals != std::string::npos)
            values[word.substr(0, equals)] = word.substr(equals + 1);
    }
    return values;
}

}  // namespace Stress
