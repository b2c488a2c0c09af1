// SPDX-License-Identifier: Apache-2.0
// Simulated units for the window benchmarks, fed through ingest instead of
// the network, and a loopback port for a client that never hears anything.
#pragma once

#include <cstdint>

#include "VornProtocol.h"

namespace BenchUnits {

// A free UDP port on 127.0.0.1 at the time of asking.
std::uint16_t freeLoopbackPort();

// The report of unit `index`: addresses count up from 10.232.1.1, the order
// in which a simulated fleet answers; the usual keys, a serial of its own.
Vorn::Reply report(int index);

}  // namespace BenchUnits
