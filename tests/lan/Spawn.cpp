// SPDX-License-Identifier: Apache-2.0
#include "Spawn.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace LanTest::detail {
namespace {

void redirect(posix_spawn_file_actions_t& actions, int fd, const std::filesystem::path& path)
{
    if (!path.empty())
        posix_spawn_file_actions_addopen(&actions, fd, path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
}

}  // namespace

pid_t spawn(const std::vector<std::string>& argv, const std::filesystem::path& stdoutPath,
            const std::filesystem::path& stderrPath, const std::filesystem::path& workingDirectory)
{
    std::vector<char*> arguments;
    for (const auto& argument : argv)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    redirect(actions, 1, stdoutPath);
    redirect(actions, 2, stderrPath);
    if (!workingDirectory.empty())
        posix_spawn_file_actions_addchdir_np(&actions, workingDirectory.c_str());
    pid_t pid = -1;
    const int error = posix_spawnp(&pid, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error("cannot start " + argv.front() + ": " + std::strerror(error));
    return pid;
}

int exitStatusOf(int waitStatus)
{
    if (WIFSIGNALED(waitStatus))
        return 128 + WTERMSIG(waitStatus);
    return WEXITSTATUS(waitStatus);
}

int waitForExit(pid_t pid)
{
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            throw std::runtime_error(std::string("waitpid: ") + std::strerror(errno));
    }
    return exitStatusOf(status);
}

std::optional<int> waitForExit(pid_t pid, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        int status = 0;
        const pid_t result = ::waitpid(pid, &status, WNOHANG);
        if (result == pid)
            return exitStatusOf(status);
        if (result < 0 && errno != EINTR)
            throw std::runtime_error(std::string("waitpid: ") + std::strerror(errno));
        if (std::chrono::steady_clock::now() >= deadline)
            return std::nullopt;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

}  // namespace LanTest::detail
