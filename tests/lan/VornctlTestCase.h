// SPDX-License-Identifier: Apache-2.0
// Base of the vornctl LAN tests: vornctl in the console namespace, vorn-sim
// with units from a JSON text in the units namespace, and the simulator's
// received datagrams sorted by command.
#pragma once

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "LanTestCase.h"

class VornctlTestCase : public LanTestCase {
protected:
    static constexpr std::uint8_t kWrite = 0xA0;
    static constexpr std::uint8_t kDiscover = 0xA3;

    Finished vornctl(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), VORN_LAN_VORNCTL);
        return runInConsole(arguments);
    }

    // A units file for vorn-sim (see its --help) holding `json`.
    std::string unitsFile(const std::string& json, const std::string& name = "units.json") const
    {
        const auto path = dir() / name;
        std::ofstream(path) << json;
        return path.string();
    }

    std::string textFile(const std::string& text, const std::string& name) const
    {
        const auto path = dir() / name;
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }

    static std::vector<LanTest::CapturedDatagram> withCommand(const std::vector<LanTest::CapturedDatagram>& log,
                                                              std::uint8_t command)
    {
        std::vector<LanTest::CapturedDatagram> found;
        std::copy_if(log.begin(), log.end(), std::back_inserter(found), [&](const LanTest::CapturedDatagram& d) {
            return d.bytes.size() > 11 && d.bytes[11] == command;
        });
        return found;
    }

    // The body of a write datagram as text, without its closing NUL.
    static std::string bodyOf(const LanTest::CapturedDatagram& datagram)
    {
        std::string body(datagram.bytes.begin() + 20, datagram.bytes.end());
        if (!body.empty() && body.back() == '\0')
            body.pop_back();
        return body;
    }

    // The first line of `text`, and whether it is the only one.
    static bool isOneLine(const std::string& text)
    {
        return !text.empty() && text.find('\n') == text.size() - 1;
    }
};
