// SPDX-License-Identifier: Apache-2.0
// vorn-sim: answers base-station discovery and writes for simulated units.
#include <csignal>
#include <fstream>
#include <iostream>
#include <string_view>
#include <vector>

#include "EventLoop.h"
#include "Options.h"
#include "UdpEndpoint.h"
#include "UnitSet.h"

namespace {

constexpr int kExitRuntimeFailure = 1;
constexpr int kExitUsage = 2;

VornSim::EventLoop* runningLoop = nullptr;

void stopOnSignal(int)
{
    if (runningLoop)
        runningLoop->requestStop();
}

void installSignalHandlers()
{
    struct sigaction action{};
    action.sa_handler = stopOnSignal;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

int usageError(const std::string& message)
{
    std::cerr << "vorn-sim: " << message << "; try 'vorn-sim --help'\n";
    return kExitUsage;
}

int runtimeError(const std::string& message)
{
    std::cerr << "vorn-sim: " << message << '\n';
    return kExitRuntimeFailure;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string_view> args(argv + 1, argv + argc);
    const auto parsed = VornSim::parseOptions(args);
    if (const auto* error = std::get_if<VornSim::Error>(&parsed))
        return usageError(error->message);
    const auto& options = std::get<VornSim::Options>(parsed);
    if (options.help) {
        std::cout << VornSim::usageText();
        return 0;
    }
    auto units = VornSim::makeUnits(options);
    if (const auto* error = std::get_if<VornSim::Error>(&units))
        return usageError(error->message);
    const auto unitCount = std::get<std::vector<VornSim::Unit>>(units).size();

    std::ofstream logFile;
    std::ostream* log = nullptr;
    if (options.logPath == "-") {
        log = &std::cout;
    } else if (!options.logPath.empty()) {
        logFile.open(options.logPath, std::ios::app);
        if (!logFile)
            return runtimeError("cannot open log file '" + options.logPath + "'");
        log = &logFile;
    }

    auto endpoint = VornSim::UdpEndpoint::open(options.bindAddress, options.port);
    if (const auto* error = std::get_if<VornSim::Error>(&endpoint))
        return runtimeError(error->message);

    VornSim::EventLoop loop(std::move(std::get<VornSim::UdpEndpoint>(endpoint)),
                            std::move(std::get<std::vector<VornSim::Unit>>(units)), options.seed, log);
    runningLoop = &loop;
    installSignalHandlers();

    const std::string ready = "vorn-sim: " + std::to_string(unitCount) + " unit(s) listening on " +
                              options.bindAddress + ':' + std::to_string(options.port);
    if (!options.readyFile.empty() && !(std::ofstream(options.readyFile) << ready << '\n'))
        return runtimeError("cannot create ready file '" + options.readyFile + "'");
    std::cerr << ready << std::endl;

    const bool stoppedCleanly = loop.run();
    runningLoop = nullptr;
    if (!stoppedCleanly)
        return runtimeError("waiting for datagrams failed");
    return 0;
}
