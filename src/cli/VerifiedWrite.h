// SPDX-License-Identifier: Apache-2.0
// A write as the window's save sends it, followed by the check of what the
// unit reports afterwards.
#pragma once

#include <chrono>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "SiteRecording.h"
#include "UnitLink.h"
#include "WriteCheck.h"

namespace VornCtl {

// The window asks the unit again this long after a write.
inline constexpr auto kRequeryDelay = std::chrono::milliseconds(1500);

struct WriteResult {
    std::optional<std::string> refused;  // why nothing was sent
    std::vector<Settings::KeyCheck> checks;
    int exitCode = 0;  // kExitOk, kExitNoAnswer or kExitNotConfirmed (kExitFailure when refused)
};

// Overlays `changes` on the unit's reported configuration, sends it (two
// copies, one sequence number), asks the unit again 1.5 s later (under its
// new address when the write moves it) and checks the reply. The write and
// the reply go into the site store.
WriteResult writeAndVerify(UnitLink& link, SiteRecording& site, const Sighting& live, const Vorn::Config& changes,
                           std::chrono::milliseconds timeout);

// "verified", or one line per key that is not confirmed, each after `indent`.
void printOutcome(std::ostream& out, const WriteResult& result, const std::string& indent = {});

}  // namespace VornCtl
