// SPDX-License-Identifier: Apache-2.0
#include "VornProtocol.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory_resource>
#include <vector>

#include "Ipv4.h"

namespace Vorn {
namespace {

constexpr std::array<std::uint8_t, 4> kMagic = {0x3A, 0x62, 0x7F, 0x3D};
constexpr Settings::Ipv4 kDiscoverGroup = Settings::Ipv4::fromOctets({224, 0, 0, 200});
constexpr Settings::Ipv4 kWriteGroup = Settings::Ipv4::fromOctets({224, 0, 0, 100});

void putHeader(Bytes& out, Settings::Ipv4 group, std::uint8_t flag, std::uint8_t cmd,
               std::size_t total, std::uint16_t seq)
{
    const auto groupBytes = group.octets();
    out.insert(out.end(), kMagic.begin(), kMagic.end());
    out.insert(out.end(), groupBytes.begin(), groupBytes.end());
    out.push_back(0x00);
    out.push_back(flag);
    out.push_back(0x01);
    out.push_back(cmd);
    out.push_back(static_cast<std::uint8_t>(total & 0xFF));
    out.push_back(static_cast<std::uint8_t>(total >> 8));
    out.push_back(static_cast<std::uint8_t>(seq & 0xFF));
    out.push_back(static_cast<std::uint8_t>(seq >> 8));
    out.insert(out.end(), 4, 0x00);
}

void appendReplacementCharacter(std::string& out)
{
    out.append("\xEF\xBF\xBD");
}

bool isContinuation(std::uint8_t b)
{
    return (b & 0xC0) == 0x80;
}

// One step through UTF-8 text at `i`: how many bytes it covers and whether they
// form a valid sequence. An invalid step covers the maximal invalid subpart,
// which the Unicode standard recommends replacing with one U+FFFD.
struct Utf8Step {
    std::size_t length;
    bool valid;
};

Utf8Step nextUtf8Step(std::span<const std::uint8_t> bytes, std::size_t i)
{
    const std::uint8_t lead = bytes[i];
    if (lead < 0x80)
        return {1, true};
    std::size_t length = 0;
    std::uint8_t secondLow = 0x80;
    std::uint8_t secondHigh = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0)
            secondLow = 0xA0;
        else if (lead == 0xED)
            secondHigh = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0)
            secondLow = 0x90;
        else if (lead == 0xF4)
            secondHigh = 0x8F;
    } else {
        return {1, false};
    }
    for (std::size_t consumed = 1; consumed < length; ++consumed) {
        if (i + consumed >= bytes.size())
            return {consumed, false};
        const std::uint8_t b = bytes[i + consumed];
        const bool ok = consumed == 1 ? (b >= secondLow && b <= secondHigh) : isContinuation(b);
        if (!ok)
            return {consumed, false};
    }
    return {length, true};
}

bool isValidUtf8(std::span<const std::uint8_t> bytes)
{
    for (std::size_t i = 0; i < bytes.size();) {
        // Reports are almost all ASCII: eight such bytes are skipped at once.
        std::uint64_t word;
        if (i + sizeof word <= bytes.size()) {
            std::memcpy(&word, bytes.data() + i, sizeof word);
            if ((word & 0x8080808080808080u) == 0) {
                i += sizeof word;
                continue;
            }
        }
        if (bytes[i] < 0x80) {
            ++i;
            continue;
        }
        const Utf8Step step = nextUtf8Step(bytes, i);
        if (!step.valid)
            return false;
        i += step.length;
    }
    return true;
}

// A typical report's lines fit on the stack; a longer body takes the heap.
constexpr std::size_t kTypicalReportLines = 32;

// Takes one body line: key before the first ':', value after it; a line
// without ':' is skipped.
void addLine(std::pmr::vector<Config::TextPair>& entries, std::string_view line)
{
    const auto colon = line.find(':');
    if (colon != std::string_view::npos)
        entries.emplace_back(line.substr(0, colon), line.substr(colon + 1));
}

}  // namespace

