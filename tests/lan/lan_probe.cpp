// SPDX-License-Identifier: Apache-2.0
// Small helper run inside the LAN tests' namespaces:
//   lan_probe hold-port PORT      bind UDP PORT on all interfaces without
//                                 SO_REUSEADDR and keep it until killed
//   lan_probe hold-shared-port    bind UDP 23457 as the window does (a VornSocket,
//                                 SO_REUSEADDR) and keep it until killed
//   lan_probe send ADDRESS TEXT   VornSocket::send of TEXT's bytes to ADDRESS
//   lan_probe hear-own-broadcast  start a VornSocket, broadcast one datagram with
//                                 it and print "heard SENDER HEX" once the own
//                                 listening socket delivers it (exit 1: not heard)
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <mutex>
#include <optional>
#include <string>

#include "VornSocket.h"

namespace {

constexpr auto kHearTimeout = std::chrono::seconds(5);

int holdPort(const char* portText)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in local;
    std::memset(&local, 0, sizeof local);
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_ANY);
    local.sin_port = htons(static_cast<std::uint16_t>(std::stoi(portText)));
    if (fd < 0 || ::bind(fd, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
        std::perror("lan_probe: bind");
        return 1;
    }
    std::cerr << "lan_probe: holding UDP " << portText << std::endl;
    for (;;)
        ::pause();
}

int holdSharedPort()
{
    Vorn::VornSocket socket;
    if (!socket.start()) {
        std::cerr << "lan_probe: cannot bind UDP " << socket.port() << '\n';
        return 1;
    }
    std::cerr << "lan_probe: holding UDP " << socket.port() << " shared" << std::endl;
    for (;;)
        ::pause();
}

int send(const std::string& address, const std::string& text)
{
    const Vorn::Bytes data(text.begin(), text.end());
    Vorn::VornSocket().send(data, address);
    return 0;
}

std::string hex(const Vorn::Bytes& bytes)
{
    std::string text;
    for (const auto byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

int hearOwnBroadcast()
{
    const Vorn::Bytes sent = Vorn::discoverPacket(0x0102);
    std::mutex mutex;
    std::condition_variable heardSignal;
    std::optional<std::string> heardFrom;

    Vorn::VornSocket socket;
    socket.setOnPacket([&](Vorn::Bytes data, std::string sender) {
        if (data != sent)
            return;
        std::lock_guard lock(mutex);
        heardFrom = std::move(sender);
        heardSignal.notify_all();
    });
    if (!socket.start()) {
        std::cerr << "lan_probe: cannot bind UDP " << socket.port() << '\n';
        return 1;
    }
    socket.send(sent, Vorn::VornSocket::kLimitedBroadcast);

    std::unique_lock lock(mutex);
    if (!heardSignal.wait_for(lock, kHearTimeout, [&] { return heardFrom.has_value(); })) {
        std::cerr << "lan_probe: own broadcast not heard\n";
        return 1;
    }
    std::cout << "heard " << *heardFrom << ' ' << hex(sent) << std::endl;
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "hold-port" && argc == 3)
        return holdPort(argv[2]);
    if (command == "hold-shared-port" && argc == 2)
        return holdSharedPort();
    if (command == "send" && argc == 4)
        return send(argv[2], argv[3]);
    if (command == "hear-own-broadcast" && argc == 2)
        return hearOwnBroadcast();
    std::cerr << "usage: lan_probe hold-port PORT | hold-shared-port | send ADDRESS TEXT | hear-own-broadcast\n";
    return 2;
}
