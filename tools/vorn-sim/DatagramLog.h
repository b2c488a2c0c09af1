// SPDX-License-Identifier: Apache-2.0
// The simulator's record of received datagrams: one JSON object a line,
// {"time","src","sport","dst","bytes"}, with the bytes as lowercase hex.
#pragma once

#include <chrono>
#include <string>

#include "Datagram.h"

namespace VornSim {

std::string logLine(const Datagram& datagram, std::chrono::system_clock::time_point received);

}  // namespace VornSim
