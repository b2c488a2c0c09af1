// SPDX-License-Identifier: Apache-2.0
// A block of IPv4 addresses to scan, as an engineer types it: a CIDR block
// ("10.78.5.0/24") or a range ("10.78.5.10-10.78.5.99"). Addresses follow the
// dotted-quad rule of Ipv4 ("010" is decimal 10).
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "Ipv4.h"

namespace Settings {

// The most addresses one scan may cover.
inline constexpr std::uint64_t kMaxScanAddresses = 4096;

struct AddressBlock {
    Ipv4 first;
    Ipv4 last;  // inclusive, never before `first`

    // How many addresses lie in first..last.
    std::uint64_t size() const { return std::uint64_t{last.value()} - first.value() + 1; }
    std::vector<Ipv4> addresses() const;

    bool operator==(const AddressBlock&) const = default;
};

struct AddressBlockProblem {
    enum class Kind {
        Malformed,  // neither a CIDR block nor a range of two addresses
        Reversed,   // a range whose end lies before its start
        TooLarge,   // more than kMaxScanAddresses addresses
    };
    Kind kind;
    std::uint64_t size = 0;  // with TooLarge: how many addresses the text covers

    bool operator==(const AddressBlockProblem&) const = default;
};

// A CIDR block covers its hosts: without the network and broadcast addresses
// when the prefix is /30 or shorter, every address of a /31 or /32. Host bits
// in the address are ignored ("10.78.5.7/24" is 10.78.5.0/24). Blanks around
// the text and around "/" and "-" are allowed.
std::variant<AddressBlock, AddressBlockProblem> parseAddressBlock(std::string_view text);

}  // namespace Settings
