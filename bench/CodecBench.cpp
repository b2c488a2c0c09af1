// SPDX-License-Identifier: Apache-2.0
// Codec cost per datagram: decoding a realistic 18-key configuration report
// and encoding an 18-key write.
#include <benchmark/benchmark.h>

#include "VornProtocol.h"

namespace {

Vorn::Config realisticConfig()
{
    return {
        {"IPAddress", "192.168.10.41"}, {"Netmask", "255.255.255.0"},  {"Gateway", "192.168.10.1"},
        {"ManagerIp", "192.168.10.5"},  {"AtemIp", "192.168.10.240"},  {"AtemPort", "9910"},
        {"Channel", "37"},              {"CallMagic", "studioB-7731"}, {"ScenarioType", "1"},
        {"SilenceThreshold", "42"},     {"SilenceSuppress", "2"},      {"TallyType", "3"},
        {"TallyGpioType", "0"},         {"AtemExtTally", "1"},         {"SwitcherBand", "7"},
        {"SwitcherModel", "0"},         {"Wire2Enable", "1"},          {"Serial", "KT40021A9F3C"},
    };
}

// A report as a unit sends it: its address last octet first, then the lines.
Vorn::Bytes realisticReport()
{
    Vorn::Bytes datagram = Vorn::writePacket(1, realisticConfig());
    datagram[4] = 41;
    datagram[5] = 10;
    datagram[6] = 168;
    datagram[7] = 192;
    datagram[11] = Vorn::kCmdReport;
    return datagram;
}

void BM_ParseReport18Keys(benchmark::State& state)
{
    const Vorn::Bytes datagram = realisticReport();
    for (auto _ : state) {
        auto reply = Vorn::parse(datagram);
        benchmark::DoNotOptimize(reply);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * datagram.size()));
}
BENCHMARK(BM_ParseReport18Keys);

void BM_WritePacket18Keys(benchmark::State& state)
{
    const Vorn::Config config = realisticConfig();
    std::uint16_t seq = 0;
    for (auto _ : state) {
        auto datagram = Vorn::writePacket(++seq, config);
        benchmark::DoNotOptimize(datagram);
    }
}
BENCHMARK(BM_WritePacket18Keys);

void BM_DiscoverPacket(benchmark::State& state)
{
    std::uint16_t seq = 0;
    for (auto _ : state) {
        auto datagram = Vorn::discoverPacket(++seq);
        benchmark::DoNotOptimize(datagram);
    }
}
BENCHMARK(BM_DiscoverPacket);

}  // namespace
