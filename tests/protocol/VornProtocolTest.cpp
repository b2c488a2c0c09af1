// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <random>

#include "LoopbackPeer.h"
#include "VornProtocol.h"

using Vorn::Bytes;
using Vorn::Config;

namespace {

Bytes header(std::array<std::uint8_t, 4> addressField, std::uint8_t cmd, std::uint16_t length)
{
    return {0x3A, 0x62, 0x7F, 0x3D, addressField[0], addressField[1], addressField[2], addressField[3],
            0x00, 0x01, 0x01, cmd, static_cast<std::uint8_t>(length & 0xFF), static_cast<std::uint8_t>(length >> 8),
            0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
}

Bytes withBody(Bytes datagram, std::string_view body)
{
    datagram.insert(datagram.end(), body.begin(), body.end());
    return datagram;
}

Bytes reportWithBody(std::string_view body, std::uint16_t length = 0)
{
    return withBody(header({1, 1, 168, 192}, Vorn::kCmdReport, length), body);
}

}  // namespace

// --- discover -----------------------------------------------------------

TEST(DiscoverPacket, SequenceOneMatchesReferenceBytes)
{
    const Bytes expected = {0x3A, 0x62, 0x7F, 0x3D, 0xE0, 0x00, 0x00, 0xC8, 0x00, 0x01,
                            0x01, 0xA3, 0x14, 0x00, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00};
    EXPECT_EQ(Vorn::discoverPacket(1), expected);
}

TEST(DiscoverPacket, SequenceIsWrittenLowByteFirst)
{
    const Bytes packet = Vorn::discoverPacket(0x1234);
    EXPECT_EQ(packet[14], 0x34);
    EXPECT_EQ(packet[15], 0x12);
}

TEST(DiscoverPacket, IsAlwaysTwentyBytes)
{
    for (std::uint32_t seq : {0u, 1u, 65535u})
        EXPECT_EQ(Vorn::discoverPacket(static_cast<std::uint16_t>(seq)).size(), 20u);
}

// --- write --------------------------------------------------------------

TEST(WritePacket, ReferenceExampleIsFortySevenBytes)
{
    const Config config = {{"Channel", "3"}, {"AtemIp", "10.0.0.9"}, {"Foo", "x"}, {"Band", ""}};
    Bytes expected = {0x3A, 0x62, 0x7F, 0x3D, 0xE0, 0x00, 0x00, 0x64, 0x00, 0x00,
                      0x01, 0xA0, 0x2F, 0x00, 0x05, 0x00, 0x00, 0x00, 0x00, 0x00};
    const std::string body = "AtemIp:10.0.0.9\nChannel:3\n";
    expected.insert(expected.end(), body.begin(), body.end());
    expected.push_back(0x00);
    const Bytes packet = Vorn::writePacket(5, config);
    EXPECT_EQ(packet.size(), 47u);
    EXPECT_EQ(packet, expected);
}

TEST(WritePacket, EmptyMapGivesLoneLineFeedAndNul)
{
    const Bytes packet = Vorn::writePacket(0, {});
    ASSERT_EQ(packet.size(), 22u);
    EXPECT_EQ(packet[12], 0x16);
    EXPECT_EQ(packet[13], 0x00);
    EXPECT_EQ(packet[20], 0x0A);
    EXPECT_EQ(packet[21], 0x00);
}

TEST(WritePacket, KeysFollowTheWireOrderWhateverTheMapOrder)
{
    Config config;
    for (auto key : Vorn::kWriteKeys)
        config.emplace(std::string(key), "v");
    const Bytes packet = Vorn::writePacket(1, config);
    std::string body(packet.begin() + 20, packet.end() - 1);
    std::string expected;
    for (auto key : Vorn::kWriteKeys)
        expected += std::string(key) + ":v\n";
    EXPECT_EQ(body, expected);
}

TEST(WritePacket, EmptyValuesAndUnknownKeysAreDropped)
{
    const Bytes packet = Vorn::writePacket(1, {{"Serial", ""}, {"Version", "2.0"}, {"channel", "3"}});
    EXPECT_EQ(packet.size(), 22u);
}

TEST(WritePacket, ValueWithLineFeedGoesOutUnchanged)
{
    const Bytes packet = Vorn::writePacket(1, {{"CallMagic", "a\nb"}});
    const std::string body(packet.begin() + 20, packet.end());
    EXPECT_EQ(body, std::string("CallMagic:a\nb\n\0", 15));
}

TEST(WritePacket, LengthFieldCountsHeaderAndEveryBodyByte)
{
    const Bytes packet = Vorn::writePacket(9, {{"Channel", "12"}, {"Serial", "ÄBC"}});
    EXPECT_EQ(packet[12] | (packet[13] << 8), static_cast<int>(packet.size()));
}

TEST(WritePacket, LargestFittingDatagramIsBuilt)
{
    // 20 header + "Serial:" (7) + value + LF + NUL = 65535
    const Bytes packet = Vorn::writePacket(1, {{"Serial", std::string(65535 - 29, 'x')}});
    EXPECT_EQ(packet.size(), 65535u);
    EXPECT_EQ(packet[12], 0xFF);
    EXPECT_EQ(packet[13], 0xFF);
}

TEST(WritePacketDeathTest, TotalOverSixtyFiveThousandFiveHundredThirtyFiveStopsTheProcess)
{
    const Config config = {{"Serial", std::string(65535 - 28, 'x')}};
    EXPECT_DEATH(Vorn::writePacket(1, config), "exceeds 65535");
}

// --- parse: rejection ---------------------------------------------------

TEST(Parse, EveryTruncatedLengthBelowTwentyGivesNothing)
{
    const Bytes full = Vorn::discoverPacket(1);
    for (std::size_t length = 0; length < 20; ++length)
        EXPECT_EQ(Vorn::parse(std::span(full.data(), length)), std::nullopt) << "length " << length;
}

TEST(Parse, NineteenByteReplyGivesNothing)
{
    const Bytes datagram = reportWithBody("");
    EXPECT_EQ(Vorn::parse(std::span(datagram.data(), 19)), std::nullopt);
}

TEST(Parse, AnySingleBitFlippedInTheMagicGivesNothing)
{
    const Bytes good = reportWithBody("Channel:3\n");
    for (int bit = 0; bit < 32; ++bit) {
        Bytes bad = good;
        bad[static_cast<std::size_t>(bit / 8)] ^= static_cast<std::uint8_t>(1u << (bit % 8));
        EXPECT_EQ(Vorn::parse(bad), std::nullopt) << "bit " << bit;
    }
}

// --- parse: header ------------------------------------------------------

TEST(Parse, TwentyBytesWithMagicGiveEmptyConfig)
{
    const auto reply = Vorn::parse(header({1, 1, 168, 192}, 0xA2, 20));
    ASSERT_TRUE(reply);
    EXPECT_TRUE(reply->config.empty());
    EXPECT_EQ(reply->cmd, 0xA2);
}

TEST(Parse, AddressFieldIsReadLastOctetFirst)
{
    const auto reply = Vorn::parse(header({0x01, 0x01, 0xA8, 0xC0}, 0xA2, 20));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->deviceIp, "192.168.1.1");
}

