// SPDX-License-Identifier: Apache-2.0
// The simulator's command line: what it parses to, and the help text.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Result.h"
#include "Unit.h"
#include "VornProtocol.h"

namespace VornSim {

inline constexpr std::string_view kAllUnits = "all";

// A fault for the unit at `unit` (an address), or for every unit ("all").
struct FaultOption {
    std::string unit;
    FaultOverrides overrides;

    bool operator==(const FaultOption&) const = default;
};

// One more unit at `ip`, whatever the address: outside the link's subnet, or
// one another unit already answers under. A non-empty `serial` replaces the
// generated one.
struct ExtraUnit {
    std::string ip;
    std::string serial;

    bool operator==(const ExtraUnit&) const = default;
};

struct Options {
    bool help = false;
    std::uint16_t port = Vorn::kPort;
    std::string bindAddress = "0.0.0.0";
    std::string logPath;  // empty: no log; "-": standard output
    std::string readyFile;
    int count = 3;
    std::string firstIp = "10.232.1.1";
    std::uint64_t seed = 1;
    std::string unitsFile;  // when set, units come from this JSON file
    std::vector<FaultOption> faults;
    std::vector<ExtraUnit> extraUnits;
};

inline constexpr int kMaxCount = 1'000'000;

// `args` excludes the program name. Accepts "--name value" and "--name=value".
Result<Options> parseOptions(std::span<const std::string_view> args);

std::string usageText();

}  // namespace VornSim
