// SPDX-License-Identifier: Apache-2.0
// Shared by the client's LAN suites: client_driver runs a VornClient in the
// console namespace and prints JSON lines; the simulators log what reached them.
#pragma once

#include <nlohmann/json.hpp>

#include <fstream>
#include <sstream>

#include "LanTestCase.h"
#include "VornProtocol.h"

namespace ClientLan {

using Json = nlohmann::json;

struct DriverRun {
    std::vector<Json> lines;

    const Json& first(const std::string& event) const
    {
        for (const auto& line : lines)
            if (line.at("event") == event)
                return line;
        throw std::runtime_error("driver printed no " + event + " line");
    }
    std::vector<Json> tables() const
    {
        std::vector<Json> found;
        for (const auto& line : lines)
            if (line.at("event") == "table")
                found.push_back(line);
        return found;
    }
    Json lastTable() const { return tables().back(); }
};

struct Captured {
    LanTest::CapturedDatagram datagram;
    double time = 0;  // seconds since the epoch, as the simulator logged it

    std::uint8_t command() const { return datagram.bytes.size() > 11 ? datagram.bytes[11] : 0; }
    std::uint16_t seq() const
    {
        return static_cast<std::uint16_t>(datagram.bytes.at(14) | (datagram.bytes.at(15) << 8));
    }
};

inline Vorn::Config configOf(const Json& device)
{
    Vorn::Config config;
    for (const auto& [key, value] : device.at("config").items())
        config[key] = value.get<std::string>();
    return config;
}

inline const Json* findDevice(const Json& table, const std::string& ip)
{
    for (const auto& device : table.at("devices"))
        if (device.at("ip") == ip)
            return &device;
    return nullptr;
}

class DriverTestCase : public LanTestCase {
protected:
    DriverRun runDriver(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {CLIENT_DRIVER, "--netns", lan().consoleNs()});
        const auto run = runInConsole(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        return parseDriverOutput(run.out);
    }

    // The driver running in the console while the test acts on the LAN.
    LanTest::Process startDriver(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {CLIENT_DRIVER, "--netns", lan().consoleNs()});
        return LanTest::Process(lan().consoleNs(), arguments, dir());
    }

    // Waits for a started driver to end and reads what it printed.
    static DriverRun finishDriver(LanTest::Process& driver)
    {
        EXPECT_EQ(driver.wait(kRunTimeout), 0) << driver.stderrText();
        return parseDriverOutput(driver.stdoutText());
    }

    static DriverRun parseDriverOutput(const std::string& text)
    {
        DriverRun parsed;
        std::istringstream out(text);
        for (std::string line; std::getline(out, line);)
            parsed.lines.push_back(Json::parse(line));
        return parsed;
    }

    // The simulator's log with the receive time of each datagram.
    static std::vector<Captured> capture(LanTest::Simulator& simulator)
    {
        const auto datagrams = simulator.stopAndReadLog();
        std::vector<Captured> captured;
        std::ifstream log(simulator.logPath());
        std::size_t index = 0;
        for (std::string line; std::getline(log, line) && index < datagrams.size();) {
            if (!line.empty())
                captured.push_back({datagrams[index++], Json::parse(line).at("time").get<double>()});
        }
        return captured;
    }
};

}  // namespace ClientLan