TEST(Parse, ZeroAddressBytesGiveZeroOctets)
{
    const auto reply = Vorn::parse(header({0, 0, 0, 0}, 0xA2, 20));
    EXPECT_EQ(reply->deviceIp, "0.0.0.0");
}

TEST(Parse, ForeignCommandCodesStillParse)
{
    const auto reply = Vorn::parse(header({4, 3, 2, 1}, 0x17, 20));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->cmd, 0x17);
}

TEST(Parse, HeaderBytesOtherThanMagicAddressCommandAndLengthAreIgnored)
{
    Bytes datagram = reportWithBody("Channel:3\n");
    for (std::size_t i : {8u, 9u, 10u, 14u, 15u, 16u, 17u, 18u, 19u})
        datagram[i] = 0xEE;
    const auto reply = Vorn::parse(datagram);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->config.at("Channel"), "3");
}

TEST(Parse, OwnDiscoverRequestReadsAsCommandA3FromTwoHundredDotZeroDotZeroDot224)
{
    const auto reply = Vorn::parse(Vorn::discoverPacket(77));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->cmd, Vorn::kCmdDiscover);
    EXPECT_EQ(reply->deviceIp, "200.0.0.224");
    EXPECT_TRUE(reply->config.empty());
}

// --- parse: length field ------------------------------------------------

