// SPDX-License-Identifier: Apache-2.0
#include "Responder.h"

#include <algorithm>
#include <array>

#include "Ipv4.h"
#include "SettingKeys.h"

namespace VornSim {
namespace {

constexpr std::size_t kMaxUdpPayload = 65507;
constexpr std::array<std::uint8_t, 4> kMagic = {0x3A, 0x62, 0x7F, 0x3D};

void putLittleEndian16(Vorn::Bytes& bytes, std::size_t offset, std::size_t value)
{
    bytes[offset] = static_cast<std::uint8_t>(value & 0xFF);
    bytes[offset + 1] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
}

std::uint16_t sequenceOf(const Vorn::Bytes& request)
{
    return static_cast<std::uint16_t>(request[14] | (request[15] << 8));
}

bool reaches(const Unit& unit, const std::string& dstIp, bool addressedToAUnit)
{
    return !addressedToAUnit || unit.ip == dstIp;
}

void applyWrite(Unit& unit, const Vorn::Config& settings)
{
    if (unit.faults.ignoreWrites)
        return;
    for (const auto& [key, value] : settings) {
        if (key != unit.faults.keepKey)
            unit.config[key] = value;
    }
    // The unit moves only to an address it can use; other text is stored as sent.
    const auto moved = settings.find(SettingKeys::kIPAddress);
    if (moved != settings.end() && unit.faults.keepKey != SettingKeys::kIPAddress) {
        if (auto address = Settings::canonicalIpv4(moved->second))
            unit.ip = std::move(*address);
    }
}

}  // namespace

Vorn::Bytes reportPacket(const Unit& unit, std::uint16_t seq)
{
    Vorn::Bytes packet(Vorn::kHeaderSize, 0);
    std::copy(kMagic.begin(), kMagic.end(), packet.begin());
    const auto address = Settings::Ipv4::parse(unit.faults.reportIp.value_or(unit.ip)).value_or(Settings::Ipv4()).value();
    for (int i = 0; i < 4; ++i)
        packet[4 + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(address >> (8 * i));
    packet[8] = 0x00;
    packet[9] = 0x01;
    packet[10] = 0x01;
    packet[11] = unit.faults.cmd.value_or(Vorn::kCmdReport);
    putLittleEndian16(packet, 14, seq);
    for (const auto& [key, value] : unit.config) {
        const auto lineSize = key.size() + 1 + value.size() + 1;
        if (packet.size() + lineSize + 1 > kMaxUdpPayload)
            continue;
        packet.insert(packet.end(), key.begin(), key.end());
        packet.push_back(':');
        packet.insert(packet.end(), value.begin(), value.end());
        packet.push_back('\n');
    }
    packet.push_back(0x00);
    putLittleEndian16(packet, 12, packet.size());
    return packet;
}

std::vector<Outgoing> respond(std::vector<Unit>& units, const Datagram& datagram, SimDice& dice)
{
    const auto request = Vorn::parse(datagram.bytes);
    if (!request)
        return {};
    const bool addressedToAUnit =
        std::any_of(units.begin(), units.end(), [&](const Unit& u) { return u.ip == datagram.dstIp; });
    std::vector<Outgoing> replies;
    if (request->cmd == Vorn::kCmdDiscover) {
        const auto seq = sequenceOf(datagram.bytes);
        for (const auto& unit : units) {
            if (!reaches(unit, datagram.dstIp, addressedToAUnit) || dice.drops(unit.faults.drop) || unit.faults.silent)
                continue;
            replies.push_back(Outgoing{reportPacket(unit, seq), unit.ip, datagram.srcIp, unit.faults.delay});
        }
        dice.shuffle(replies);
    } else if (request->cmd == Vorn::kCmdWrite && addressedToAUnit) {
        for (auto& unit : units) {
            if (unit.ip == datagram.dstIp && !dice.drops(unit.faults.drop))
                applyWrite(unit, request->config);
        }
    }
    return replies;
}

}  // namespace VornSim
