#include "ProcStatus.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace ProcStatus {

long residentKib(pid_t pid)
{
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0)
            return std::strtol(line.c_str() + 6, nullptr, 10);
    }
    return -1;
}

}  // namespace ProcStatus