namespace {
// 80 body bytes "A:0\nA:1\n..." so the decoded span is visible in the value.
Bytes hundredByteDatagram(std::uint16_t length)
{
    std::string body = "K:";
    while (body.size() < 80)
        body.push_back(static_cast<char>('a' + body.size() % 26));
    return withBody(header({1, 0, 0, 10}, 0xA2, length), body);
}
}  // namespace

TEST(Parse, LengthTwentyFiveOnHundredBytesDecodesOnlyFiveBodyBytes)
{
    const auto reply = Vorn::parse(hundredByteDatagram(25));
    EXPECT_EQ(reply->config.at("K"), "cde");
}

TEST(Parse, LengthBeyondDatagramDecodesToItsEnd)
{
    const auto reply = Vorn::parse(hundredByteDatagram(500));
    EXPECT_EQ(reply->config.at("K").size(), 78u);
}

TEST(Parse, LengthBelowHeaderSizeDecodesWholeDatagram)
{
    EXPECT_EQ(Vorn::parse(hundredByteDatagram(10))->config.at("K").size(), 78u);
    EXPECT_EQ(Vorn::parse(hundredByteDatagram(0))->config.at("K").size(), 78u);
    EXPECT_EQ(Vorn::parse(hundredByteDatagram(20))->config.at("K").size(), 78u);
}

// --- parse: body --------------------------------------------------------

TEST(Parse, FirstColonSplitsAndLinesWithoutColonAreIgnored)
{
    const auto reply = Vorn::parse(reportWithBody("Serial:A1:B2\n\nModel\nX:\n"));
    const Config expected = {{"Serial", "A1:B2"}, {"X", ""}};
    EXPECT_EQ(reply->config, expected);
}

TEST(Parse, NulRightAfterLastValueStaysInTheValue)
{
    const auto reply = Vorn::parse(reportWithBody(std::string_view("Channel:3\0", 10)));
    EXPECT_EQ(reply->config.at("Channel"), std::string("3\0", 2));
}

TEST(Parse, NulAfterFinalLineFeedIsALineWithoutColon)
{
    const auto reply = Vorn::parse(reportWithBody(std::string_view("Channel:3\n\0", 11)));
    const Config expected = {{"Channel", "3"}};
    EXPECT_EQ(reply->config, expected);
}

TEST(Parse, CarriageReturnLineFeedDoesNotSplit)
{
    const auto reply = Vorn::parse(reportWithBody("A:1\r\nB:2\n"));
    const Config expected = {{"A", "1\r\nB:2"}};
    EXPECT_EQ(reply->config, expected);
}

TEST(Parse, LoneCarriageReturnIsOrdinaryText)
{
    const auto reply = Vorn::parse(reportWithBody("A:1\r\nB:2\r\n"));
    EXPECT_EQ(reply->config.size(), 1u);
    EXPECT_EQ(reply->config.at("A"), "1\r\nB:2\r\n");
}

TEST(Parse, LaterLineWithSameKeyReplacesEarlierValue)
{
    const auto reply = Vorn::parse(reportWithBody("Channel:1\nChannel:2\n"));
    EXPECT_EQ(reply->config.at("Channel"), "2");
}

TEST(Parse, KeysAndValuesAreNotTrimmedAndEmptyKeyIsKept)
{
    const auto reply = Vorn::parse(reportWithBody(" Key : v \n:empty key\n"));
    const Config expected = {{" Key ", " v "}, {"", "empty key"}};
    EXPECT_EQ(reply->config, expected);
}

