// SPDX-License-Identifier: Apache-2.0
// A program running inside a network namespace ("ip netns exec NS argv..."),
// its standard output and error captured to files. The process is killed when
// the object goes away, if it still runs.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace LanTest {

class Process {
public:
    // Starts argv in namespace `netns`; output goes to captureDir/<name>-<n>.stdout
    // and .stderr. Throws std::runtime_error when it cannot be started.
    Process(const std::string& netns, const std::vector<std::string>& argv,
            const std::filesystem::path& captureDir);
    ~Process();
    Process(Process&& other) noexcept;
    Process& operator=(Process&&) = delete;
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // True once a line of standard error contains `text`; false when the
    // process ends or the timeout passes first.
    bool waitForStderrLine(const std::string& text, std::chrono::milliseconds timeout);

    // Exit code (128 + signal when killed by one), or nullopt on timeout.
    std::optional<int> wait(std::chrono::milliseconds timeout);

    // SIGTERM, then SIGKILL if it has not ended after two seconds; the exit status.
    int terminate();
    // SIGKILL at once, as a crash or "kill -9" ends it; the exit status.
    int kill();

    std::string stdoutText() const;
    std::string stderrText() const;
    const std::filesystem::path& stdoutPath() const { return stdoutPath_; }
    const std::filesystem::path& stderrPath() const { return stderrPath_; }

private:
    pid_t pid_ = -1;
    std::optional<int> exitStatus_;
    std::filesystem::path stdoutPath_;
    std::filesystem::path stderrPath_;
};

}  // namespace LanTest
