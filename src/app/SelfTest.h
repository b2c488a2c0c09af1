// SPDX-License-Identifier: Apache-2.0
// The headless check behind "vornlink --selftest": broadcast discovery for
// about 2.4 s, remembered units not heard yet asked by unicast in each cycle,
// and one line printed per unit that answered.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "VornProtocol.h"

namespace VornLink {

inline constexpr std::string_view kSelfTestFlag = "--selftest";

// True when one argument (after the program name) is exactly "--selftest".
bool hasSelfTestFlag(std::span<const char* const> arguments);

struct SelfTestOptions {
    // Loopback tests move these; the program uses the defaults.
    std::uint16_t port = Vorn::kPort;
    std::string broadcastAddress = "255.255.255.255";
    // Units remembered from earlier runs, by address: each cycle asks those
    // not heard yet by unicast, paced, so units behind a router are listed.
    std::vector<std::string> remembered;
    // Given every unit that answered, by address, once the cycles are over.
    std::function<void(const std::map<std::string, Vorn::Config>&)> heard;
};

// Runs the whole check, writes its report to `out` and returns the exit status.
int runSelfTest(std::ostream& out, const SelfTestOptions& options = {});

// One report line, for the unit at `address` with configuration `config`.
std::string selfTestLine(const std::string& address, const Vorn::Config& config);

}  // namespace VornLink
