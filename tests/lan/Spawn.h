// SPDX-License-Identifier: Apache-2.0
// Starting a program directly (no shell) with its output sent to files, and
// collecting its exit status. Internal to the LAN fixture and the site tests'
// server (posix_spawn: unlike QProcess's clone(CLONE_VM), it leaves
// ThreadSanitizer's view of the parent's locking intact).
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace LanTest::detail {

// Starts argv[0] (searched in PATH) with stdin from /dev/null and stdout/stderr
// appended to the given files, or inherited when a path is empty, in
// `workingDirectory` unless it is empty. Throws std::runtime_error when the
// program cannot be started.
pid_t spawn(const std::vector<std::string>& argv, const std::filesystem::path& stdoutPath = {},
            const std::filesystem::path& stderrPath = {}, const std::filesystem::path& workingDirectory = {});

// Exit code, or 128 + signal number for a program ended by a signal.
int exitStatusOf(int waitStatus);

// Blocks until the child ends; returns its exit status.
int waitForExit(pid_t pid);

// Polls the child until it ends or the timeout passes; nullopt on timeout.
std::optional<int> waitForExit(pid_t pid, std::chrono::milliseconds timeout);

}  // namespace LanTest::detail