TEST(Parse, KeysAreCaseSensitive)
{
    const auto reply = Vorn::parse(reportWithBody("channel:1\nChannel:2\n"));
    EXPECT_EQ(reply->config.size(), 2u);
}

TEST(Parse, InvalidUtf8IsReplacedNotRejected)
{
    const auto reply = Vorn::parse(reportWithBody("Serial:A\xFF" "B\n"));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->config.at("Serial"), "A\xEF\xBF\xBD" "B");
}

TEST(Parse, ValidMultibyteUtf8IsKept)
{
    const auto reply = Vorn::parse(reportWithBody("Name:Ström · 演播室 🎬\n"));
    EXPECT_EQ(reply->config.at("Name"), "Ström · 演播室 🎬");
}

// --- UTF-8 repair -------------------------------------------------------

TEST(DecodeUtf8Lossy, EachMaximalInvalidSubpartBecomesOneReplacement)
{
    const std::string fffd = "\xEF\xBF\xBD";
    auto decode = [](std::string_view s) {
        return Vorn::detail::decodeUtf8Lossy(std::span(reinterpret_cast<const std::uint8_t*>(s.data()), s.size()));
    };
    EXPECT_EQ(decode("\xC0\xAF"), fffd + fffd);                  // overlong lead bytes
    EXPECT_EQ(decode("\xE0\x80\xAF"), fffd + fffd + fffd);       // overlong three-byte form
    EXPECT_EQ(decode("\xED\xA0\x80"), fffd + fffd + fffd);       // UTF-16 surrogate
    EXPECT_EQ(decode("\xF4\x90\x80\x80"), fffd + fffd + fffd + fffd);  // beyond U+10FFFF
    EXPECT_EQ(decode("\xE2\x82"), fffd);                         // truncated at the end
    EXPECT_EQ(decode("\xE2\x82" "A"), fffd + "A");               // truncated mid-text
    EXPECT_EQ(decode("\xF0\x9F\x8E"), fffd);                     // truncated four-byte form
    EXPECT_EQ(decode("\x80\xBF"), fffd + fffd);                  // stray continuations
    EXPECT_EQ(decode("\xF5"), fffd);                             // byte never used in UTF-8
}

// --- round trip ---------------------------------------------------------

TEST(RoundTrip, WritePacketParsesBackToItsNonEmptyWriteKeys)
{
    std::mt19937 random(20261120);
    const std::vector<std::string> alphabet = {"a", "X", "0", "9", " ", ".", ":", "-", "=", "#", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x8E\xAC"};
    for (int round = 0; round < 500; ++round) {
        Config config;
        for (auto key : Vorn::kWriteKeys) {
            if (random() % 4 == 0)
                continue;
            std::string value;
            const auto length = random() % 12;
            for (std::size_t i = 0; i < length; ++i)
                value += alphabet[random() % alphabet.size()];
            config.emplace(std::string(key), value);
        }
        config.emplace("NotWritten", "x");

        Config expected;
        for (auto key : Vorn::kWriteKeys) {
            auto it = config.find(key);
            if (it != config.end() && !it->second.empty())
                expected.insert(*it);
        }
        const auto seq = static_cast<std::uint16_t>(random());
        const auto reply = Vorn::parse(Vorn::writePacket(seq, config));
        ASSERT_TRUE(reply);
        EXPECT_EQ(reply->cmd, Vorn::kCmdWrite);
        EXPECT_EQ(reply->config, expected) << "round " << round;
    }
}

TEST(RoundTrip, ReportBuiltByTestKitParsesToItsConfig)
{
    const Config config = {{"AtemIp", "10.0.0.9"}, {"Serial", "KT4-00231"}, {"Version", "2.4.1"}};
    const auto reply = Vorn::parse(TestKit::reportDatagram("192.168.7.40", config));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->deviceIp, "192.168.7.40");
    EXPECT_EQ(reply->config, config);
}
