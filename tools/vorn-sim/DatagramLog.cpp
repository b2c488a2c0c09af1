// SPDX-License-Identifier: Apache-2.0
#include "DatagramLog.h"

#include <nlohmann/json.hpp>

namespace VornSim {
namespace {

std::string lowercaseHex(const Vorn::Bytes& bytes)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (auto byte : bytes) {
        hex.push_back(kDigits[byte >> 4]);
        hex.push_back(kDigits[byte & 0x0F]);
    }
    return hex;
}

}  // namespace

std::string logLine(const Datagram& datagram, std::chrono::system_clock::time_point received)
{
    const std::chrono::duration<double> sinceEpoch = received.time_since_epoch();
    nlohmann::ordered_json line;
    line["time"] = sinceEpoch.count();
    line["src"] = datagram.srcIp;
    line["sport"] = datagram.srcPort;
    line["dst"] = datagram.dstIp;
    line["bytes"] = lowercaseHex(datagram.bytes);
    return line.dump();
}

}  // namespace VornSim
