// SPDX-License-Identifier: Apache-2.0
// vorn-sim running in the units namespace of an IsolatedLan, logging every
// datagram it receives to a file in the given directory.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "IsolatedLan.h"
#include "Process.h"
#include "SimLog.h"

namespace LanTest {

class Simulator {
public:
    // Starts vorn-sim with `arguments` and "--log <dir>/vorn-sim-N.log" and waits
    // for its ready line; throws std::runtime_error (with its messages) otherwise.
    Simulator(const IsolatedLan& lan, const std::vector<std::string>& arguments,
              const std::filesystem::path& dir);
    // The same in namespace `ns` (for instance the LAN's studio namespace).
    Simulator(const std::string& ns, const std::vector<std::string>& arguments, const std::filesystem::path& dir);

    // Ends the simulator, so its log is complete, and reads that log.
    std::vector<CapturedDatagram> stopAndReadLog();

    Process& process() { return process_; }
    const std::filesystem::path& logPath() const { return logPath_; }

private:
    std::filesystem::path logPath_;
    Process process_;
};

}  // namespace LanTest
