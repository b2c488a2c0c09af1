// SPDX-License-Identifier: Apache-2.0
#include "SelfTest.h"

#include <chrono>
#include <map>
#include <mutex>
#include <thread>

#include "DecimalInt.h"
#include "PacedQueue.h"
#include "SettingKeys.h"
#include "SwitcherCatalog.h"
#include "VornSocket.h"

namespace VornLink {
namespace {

constexpr int kCycles = 8;
constexpr auto kCycle = std::chrono::milliseconds(300);

std::string valueOrQuestionMark(const Vorn::Config& config, std::string_view key)
{
    const auto it = config.find(key);
    return it == config.end() ? std::string("?") : it->second;
}

std::int64_t switcherCode(const Vorn::Config& config, std::string_view key)
{
    const auto it = config.find(key);
    if (it == config.end())
        return -1;
    return Vorn::parseDecimal(it->second).value_or(-1);
}

}  // namespace

bool hasSelfTestFlag(std::span<const char* const> arguments)
{
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] != nullptr && std::string_view(arguments[i]) == kSelfTestFlag)
            return true;
    }
    return false;
}

std::string selfTestLine(const std::string& address, const Vorn::Config& config)
{
    using namespace SettingKeys;
    return "  " + address + "  ATEM=" + valueOrQuestionMark(config, kAtemIp) + ":" +
           valueOrQuestionMark(config, kAtemPort) + "  Switcher=" +
           Settings::english(SwitcherCatalog::label(switcherCode(config, kSwitcherBand), switcherCode(config, kSwitcherModel))) +
           "  Channel=" + valueOrQuestionMark(config, kChannel);
}

int runSelfTest(std::ostream& out, const SelfTestOptions& options)
{
    std::mutex lock;
    std::map<std::string, Vorn::Config> results;

    Vorn::VornSocket socket(options.port, options.broadcastAddress);
    socket.setOnPacket([&](Vorn::Bytes data, std::string /*sender*/) {
        auto reply = Vorn::parse(data);
        if (!reply || reply->cmd != Vorn::kCmdReport)
            return;
        std::lock_guard guard(lock);
        results[reply->deviceIp] = std::move(reply->config);
    });
    if (!socket.start()) {
        out << "selftest: cannot bind UDP 23457\n" << std::flush;
        return 1;
    }

    for (int seq = 1; seq <= kCycles; ++seq) {
        const auto cycleEnd = std::chrono::steady_clock::now() + kCycle;
        const auto packet = Vorn::discoverPacket(static_cast<std::uint16_t>(seq));
        socket.broadcast(packet);
        Vorn::PacedQueue unheard;
        {
            std::lock_guard guard(lock);
            for (const auto& address : options.remembered) {
                if (!results.contains(address))
                    unheard.add(address);
            }
        }
        while (!unheard.empty()) {
            const auto burstEnd = std::chrono::steady_clock::now() + Vorn::PacedQueue::kInterval;
            for (const auto& address : unheard.takeBurst())
                socket.send(packet, address);
            if (!unheard.empty())
                std::this_thread::sleep_until(burstEnd);
        }
        std::this_thread::sleep_until(cycleEnd);
    }

    std::map<std::string, Vorn::Config> snapshot;
    {
        std::lock_guard guard(lock);
        snapshot = results;
    }
    if (options.heard)
        options.heard(snapshot);
    out << "selftest: " << snapshot.size() << " device(s)\n";
    for (const auto& [address, config] : snapshot)
        out << selfTestLine(address, config) << '\n';
    out << std::flush;
    return 0;
}

}  // namespace VornLink
