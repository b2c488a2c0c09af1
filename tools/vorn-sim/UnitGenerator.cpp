// SPDX-License-Identifier: Apache-2.0
#include "UnitGenerator.h"

#include <array>
#include <random>
#include <set>
#include <string>

#include "HostAddresses.h"
#include "SettingKeys.h"
#include "SwitcherCatalog.h"

namespace VornSim {
namespace {

constexpr std::string_view kSerialAlphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::size_t kSerialLength = 12;
constexpr std::array<std::string_view, 4> kVersions = {"2.4.1", "2.4.1", "2.3.7", "2.5.0"};

// Draws by modulo rather than std::uniform_int_distribution, whose results
// differ between standard libraries; the small bias does not matter here.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    std::int64_t between(std::int64_t low, std::int64_t high)
    {
        return low + static_cast<std::int64_t>(engine_() % static_cast<std::uint64_t>(high - low + 1));
    }
    bool chance(int percent) { return between(1, 100) <= percent; }

private:
    std::mt19937_64 engine_;
};

std::string number(std::int64_t value)
{
    return std::to_string(value);
}

std::string uniqueSerial(Dice& dice, std::set<std::string>& taken)
{
    std::string serial;
    do {
        serial.clear();
        for (std::size_t i = 0; i < kSerialLength; ++i)
            serial += kSerialAlphabet[static_cast<std::size_t>(
                dice.between(0, static_cast<std::int64_t>(kSerialAlphabet.size()) - 1))];
    } while (!taken.insert(serial).second);
    return serial;
}

void putSwitcher(Vorn::Config& config, Dice& dice)
{
    std::int64_t band = dice.between(0, 16);
    std::int64_t model = dice.between(0, 15);
    if (dice.chance(85)) {
        const auto& preset = SwitcherCatalog::presets[static_cast<std::size_t>(
            dice.between(0, static_cast<std::int64_t>(SwitcherCatalog::presets.size()) - 1))];
        band = preset.band;
        model = preset.model;
    }
    config[SettingKeys::kSwitcherBand] = number(band);
    config[SettingKeys::kSwitcherModel] = number(model);
}

Vorn::Config makeConfig(Settings::Ipv4 address, Dice& dice, std::set<std::string>& serials)
{
    // Every unit sits in a /16 whose infrastructure lives at the .0.x hosts.
    const std::uint32_t network = address.value() & 0xFFFF0000u;
    const auto text = [](std::uint32_t value) { return Settings::Ipv4(value).toString(); };
    Vorn::Config config;
    config[SettingKeys::kIPAddress] = address.toString();
    config[SettingKeys::kNetmask] = "255.255.0.0";
    config[SettingKeys::kGateway] = text(network | 1);
    config[SettingKeys::kManagerIp] = text(network | 10);
    config[SettingKeys::kAtemIp] = text(network | static_cast<std::uint32_t>(dice.between(20, 60)));
    config[SettingKeys::kAtemPort] = dice.chance(90) ? "9910" : number(dice.between(9000, 9999));
    config[SettingKeys::kChannel] = number(dice.between(1, 150));
    config[SettingKeys::kCallMagic] = number(dice.between(1000, 9999));
    config[SettingKeys::kScenarioType] = number(dice.between(0, 4));
    config[SettingKeys::kSilenceThreshold] = number(dice.between(10, 60));
    config[SettingKeys::kSilenceSuppress] = number(dice.between(0, 5));
    config[SettingKeys::kTallyType] = number(dice.between(0, 9));
    config[SettingKeys::kTallyGpioType] = number(dice.between(0, 9));
    config[SettingKeys::kAtemExtTally] = number(dice.between(0, 3));
    putSwitcher(config, dice);
    config[SettingKeys::kWire2Enable] = dice.chance(30) ? "1" : "0";
    config[SettingKeys::kSerial] = uniqueSerial(dice, serials);
    config[SettingKeys::kVersion] = std::string(kVersions[static_cast<std::size_t>(dice.between(0, kVersions.size() - 1))]);
    return config;
}

}  // namespace

Result<std::vector<Unit>> generateUnits(std::string_view firstIp, int count, std::uint64_t seed)
{
    const auto first = Settings::Ipv4::parse(firstIp);
    if (!first)
        return Error{"'" + std::string(firstIp) + "' is not an IPv4 address"};
    auto address = firstHostAddressFrom(*first);
    Dice dice(seed);
    std::set<std::string> serials;
    std::vector<Unit> units;
    units.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        if (!address)
            return Error{"not enough addresses after " + std::string(firstIp) + " for " + number(count) + " units"};
        units.push_back(Unit{address->toString(), makeConfig(*address, dice, serials), {}});
        address = nextHostAddress(*address);
    }
    return units;
}

}  // namespace VornSim
