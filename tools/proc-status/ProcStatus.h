// What Linux tells about a running process under /proc, for the programs
// that measure vornlink from outside (benchmarks, stress tests).
#pragma once

#include <sys/types.h>

namespace ProcStatus {

// The process's resident set size in KiB (VmRSS), or -1 when unreadable.
long residentKib(pid_t pid);

}  // namespace ProcStatus
