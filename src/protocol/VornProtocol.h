// SPDX-License-Identifier: Apache-2.0
// The base-station wire format: building discover and write datagrams and
// decoding what units send back. Pure functions, no I/O, no shared state.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "SettingKeys.h"
#include "VornConfig.h"

namespace Vorn {

using Bytes = std::vector<std::uint8_t>;

inline constexpr std::uint16_t kPort = 23457;
inline constexpr std::uint8_t kCmdWrite = 0xA0;
inline constexpr std::uint8_t kCmdReport = 0xA2;
inline constexpr std::uint8_t kCmdDiscover = 0xA3;
inline constexpr std::size_t kHeaderSize = 20;

// The only keys a write carries, in the order they go on the wire.
using SettingKeys::kWriteKeys;

// One decoded datagram. `deviceIp` comes from the header, never from the sender.
struct Reply {
    std::string deviceIp;
    std::optional<std::uint8_t> cmd;
    Config config;

    bool operator==(const Reply&) const = default;
};

Bytes discoverPacket(std::uint16_t seq);

// Stops the process when the datagram would exceed 65535 bytes: the callers
// build configurations from a fixed key list, so that can only be a bug.
// Values are not checked here: the client refuses a configuration that
// holds a line break or NUL before it gets this far (Settings::configRefusal).
Bytes writePacket(std::uint16_t seq, const Config& config);

std::optional<Reply> parse(std::span<const std::uint8_t> datagram);

namespace detail {
// Bytes as UTF-8, each invalid sequence replaced by U+FFFD.
std::string decodeUtf8Lossy(std::span<const std::uint8_t> bytes);
}  // namespace detail

}  // namespace Vorn
