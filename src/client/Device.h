// SPDX-License-Identifier: Apache-2.0
// One known base station: its address, the configuration of its latest reply
// and when that reply was taken. A plain value; identity is the address.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

#include <QString>

#include "VornProtocol.h"
#include "VornSocket.h"

using WallClock = std::chrono::system_clock;

struct Device {
    std::string ip;
    Vorn::Config config;
    WallClock::time_point lastSeen;
    // Where its latest reply came in; unicasts to the unit leave there.
    Vorn::Arrival heardOn{};
    // Listed from the site store and not heard in this run: `config` and
    // `lastSeen` are what was remembered.
    bool remembered = false;

    // The key of the unit in the client's table and in list selections.
    const std::string& id() const { return ip; }

    // "KT400 ·" followed by the last six user-perceived characters of the
    // serial, or the address when the serial is missing or shorter than that.
    QString title() const;

    bool operator==(const Device&) const = default;
};

// Consistent with operator==: address, then every key and value, then lastSeen,
// the arrival interface and whether the unit is only remembered.
std::size_t hashValue(const Device& device, std::size_t seed = 0);

inline std::size_t qHash(const Device& device, std::size_t seed = 0)
{
    return hashValue(device, seed);
}

template <>
struct std::hash<Device> {
    std::size_t operator()(const Device& device) const
    {
        return hashValue(device);
    }
};