namespace detail {

std::string decodeUtf8Lossy(std::span<const std::uint8_t> bytes)
{
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const Utf8Step step = nextUtf8Step(bytes, i);
        if (step.valid)
            out.append(reinterpret_cast<const char*>(bytes.data() + i), step.length);
        else
            appendReplacementCharacter(out);
        i += step.length;
    }
    return out;
}

}  // namespace detail

Bytes discoverPacket(std::uint16_t seq)
{
    Bytes out;
    out.reserve(kHeaderSize);
    putHeader(out, kDiscoverGroup, 0x01, kCmdDiscover, kHeaderSize, seq);
    return out;
}

Bytes writePacket(std::uint16_t seq, const Config& config)
{
    std::size_t bodySize = 0;
    for (const auto key : kWriteKeys) {
        const auto it = config.find(key);
        if (it != config.end() && !it->second.empty())
            bodySize += key.size() + 1 + it->second.size() + 1;
    }
    if (bodySize == 0)
        bodySize = 1;  // the lone LF of an empty body
    bodySize += 1;     // the closing NUL
    const std::size_t total = kHeaderSize + bodySize;
    if (total > 0xFFFF) {
        std::fprintf(stderr, "Vorn::writePacket: datagram of %zu bytes exceeds 65535\n", total);
        std::abort();
    }

    Bytes out;
    out.reserve(total);
    putHeader(out, kWriteGroup, 0x00, kCmdWrite, total, seq);
    bool anyLine = false;
    for (const auto key : kWriteKeys) {
        const auto it = config.find(key);
        if (it == config.end() || it->second.empty())
            continue;
        out.insert(out.end(), key.begin(), key.end());
        out.push_back(':');
        out.insert(out.end(), it->second.begin(), it->second.end());
        out.push_back('\n');
        anyLine = true;
    }
    if (!anyLine)
        out.push_back('\n');
    out.push_back(0x00);
    return out;
}

std::optional<Reply> parse(std::span<const std::uint8_t> datagram)
{
    if (datagram.size() < kHeaderSize)
        return std::nullopt;
    for (std::size_t i = 0; i < kMagic.size(); ++i) {
        if (datagram[i] != kMagic[i])
            return std::nullopt;
    }

    Reply reply;
    reply.cmd = datagram[11];
    // The unit's address sits last octet first.
    reply.deviceIp = Settings::Ipv4::fromOctets({datagram[7], datagram[6], datagram[5], datagram[4]}).toString();

    const std::size_t declared = datagram[12] | (static_cast<std::size_t>(datagram[13]) << 8);
    const std::size_t bodyEnd = declared > kHeaderSize ? std::min(declared, datagram.size()) : datagram.size();
    // Valid text (the normal case) is read in place; only broken text is copied.
    const auto bodyBytes = datagram.subspan(kHeaderSize, bodyEnd - kHeaderSize);
    std::string repaired;
    std::string_view body(reinterpret_cast<const char*>(bodyBytes.data()), bodyBytes.size());
    if (!isValidUtf8(bodyBytes)) {
        repaired = detail::decodeUtf8Lossy(bodyBytes);
        body = repaired;
    }

    // Lines end at LF, except that CR LF is one character and does not split.
    // A key that comes again replaces the value before.
    // The lines' views live on the stack unless the body is unusually long.
    std::array<std::byte, kTypicalReportLines * sizeof(Config::TextPair)> stack;
    std::pmr::monotonic_buffer_resource arena(stack.data(), stack.size());
    std::pmr::vector<Config::TextPair> entries(&arena);
    entries.reserve(kTypicalReportLines);
    std::size_t start = 0;
    for (std::size_t i = body.find('\n'); i != std::string_view::npos; i = body.find('\n', i + 1)) {
        if (i > 0 && body[i - 1] == '\r')
            continue;
        if (i > start)
            addLine(entries, body.substr(start, i - start));
        start = i + 1;
    }
    if (start < body.size())
        addLine(entries, body.substr(start));
    reply.config = Config::lastValueWins(entries);
    return reply;
}

}  // namespace Vorn
