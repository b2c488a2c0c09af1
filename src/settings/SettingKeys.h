// SPDX-License-Identifier: Apache-2.0
// The names of a unit's configuration keys, spelled as the unit spells them,
// and the fixed key lists built from them. Every other file names keys
// through this header.
#pragma once

#include <array>
#include <string_view>

namespace SettingKeys {

inline constexpr std::string_view kIPAddress = "IPAddress";
inline constexpr std::string_view kNetmask = "Netmask";
inline constexpr std::string_view kGateway = "Gateway";
inline constexpr std::string_view kManagerIp = "ManagerIp";
inline constexpr std::string_view kAtemIp = "AtemIp";
inline constexpr std::string_view kAtemPort = "AtemPort";
inline constexpr std::string_view kChannel = "Channel";
inline constexpr std::string_view kCallMagic = "CallMagic";
inline constexpr std::string_view kScenarioType = "ScenarioType";
inline constexpr std::string_view kSilenceThreshold = "SilenceThreshold";
inline constexpr std::string_view kSilenceSuppress = "SilenceSuppress";
inline constexpr std::string_view kTallyType = "TallyType";
inline constexpr std::string_view kTallyGpioType = "TallyGpioType";
inline constexpr std::string_view kAtemExtTally = "AtemExtTally";
inline constexpr std::string_view kSwitcherBand = "SwitcherBand";
inline constexpr std::string_view kSwitcherModel = "SwitcherModel";
inline constexpr std::string_view kWire2Enable = "Wire2Enable";
inline constexpr std::string_view kSerial = "Serial";
inline constexpr std::string_view kVersion = "Version";

// The only keys a write carries, in the order they go on the wire.
inline constexpr std::array<std::string_view, 18> kWriteKeys = {
    kIPAddress,    kNetmask,         kGateway,         kManagerIp,     kAtemIp,        kAtemPort,
    kChannel,      kCallMagic,       kScenarioType,    kSilenceThreshold, kSilenceSuppress, kTallyType,
    kTallyGpioType, kAtemExtTally,   kSwitcherBand,    kSwitcherModel, kWire2Enable,   kSerial,
};

// The keys of the Details grid, in the order it shows them.
inline constexpr std::array<std::string_view, 15> kDetailKeys = {
    kIPAddress, kNetmask,   kGateway,   kManagerIp,     kAtemIp,       kAtemPort, kSwitcherBand, kSwitcherModel,
    kChannel,   kCallMagic, kTallyType, kTallyGpioType, kAtemExtTally, kSerial,   kVersion,
};

}  // namespace SettingKeys
