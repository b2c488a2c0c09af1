// SPDX-License-Identifier: Apache-2.0
#include "ProcStatus.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace ProcStatus {

namespace {

// The number after "<field>:" in /proc/<pid>/status, or -1.
long statusField(pid_t pid, const std::string& field)
{
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    const std::string prefix = field + ":";
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(prefix, 0) == 0)
            return std::strtol(line.c_str() + prefix.size(), nullptr, 10);
    }
    return -1;
}

}  // namespace

long residentKib(pid_t pid)
{
    return statusField(pid, "VmRSS");
}

long threadCount(pid_t pid)
{
    return statusField(pid, "Threads");
}

long openDescriptors(pid_t pid)
{
    std::error_code error;
    std::filesystem::directory_iterator entries("/proc/" + std::to_string(pid) + "/fd", error);
    if (error)
        return -1;
    long count = 0;
    for (auto entry = entries; entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (error)
            return -1;
        ++count;
    }
    return count;
}

}  // namespace ProcStatus
