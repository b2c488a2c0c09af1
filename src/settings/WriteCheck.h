// SPDX-License-Identifier: Apache-2.0
// A write checked against the reply that follows it: for every key written,
// whether the unit now reports the written value, another value, or did not
// answer at all.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Message.h"
#include "VornConfig.h"

namespace Settings {

enum class KeyOutcome {
    Confirmed,     // the reply holds the written value
    ReportsOther,  // the reply holds another value, or none
    NoReply,       // no reply came after the write
};

struct KeyCheck {
    std::string key;
    std::string written;
    KeyOutcome outcome = KeyOutcome::NoReply;
    std::optional<std::string> reported;  // the unit's value, when it reported the key

    bool operator==(const KeyCheck&) const = default;
};

// One entry per key of `written`, in key order. `reply` is the configuration
// the unit reported after the write, or nothing when it did not answer.
std::vector<KeyCheck> checkWrite(const Vorn::Config& written, const std::optional<Vorn::Config>& reply);

bool allConfirmed(const std::vector<KeyCheck>& checks);

// One line for a key that is not confirmed, e.g.
// "Channel: wrote 5, unit reports 3", "Channel: wrote 5, unit reports no value",
// "Channel: wrote 5, no reply".
Message describeCheck(const KeyCheck& check);

}  // namespace Settings
