// SPDX-License-Identifier: Apache-2.0
// vorn_flood: sends a bounded flood of datagrams at full speed to one address
// and port, then prints what it sent as one line of key=value pairs. Stress
// tests run it in the units namespace of a private LAN against the program in
// the console namespace; it refuses to run anywhere but in the namespace it is
// told about, so nothing of it can reach a real network.
//
//   vorn_flood --netns NAME --to ADDR --count N [--port P] [--seed S]
//              [--spoof-units U [--first-ip A.B.C.D]] [--max-seconds T]
//
// Without --spoof-units: N junk datagrams of every kind (FloodDatagrams.h).
// With it: N well-formed reports naming U units, from --first-ip (default
// 10.240.0.1) on, skipping host parts .0 and .255, taken in turn in an order
// shuffled by the seed.
// The flood stops after N datagrams or T seconds (default 120), whichever first.
//
// Output: sent=N bytes=B seconds=S rate=R errors=E, then per kind its count,
// or units=U first_unit=A last_unit=A when spoofing.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "FloodDatagrams.h"

namespace {

struct Options {
    std::string netns;
    std::string to;
    std::uint16_t port = Vorn::kPort;
    std::uint64_t count = 0;
    std::uint64_t seed = 1;
    std::uint32_t spoofUnits = 0;
    std::string firstIp = "10.240.0.1";
    double maxSeconds = 120;
};

[[noreturn]] void usage(const char* problem)
{
    std::fprintf(stderr,
                 "vorn_flood: %s\nusage: vorn_flood --netns NAME --to ADDR --count N [--port P] [--seed S]\n"
                 "                  [--spoof-units U [--first-ip A.B.C.D]] [--max-seconds T]\n",
                 problem);
    std::exit(2);
}

Options parseOptions(int argc, char** argv)
{
    Options o;
    for (int i = 1; i < argc; i += 2) {
        const std::string name = argv[i];
        if (i + 1 >= argc)
            usage(("no value for " + name).c_str());
        const char* value = argv[i + 1];
        if (name == "--netns") o.netns = value;
        else if (name == "--to") o.to = value;
        else if (name == "--port") o.port = static_cast<std::uint16_t>(std::strtoul(value, nullptr, 10));
        else if (name == "--count") o.count = std::strtoull(value, nullptr, 10);
        else if (name == "--seed") o.seed = std::strtoull(value, nullptr, 10);
        else if (name == "--spoof-units") o.spoofUnits = static_cast<std::uint32_t>(std::strtoul(value, nullptr, 10));
        else if (name == "--first-ip") o.firstIp = value;
        else if (name == "--max-seconds") o.maxSeconds = std::strtod(value, nullptr);
        else usage(("unknown option " + name).c_str());
    }
    if (o.netns.empty() || o.to.empty() || o.count == 0)
        usage("--netns, --to and --count are required");
    return o;
}

// "ip netns exec NAME" keeps the namespace in /run/netns; this process must be in it.
bool insideNamedNamespace(const std::string& name)
{
    struct stat own = {};
    struct stat named = {};
    if (name.find('/') != std::string::npos || ::stat("/proc/self/ns/net", &own) != 0 ||
        ::stat(("/run/netns/" + name).c_str(), &named) != 0)
        return false;
    return own.st_ino == named.st_ino && own.st_dev == named.st_dev;
}

// `count` consecutive unit addresses from `first`, skipping host parts .0 and .255.
std::vector<std::string> unitAddresses(const std::string& first, std::uint32_t count)
{
    in_addr start = {};
    if (::inet_pton(AF_INET, first.c_str(), &start) != 1)
        usage("--first-ip is not an IPv4 address");
    std::vector<std::string> addresses;
    for (std::uint32_t host = ntohl(start.s_addr); addresses.size() < count; ++host) {
        if ((host & 0xFF) == 0 || (host & 0xFF) == 0xFF)
            continue;
        const in_addr next = {htonl(host)};
        addresses.emplace_back(::inet_ntoa(next));
    }
    return addresses;
}

}  // namespace

int main(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    if (!insideNamedNamespace(options.netns)) {
        std::fprintf(stderr, "vorn_flood: not inside network namespace '%s'; sending nothing\n", options.netns.c_str());
        return 3;
    }

    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in destination = {};
    destination.sin_family = AF_INET;
    destination.sin_port = htons(options.port);
    if (fd < 0 || ::inet_pton(AF_INET, options.to.c_str(), &destination.sin_addr) != 1) {
        std::fprintf(stderr, "vorn_flood: no socket, or --to is not an IPv4 address\n");
        return 1;
    }

    Flood::Generator generator(options.seed);
    std::vector<Vorn::Bytes> reports;
    const auto units = unitAddresses(options.firstIp, options.spoofUnits);
    for (const auto& unit : units)
        reports.push_back(generator.report(unit));
    std::shuffle(reports.begin(), reports.end(), std::mt19937_64(options.seed));

    std::map<std::string_view, std::uint64_t> perKind;
    std::uint64_t sent = 0;
    std::uint64_t bytes = 0;
    std::uint64_t errors = 0;
    const auto start = std::chrono::steady_clock::now();
    const auto deadline = start + std::chrono::duration<double>(options.maxSeconds);
    while (sent < options.count) {
        Vorn::Bytes junk;
        if (reports.empty()) {
            Flood::Kind kind;
            junk = generator.junk(kind);
            ++perKind[Flood::kindName(kind)];
        }
        const Vorn::Bytes& datagram = reports.empty() ? junk : reports[sent % reports.size()];
        if (::sendto(fd, datagram.data(), datagram.size(), 0, reinterpret_cast<const sockaddr*>(&destination),
                     sizeof destination) < 0)
            ++errors;
        bytes += datagram.size();
        if (++sent % 1024 == 0 && std::chrono::steady_clock::now() >= deadline)
            break;
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    ::close(fd);

    std::printf("sent=%llu bytes=%llu seconds=%.3f rate=%.0f errors=%llu", static_cast<unsigned long long>(sent),
                static_cast<unsigned long long>(bytes), seconds, seconds > 0 ? double(sent) / seconds : 0.0,
                static_cast<unsigned long long>(errors));
    if (units.empty()) {
        for (const auto kind : Flood::kJunkKinds)
            std::printf(" %s=%llu", std::string(Flood::kindName(kind)).c_str(),
                        static_cast<unsigned long long>(perKind[Flood::kindName(kind)]));
    } else {
        std::printf(" units=%zu first_unit=%s last_unit=%s", units.size(), units.front().c_str(), units.back().c_str());
    }
    std::printf("\n");
    return 0;
}
