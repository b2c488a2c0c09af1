// SPDX-License-Identifier: Apache-2.0
// One simulated base station: its current address, the configuration it
// reports, and the misbehaviour it was told to show.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "VornProtocol.h"

namespace VornSim {

struct Faults {
    std::optional<std::string> reportIp{};  // header address instead of the unit's own
    std::optional<std::uint8_t> cmd{};      // reply command code instead of A2
    bool silent = false;                    // never answers (writes still apply)
    double drop = 0.0;                      // fraction of requests ignored, 0..1
    std::chrono::milliseconds delay{0};     // reply held back this long
    bool ignoreWrites = false;              // answers, but never stores a write
    std::optional<std::string> keepKey{};   // stores writes except this key

    bool operator==(const Faults&) const = default;
};

// Fault settings given on the command line: only the fields that are set change.
struct FaultOverrides {
    std::optional<std::string> reportIp{};
    std::optional<std::uint8_t> cmd{};
    std::optional<bool> silent{};
    std::optional<double> drop{};
    std::optional<std::chrono::milliseconds> delay{};
    std::optional<bool> ignoreWrites{};
    std::optional<std::string> keepKey{};

    void applyTo(Faults& faults) const;
    bool operator==(const FaultOverrides&) const = default;
};

struct Unit {
    std::string ip;  // where it listens and answers from; follows IPAddress writes
    Vorn::Config config;
    Faults faults;

    bool operator==(const Unit&) const = default;
};

}  // namespace VornSim
