// SPDX-License-Identifier: Apache-2.0
// Feeds arbitrary datagrams to the decoder and checks what it promises:
// never crash, reject short or foreign input, and hand back only valid UTF-8.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "VornProtocol.h"

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

bool isValidUtf8Text(const std::string& text)
{
    const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    return Vorn::detail::decodeUtf8Lossy(bytes) == text;
}

// A body line ends at every LF that does not follow a CR.
bool onlyJoinedLineFeeds(const std::string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            return false;
    }
    return true;
}

std::string addressFromHeader(const std::uint8_t* data)
{
    return std::to_string(data[7]) + "." + std::to_string(data[6]) + "." + std::to_string(data[5]) + "." +
           std::to_string(data[4]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto datagram = std::span(data, size);
    const auto reply = Vorn::parse(datagram);
    const bool ours = size >= 20 && data[0] == 0x3A && data[1] == 0x62 && data[2] == 0x7F && data[3] == 0x3D;
    require(reply.has_value() == ours);
    if (!reply)
        return 0;
    require(reply->cmd == data[11]);
    require(reply->deviceIp == addressFromHeader(data));
    for (const auto& [key, value] : reply->config) {
        require(key.find(':') == std::string::npos);
        require(onlyJoinedLineFeeds(key) && onlyJoinedLineFeeds(value));
        require(isValidUtf8Text(key));
        require(isValidUtf8Text(value));
    }
    return 0;
}
