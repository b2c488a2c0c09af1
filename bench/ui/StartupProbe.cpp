// Starts a program, and reports the time from its start to the first line on
// its standard error that contains "first frame", and its resident memory a
// while later; then ends it.
//   startup_probe SETTLE_MS PROGRAM [ARG...]
// Output: "first_frame_ms=<ms> rss_kib=<KiB>"
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

namespace {

long residentKib(pid_t pid)
{
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0)
            return std::strtol(line.c_str() + 6, nullptr, 10);
    }
    return -1;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("usage: startup_probe SETTLE_MS PROGRAM [ARG...]\n", stderr);
        return 2;
    }
    const auto settle = std::chrono::milliseconds(std::atoi(argv[1]));
    int pipeFds[2];
    if (::pipe(pipeFds) != 0)
        return 1;

    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(pipeFds[1], STDERR_FILENO);
        ::close(pipeFds[0]);
        ::close(pipeFds[1]);
        ::execvp(argv[2], argv + 2);
        std::_Exit(127);
    }
    ::close(pipeFds[1]);

    FILE* err = ::fdopen(pipeFds[0], "r");
    char buffer[4096];
    bool framed = false;
    while (std::fgets(buffer, sizeof buffer, err)) {
        if (std::string(buffer).find("first frame") != std::string::npos) {
            framed = true;
            break;
        }
    }
    const auto firstFrame = std::chrono::steady_clock::now();
    if (!framed) {
        std::fputs("startup_probe: the program ended without a first frame\n", stderr);
        return 1;
    }
    // Keep draining its output so it never blocks on a full pipe.
    std::thread drain([err] {
        char rest[4096];
        while (std::fgets(rest, sizeof rest, err)) {
        }
    });
    std::this_thread::sleep_for(settle);
    const long rss = residentKib(child);
    ::kill(child, SIGTERM);
    ::waitpid(child, nullptr, 0);
    drain.join();

    const double ms = std::chrono::duration<double, std::milli>(firstFrame - start).count();
    std::printf("first_frame_ms=%.1f rss_kib=%ld\n", ms, rss);
    return 0;
}
