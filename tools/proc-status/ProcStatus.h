// SPDX-License-Identifier: Apache-2.0
// What Linux tells about a running process under /proc, for the programs
// that measure vornlink from outside (benchmarks, stress tests).
#pragma once

#include <sys/types.h>

namespace ProcStatus {

// The process's resident set size in KiB (VmRSS), or -1 when unreadable.
long residentKib(pid_t pid);

// Its number of threads, or -1 when unreadable.
long threadCount(pid_t pid);

// Its number of open file descriptors, or -1 when unreadable.
long openDescriptors(pid_t pid);

}  // namespace ProcStatus
