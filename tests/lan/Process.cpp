// SPDX-License-Identifier: Apache-2.0
#include "Process.h"

#include <signal.h>

#include <atomic>
#include <fstream>
#include <sstream>
#include <thread>

#include "Spawn.h"
#include "TextFile.h"

namespace LanTest {
namespace {

std::filesystem::path captureStem(const std::filesystem::path& dir, const std::string& program)
{
    static std::atomic<unsigned> count{0};
    return dir / (std::filesystem::path(program).filename().string() + "-" + std::to_string(count++));
}

}  // namespace

Process::Process(const std::string& netns, const std::vector<std::string>& argv,
                 const std::filesystem::path& captureDir)
{
    const auto stem = captureStem(captureDir, argv.at(0));
    stdoutPath_ = stem.string() + ".stdout";
    stderrPath_ = stem.string() + ".stderr";
    std::ofstream{stdoutPath_};
    std::ofstream{stderrPath_};

    // ip netns exec replaces itself by the program, so pid_ is the program's.
    std::vector<std::string> command{"ip", "netns", "exec", netns};
    command.insert(command.end(), argv.begin(), argv.end());
    pid_ = detail::spawn(command, stdoutPath_, stderrPath_);
}

Process::Process(Process&& other) noexcept
    : pid_(other.pid_),
      exitStatus_(other.exitStatus_),
      stdoutPath_(std::move(other.stdoutPath_)),
      stderrPath_(std::move(other.stderrPath_))
{
    other.pid_ = -1;
}

Process::~Process()
{
    if (pid_ > 0 && !exitStatus_) {
        ::kill(pid_, SIGKILL);
        detail::waitForExit(pid_);
    }
}

bool Process::waitForStderrLine(const std::string& text, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        std::istringstream lines(stderrText());
        for (std::string line; std::getline(lines, line);) {
            if (line.find(text) != std::string::npos)
                return true;
        }
        if (wait(std::chrono::milliseconds(0)) || std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

std::optional<int> Process::wait(std::chrono::milliseconds timeout)
{
    if (!exitStatus_)
        exitStatus_ = detail::waitForExit(pid_, timeout);
    return exitStatus_;
}

int Process::terminate()
{
    if (!exitStatus_) {
        ::kill(pid_, SIGTERM);
        if (!wait(std::chrono::seconds(2))) {
            ::kill(pid_, SIGKILL);
            exitStatus_ = detail::waitForExit(pid_);
        }
    }
    return *exitStatus_;
}

int Process::kill()
{
    if (!exitStatus_) {
        ::kill(pid_, SIGKILL);
        exitStatus_ = detail::waitForExit(pid_);
    }
    return *exitStatus_;
}

std::string Process::stdoutText() const
{
    return readTextFile(stdoutPath_);
}

std::string Process::stderrText() const
{
    return readTextFile(stderrPath_);
}

}  // namespace LanTest
