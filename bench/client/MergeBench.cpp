// SPDX-License-Identifier: Apache-2.0
// How fast replies merge into the device table, with the list model
// attached as the window has it. Items per second = replies per second.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <algorithm>
#include <random>

#include "DeviceListModel.h"
#include "Ipv4.h"
#include "VornClient.h"

namespace {

// The client is never started and never sends; the port only has to differ
// from the device port.
constexpr std::uint16_t kUnusedPort = 40999;

std::string unitAddress(int index)
{
    return "10.232." + std::to_string(index / 250) + "." + std::to_string(index % 250 + 1);
}

Vorn::Config typicalConfig(int index)
{
    Vorn::Config config;
    for (const auto key : Vorn::kWriteKeys)
        config.emplace(key, "value-" + std::to_string(index));
    config["IPAddress"] = unitAddress(index);
    config["Serial"] = "KT400" + std::to_string(100000 + index);
    return config;
}

struct Table {
    VornClient client{kUnusedPort, "127.0.0.2"};
    DeviceListModel model;
    std::vector<Vorn::Reply> replies;

    explicit Table(int units)
    {
        model.setClient(&client);
        for (int i = 0; i < units; ++i)
            replies.push_back(Vorn::Reply{unitAddress(i), Vorn::kCmdReport, typicalConfig(i)});
        for (const auto& reply : replies)
            client.ingest(reply);
        std::shuffle(replies.begin(), replies.end(), std::mt19937(7));
    }
};

void MergeKnownUnits(benchmark::State& state)
{
    Table table(static_cast<int>(state.range(0)));
    std::size_t next = 0;
    for (auto _ : state) {
        table.client.ingest(table.replies[next]);
        next = (next + 1) % table.replies.size();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(MergeKnownUnits)->Arg(100)->Arg(1000)->Arg(10000);

void ParseAndMergeKnownUnits(benchmark::State& state)
{
    Table table(static_cast<int>(state.range(0)));
    // A report datagram per unit, as it arrives from the network.
    std::vector<Vorn::Bytes> datagrams;
    for (const auto& reply : table.replies) {
        std::string body;
        for (const auto& [key, value] : reply.config)
            body += key + ':' + value + '\n';
        const auto address = Settings::Ipv4::parse(reply.deviceIp).value_or(Settings::Ipv4()).octets();
        const std::size_t total = Vorn::kHeaderSize + body.size();
        Vorn::Bytes datagram(total, 0);
        const std::uint8_t header[] = {0x3A, 0x62, 0x7F, 0x3D, address[3], address[2], address[1], address[0],
                                       0x00, 0x00, 0x01, Vorn::kCmdReport,
                                       static_cast<std::uint8_t>(total & 0xFF), static_cast<std::uint8_t>(total >> 8)};
        std::copy(std::begin(header), std::end(header), datagram.begin());
        std::copy(body.begin(), body.end(), datagram.begin() + Vorn::kHeaderSize);
        datagrams.push_back(std::move(datagram));
    }
    std::size_t next = 0;
    for (auto _ : state) {
        table.client.ingest(*Vorn::parse(datagrams[next]));
        next = (next + 1) % datagrams.size();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ParseAndMergeKnownUnits)->Arg(100)->Arg(1000)->Arg(10000);

// A whole table built from empty, units arriving in random order: each is a
// new entry placed by binary search, a row insert and a log line.
void FillEmptyTable(benchmark::State& state)
{
    const int units = static_cast<int>(state.range(0));
    std::vector<Vorn::Reply> replies;
    for (int i = 0; i < units; ++i)
        replies.push_back(Vorn::Reply{unitAddress(i), Vorn::kCmdReport, typicalConfig(i)});
    std::shuffle(replies.begin(), replies.end(), std::mt19937(11));
    for (auto _ : state) {
        VornClient client(kUnusedPort, "127.0.0.2");
        DeviceListModel model;
        model.setClient(&client);
        for (const auto& reply : replies)
            client.ingest(reply);
        benchmark::DoNotOptimize(client.deviceCount());
    }
    state.SetItemsProcessed(state.iterations() * units);
}
BENCHMARK(FillEmptyTable)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
