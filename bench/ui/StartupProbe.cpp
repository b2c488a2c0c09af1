// SPDX-License-Identifier: Apache-2.0
// Starts a program, and reports the time from its start to the first line on
// its standard error that contains "first frame", and its resident memory a
// while later; then ends it. With --until, the wait for the memory reading
// starts only once a line containing TEXT has come too, before or after the
// first frame (say, the program reports that every unit is listed); the
// program gets 60 s for each line.
//   startup_probe SETTLE_MS [--until TEXT] PROGRAM [ARG...]
// Output: "first_frame_ms=<ms> rss_kib=<KiB>", with --until also
// "until_ms=<ms>", the time from the start to the line with TEXT.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "ProcStatus.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kLinePatience = std::chrono::seconds(60);

// Reads the program's standard error to its end, noting when the lines of
// interest come.
struct ErrorWatch {
    std::string until;
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<Clock::time_point> firstFrame;
    std::optional<Clock::time_point> untilAt;
    bool ended = false;

    void read(FILE* err)
    {
        char buffer[4096];
        while (std::fgets(buffer, sizeof buffer, err)) {
            const auto now = Clock::now();
            std::lock_guard lock(mutex);
            if (!firstFrame && std::strstr(buffer, "first frame"))
                firstFrame = now;
            if (!untilAt && !until.empty() && std::strstr(buffer, until.c_str()))
                untilAt = now;
            changed.notify_all();
        }
        std::lock_guard lock(mutex);
        ended = true;
        changed.notify_all();
    }

    template <typename Predicate>
    bool waitFor(Predicate predicate)
    {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, kLinePatience, [&] { return predicate() || ended; });
        return predicate();
    }
};

}  // namespace

int main(int argc, char** argv)
{
    int first = 2;
    ErrorWatch watch;
    if (argc > 3 && std::strcmp(argv[2], "--until") == 0) {
        watch.until = argv[3];
        first = 4;
    }
    if (argc <= first) {
        std::fputs("usage: startup_probe SETTLE_MS [--until TEXT] PROGRAM [ARG...]\n", stderr);
        return 2;
    }
    const auto settle = std::chrono::milliseconds(std::atoi(argv[1]));
    int pipeFds[2];
    if (::pipe(pipeFds) != 0)
        return 1;

    const auto start = Clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(pipeFds[1], STDERR_FILENO);
        ::close(pipeFds[0]);
        ::close(pipeFds[1]);
        ::execvp(argv[first], argv + first);
        std::_Exit(127);
    }
    ::close(pipeFds[1]);
    FILE* err = ::fdopen(pipeFds[0], "r");
    std::thread reader([&] { watch.read(err); });

    const char* problem = nullptr;
    if (!watch.waitFor([&] { return watch.firstFrame.has_value(); }))
        problem = "the program showed no first frame";
    else if (!watch.until.empty() && !watch.waitFor([&] { return watch.untilAt.has_value(); }))
        problem = "the program never printed the --until text";
    long rss = -1;
    if (!problem) {
        std::this_thread::sleep_for(settle);
        rss = ProcStatus::residentKib(child);
    }
    ::kill(child, SIGTERM);
    ::waitpid(child, nullptr, 0);
    reader.join();

    if (problem) {
        std::fprintf(stderr, "startup_probe: %s\n", problem);
        return 1;
    }
    const double ms = std::chrono::duration<double, std::milli>(*watch.firstFrame - start).count();
    std::printf("first_frame_ms=%.1f rss_kib=%ld", ms, rss);
    if (watch.untilAt)
        std::printf(" until_ms=%.1f", std::chrono::duration<double, std::milli>(*watch.untilAt - start).count());
    std::printf("\n");
    return 0;
}
