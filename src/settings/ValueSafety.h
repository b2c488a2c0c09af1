// SPDX-License-Identifier: Apache-2.0
// What can never go into a write datagram: a line feed, carriage return or
// NUL in a value would end the "Key:Value" line early and start another
// (a password "x\nIPAddress:10.9.9.9" would move the unit), and a ':' or
// line break in a key would change which key the unit reads.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Message.h"
#include "VornConfig.h"

namespace Settings {

// Why `key` cannot be written, or nothing.
std::optional<Message> keyRefusal(std::string_view key);
// Why `value` cannot be written under `key`, or nothing.
std::optional<Message> valueRefusal(std::string_view key, std::string_view value);
// The first refusal among the entries of `config`, in key order, or nothing.
std::optional<Message> configRefusal(const Vorn::Config& config);

// Why the full configuration of a write cannot go out: a changed key that
// cannot be written, or a value of the write key table holding a line break
// or NUL (whether the user typed it or the unit reported it). Nothing when it can.
std::optional<Message> writeRefusal(const Vorn::Config& changes, const Vorn::Config& full);

}  // namespace Settings
