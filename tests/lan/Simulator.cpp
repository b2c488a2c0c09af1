// SPDX-License-Identifier: Apache-2.0
#include "Simulator.h"

#include <atomic>
#include <stdexcept>

#include "LanPaths.h"

namespace LanTest {
namespace {

constexpr auto kReadyTimeout = std::chrono::seconds(10);

std::filesystem::path nextLogPath(const std::filesystem::path& dir)
{
    static std::atomic<unsigned> count{0};
    return dir / ("vorn-sim-" + std::to_string(count++) + ".log");
}

std::vector<std::string> simulatorCommand(const std::vector<std::string>& arguments,
                                          const std::filesystem::path& logPath)
{
    std::vector<std::string> command{kSimulatorBinary};
    command.insert(command.end(), arguments.begin(), arguments.end());
    command.insert(command.end(), {"--log", logPath.string()});
    return command;
}

}  // namespace

Simulator::Simulator(const IsolatedLan& lan, const std::vector<std::string>& arguments,
                     const std::filesystem::path& dir)
    : Simulator(lan.unitsNs(), arguments, dir)
{
}

Simulator::Simulator(const std::string& ns, const std::vector<std::string>& arguments,
                     const std::filesystem::path& dir)
    : logPath_(nextLogPath(dir)), process_(ns, simulatorCommand(arguments, logPath_), dir)
{
    if (!process_.waitForStderrLine("listening on", kReadyTimeout)) {
        process_.terminate();
        throw std::runtime_error("vorn-sim did not get ready: " + process_.stderrText());
    }
}

std::vector<CapturedDatagram> Simulator::stopAndReadLog()
{
    process_.terminate();
    return readSimLog(logPath_);
}

}  // namespace LanTest
