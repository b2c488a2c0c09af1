// SPDX-License-Identifier: Apache-2.0
// The datagrams of a flood against the program's port, made from a seeded
// generator so that a run can be repeated exactly.
//
// Junk: what a hostile or broken sender may put on the port. Where a kind
// carries the right magic and the report command, its header names one of a
// few fixed "junk units", so a flood of it can list at most kJunkUnits rows
// however long it lasts; every other kind must be dropped whole.
// Spoofed reports: well-formed reports whose headers name many different units.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "VornProtocol.h"

namespace Flood {

enum class Kind {
    Short,          // 0 to 19 bytes, often starting like the magic
    WrongMagic,     // a report whose magic has one bit flipped, or plain noise
    BadLength,      // a report whose length field is 0, under 20, past the end or cuts a line
    InvalidUtf8,    // a report whose lines carry invalid UTF-8, NULs and CRs
    Oversized,      // 2048 bytes and more, up to the largest UDP datagram
    ForeignCommand, // right magic, any command but the report, any header address
};
inline constexpr std::array<Kind, 6> kJunkKinds = {Kind::Short,       Kind::WrongMagic, Kind::BadLength,
                                                   Kind::InvalidUtf8, Kind::Oversized,  Kind::ForeignCommand};
std::string_view kindName(Kind kind);

inline constexpr int kJunkUnits = 4;
// The header address of junk unit `index` (0 .. kJunkUnits-1): 10.233.0.1 and up,
// after the simulated units' 10.232.x.y in address-text order.
std::string junkUnitAddress(int index);

class Generator {
public:
    explicit Generator(std::uint64_t seed) : random_(seed) {}

    // One junk datagram of a kind drawn evenly from kJunkKinds.
    Vorn::Bytes junk(Kind& kind);
    // A well-formed report of a typical unit, filed under `unitAddress`.
    Vorn::Bytes report(const std::string& unitAddress);

private:
    Vorn::Bytes shortDatagram();
    Vorn::Bytes wrongMagic();
    Vorn::Bytes badLength();
    Vorn::Bytes invalidUtf8();
    Vorn::Bytes oversized();
    Vorn::Bytes foreignCommand();

    std::size_t below(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }
    std::string junkUnit() { return junkUnitAddress(static_cast<int>(below(kJunkUnits))); }

    std::mt19937_64 random_;
};

}  // namespace Flood
