// SPDX-License-Identifier: Apache-2.0
#include "BenchUnits.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

namespace BenchUnits {

std::uint16_t freeLoopbackPort()
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
    ::close(fd);
    return ntohs(address.sin_port);
}

Vorn::Reply report(int index)
{
    const std::uint32_t value = (10u << 24 | 232u << 16 | 1u << 8 | 1u) + static_cast<std::uint32_t>(index);
    const std::string address = std::to_string(value >> 24) + '.' + std::to_string((value >> 16) & 0xFF) + '.' +
                                std::to_string((value >> 8) & 0xFF) + '.' + std::to_string(value & 0xFF);
    Vorn::Config config;
    for (const auto key : Vorn::kWriteKeys)
        config.emplace(key, std::to_string(index % 100));
    config["IPAddress"] = address;
    config["Serial"] = "KT400" + std::to_string(100000 + index);
    return Vorn::Reply{address, Vorn::kCmdReport, std::move(config)};
}

}  // namespace BenchUnits
