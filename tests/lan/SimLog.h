// SPDX-License-Identifier: Apache-2.0
// The datagrams vorn-sim received, read back from its "--log FILE" output
// (one JSON object a line: time, src, sport, dst, bytes as lowercase hex).
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace LanTest {

struct CapturedDatagram {
    std::string src;
    std::uint16_t sport = 0;
    std::string dst;
    std::vector<std::uint8_t> bytes;

    bool operator==(const CapturedDatagram&) const = default;
};

// Every line of the log, in order; a missing file reads as no datagrams.
// Throws std::runtime_error on a line that is not such a record.
std::vector<CapturedDatagram> readSimLog(const std::filesystem::path& path);

}  // namespace LanTest
