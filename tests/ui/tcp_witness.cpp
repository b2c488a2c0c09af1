// SPDX-License-Identifier: Apache-2.0
// Listens on TCP 127.0.0.1:PORT and reports every connection on standard
// error, so a test can tell that nothing tried to fetch from there.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: tcp_witness PORT\n", stderr);
        return 2;
    }
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    const int one = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_port = htons(static_cast<std::uint16_t>(std::atoi(argv[1])));
    local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0 || ::listen(fd, 8) != 0) {
        std::perror("tcp_witness");
        return 1;
    }
    std::fputs("tcp_witness: listening\n", stderr);
    for (;;) {
        const int peer = ::accept(fd, nullptr, nullptr);
        if (peer >= 0) {
            std::fputs("tcp_witness: connection\n", stderr);
            ::close(peer);
        }
    }
}
