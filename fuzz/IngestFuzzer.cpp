// SPDX-License-Identifier: Apache-2.0
// Drives the decode-and-merge path with a stream of arbitrary datagrams and
// checks the device table afterwards: one entry per address, in text order,
// only units that sent a report, and a log that never outgrows its limit.
#include <cstdint>
#include <cstdlib>
#include <set>
#include <span>

#include <QCoreApplication>

#include "VornClient.h"

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

// The input is a sequence of datagrams, each prefixed by a two-byte length.
std::vector<std::span<const std::uint8_t>> splitDatagrams(std::span<const std::uint8_t> input)
{
    std::vector<std::span<const std::uint8_t>> datagrams;
    while (input.size() >= 2) {
        const std::size_t length = std::min<std::size_t>(input[0] | (input[1] << 8), input.size() - 2);
        datagrams.push_back(input.subspan(2, length));
        input = input.subspan(2 + length);
    }
    return datagrams;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Never started: the client binds nothing and sends nothing here.
    VornClient client(1, "127.0.0.1");
    std::set<std::string> reporters;
    for (const auto datagram : splitDatagrams(std::span(data, size))) {
        auto reply = Vorn::parse(datagram);
        if (!reply)
            continue;
        if (reply->cmd == Vorn::kCmdReport)
            reporters.insert(reply->deviceIp);
        client.ingest(std::move(*reply));
    }

    const auto& devices = client.devices();
    require(devices.size() == reporters.size());
    for (std::size_t i = 0; i < devices.size(); ++i) {
        require(reporters.count(devices[i].ip) == 1);
        require(i == 0 || devices[i - 1].ip < devices[i].ip);
        require(client.indexOf(devices[i].ip) == static_cast<int>(i));
    }
    require(client.log().size() == std::min<qsizetype>(static_cast<qsizetype>(devices.size()), VornClient::kLogLimit));
    return 0;
}
