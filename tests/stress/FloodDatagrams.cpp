// SPDX-License-Identifier: Apache-2.0
#include "FloodDatagrams.h"

#include <algorithm>

#include "Ipv4.h"

namespace Flood {
namespace {

constexpr std::size_t kLargestUdpPayload = 65507;

Vorn::Config typicalConfig(const std::string& address)
{
    return {
        {"IPAddress", address},       {"Netmask", "255.255.0.0"},   {"Gateway", "10.232.0.254"},
        {"ManagerIp", "10.231.0.1"},  {"AtemIp", "10.232.0.240"},   {"AtemPort", "9910"},
        {"Channel", "12"},            {"CallMagic", "studio-7731"}, {"ScenarioType", "1"},
        {"SilenceThreshold", "42"},   {"SilenceSuppress", "2"},     {"TallyType", "3"},
        {"TallyGpioType", "0"},       {"AtemExtTally", "1"},        {"SwitcherBand", "7"},
        {"SwitcherModel", "0"},       {"Wire2Enable", "1"},         {"Serial", "KT40021A9F3C"},
    };
}

void setLength(Vorn::Bytes& datagram, std::size_t length)
{
    datagram[12] = static_cast<std::uint8_t>(length & 0xFF);
    datagram[13] = static_cast<std::uint8_t>((length >> 8) & 0xFF);
}

// Header fields as a unit writes them: its address last octet first, the report command.
Vorn::Bytes asReport(Vorn::Bytes datagram, const std::string& address, std::uint8_t command = Vorn::kCmdReport)
{
    const auto octets = Settings::Ipv4::parse(address).value_or(Settings::Ipv4()).octets();
    std::reverse_copy(octets.begin(), octets.end(), datagram.begin() + 4);
    datagram[11] = command;
    return datagram;
}

}  // namespace

std::string_view kindName(Kind kind)
{
    switch (kind) {
    case Kind::Short: return "short";
    case Kind::WrongMagic: return "wrong_magic";
    case Kind::BadLength: return "bad_length";
    case Kind::InvalidUtf8: return "invalid_utf8";
    case Kind::Oversized: return "oversized";
    case Kind::ForeignCommand: return "foreign_command";
    }
    return "?";
}

std::string junkUnitAddress(int index)
{
    return "10.233.0." + std::to_string(index + 1);
}

Vorn::Bytes Generator::report(const std::string& unitAddress)
{
    return asReport(Vorn::writePacket(0, typicalConfig(unitAddress)), unitAddress);
}

Vorn::Bytes Generator::junk(Kind& kind)
{
    kind = kJunkKinds[below(kJunkKinds.size())];
    switch (kind) {
    case Kind::Short: return shortDatagram();
    case Kind::WrongMagic: return wrongMagic();
    case Kind::BadLength: return badLength();
    case Kind::InvalidUtf8: return invalidUtf8();
    case Kind::Oversized: return oversized();
    case Kind::ForeignCommand: return foreignCommand();
    }
    return {};
}

Vorn::Bytes Generator::shortDatagram()
{
    const Vorn::Bytes start = Vorn::discoverPacket(0);
    Vorn::Bytes datagram(below(Vorn::kHeaderSize));
    const bool magicFirst = below(2) == 0;
    for (std::size_t i = 0; i < datagram.size(); ++i)
        datagram[i] = magicFirst ? start[i] : byte();
    return datagram;
}

Vorn::Bytes Generator::wrongMagic()
{
    if (below(2) == 0) {
        Vorn::Bytes noise(Vorn::kHeaderSize + below(600));
        for (auto& b : noise)
            b = byte();
        if (noise[0] == 0x3A)  // never the magic's first byte, even by chance
            noise[0] = 0x3B;
        return noise;
    }
    Vorn::Bytes datagram = report(junkUnit());
    const std::size_t bit = below(32);
    datagram[bit / 8] ^= static_cast<std::uint8_t>(1u << (bit % 8));
    return datagram;
}

Vorn::Bytes Generator::badLength()
{
    Vorn::Bytes datagram = report(junkUnit());
    switch (below(5)) {
    case 0: setLength(datagram, 0); break;
    case 1: setLength(datagram, 1 + below(Vorn::kHeaderSize - 1)); break;
    case 2: setLength(datagram, datagram.size() + 1 + below(60000)); break;
    case 3: setLength(datagram, 0xFFFF); break;
    default: setLength(datagram, Vorn::kHeaderSize + below(datagram.size() - Vorn::kHeaderSize)); break;
    }
    return datagram;
}

Vorn::Bytes Generator::invalidUtf8()
{
    static constexpr std::array<std::string_view, 10> kBad = {
        "\x80",         "\xBF\xBF",     "\xC0\xAF",     "\xC3",         "\xE2\x82",
        "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFE\xFF", std::string_view("\x00", 1), "\r",
    };
    Vorn::Bytes datagram = asReport(Vorn::discoverPacket(0), junkUnit());
    const std::size_t lines = 1 + below(24);
    for (std::size_t line = 0; line < lines; ++line) {
        std::string text = "Key" + std::to_string(below(30));
        text += below(4) == 0 ? std::string(kBad[below(kBad.size())]) : std::string();
        text += ':';
        for (std::size_t piece = below(6); piece > 0; --piece)
            text += below(2) == 0 ? std::string(kBad[below(kBad.size())]) : std::string("v") + char('a' + below(26));
        text += '\n';
        datagram.insert(datagram.end(), text.begin(), text.end());
    }
    setLength(datagram, datagram.size());
    return datagram;
}

Vorn::Bytes Generator::oversized()
{
    const std::size_t size = below(16) == 0 ? kLargestUdpPayload : 2048 + below(7000);
    Vorn::Bytes datagram = report(junkUnit());
    while (datagram.size() < size) {
        const std::string line = "Filler" + std::to_string(datagram.size()) + ":" + std::string(40, 'x') + "\n";
        datagram.insert(datagram.end(), line.begin(), line.end());
    }
    datagram.resize(size);
    setLength(datagram, std::min<std::size_t>(size, 0xFFFF));
    return datagram;
}

Vorn::Bytes Generator::foreignCommand()
{
    std::uint8_t command = byte();
    if (command == Vorn::kCmdReport)
        command = Vorn::kCmdDiscover;
    const std::string address = std::to_string(byte()) + "." + std::to_string(byte()) + "." +
                                std::to_string(byte()) + "." + std::to_string(byte());
    return below(2) == 0 ? asReport(Vorn::discoverPacket(0), address, command)
                         : asReport(report(address), address, command);
}

}  // namespace Flood
