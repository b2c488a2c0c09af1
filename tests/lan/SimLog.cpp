// SPDX-License-Identifier: Apache-2.0
#include "SimLog.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <fstream>
#include <stdexcept>

namespace LanTest {
namespace {

std::vector<std::uint8_t> bytesFromHex(const std::string& hex)
{
    if (hex.size() % 2 != 0)
        throw std::runtime_error("odd number of hex digits: " + hex);
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        std::uint8_t value = 0;
        const char* pair = hex.data() + i;
        const auto [end, error] = std::from_chars(pair, pair + 2, value, 16);
        if (error != std::errc() || end != pair + 2)
            throw std::runtime_error("not hex: " + hex);
        bytes.push_back(value);
    }
    return bytes;
}

CapturedDatagram datagramFromLine(const std::string& line)
{
    try {
        const auto record = nlohmann::json::parse(line);
        return {record.at("src").get<std::string>(), record.at("sport").get<std::uint16_t>(),
                record.at("dst").get<std::string>(), bytesFromHex(record.at("bytes").get<std::string>())};
    } catch (const std::exception& error) {
        throw std::runtime_error("bad simulator log line '" + line + "': " + error.what());
    }
}

}  // namespace

std::vector<CapturedDatagram> readSimLog(const std::filesystem::path& path)
{
    std::vector<CapturedDatagram> datagrams;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty())
            datagrams.push_back(datagramFromLine(line));
    }
    return datagrams;
}

}  // namespace LanTest
