// SPDX-License-Identifier: Apache-2.0
#include "Responder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "UnitGenerator.h"

namespace VornSim {
namespace {

const Vorn::Config kConfig = {{"IPAddress", "10.232.1.2"}, {"Channel", "7"}, {"Serial", "ABCDEF123456"}};

Datagram discoverTo(std::string dst, std::uint16_t seq = 1)
{
    return Datagram{Vorn::discoverPacket(seq), "10.232.0.50", 50123, std::move(dst)};
}

Datagram writeTo(std::string dst, const Vorn::Config& settings)
{
    return Datagram{Vorn::writePacket(9, settings), "10.232.0.50", 50123, std::move(dst)};
}

std::vector<Unit> twoUnits()
{
    return {Unit{"10.232.1.2", kConfig, {}}, Unit{"10.232.1.3", {{"Channel", "9"}}, {}}};
}

TEST(Responder, ReportHeaderCarriesTheAddressLastOctetFirst)
{
    const auto packet = reportPacket(Unit{"10.232.1.2", kConfig, {}}, 0x1234);
    ASSERT_GE(packet.size(), 20u);
    const Vorn::Bytes header(packet.begin(), packet.begin() + 20);
    const std::size_t length = packet.size();
    EXPECT_EQ(header, (Vorn::Bytes{0x3A, 0x62, 0x7F, 0x3D, 2, 1, 232, 10, 0x00, 0x01, 0x01, 0xA2,
                                   static_cast<std::uint8_t>(length & 0xFF), static_cast<std::uint8_t>(length >> 8),
                                   0x34, 0x12, 0, 0, 0, 0}));
}

TEST(Responder, ReportBodyIsKeyValueLinesEndedByNul)
{
    const auto packet = reportPacket(Unit{"10.0.0.1", {{"A", "1"}, {"B", "x:y"}}, {}}, 1);
    const std::string body(packet.begin() + 20, packet.end());
    EXPECT_EQ(body, std::string("A:1\nB:x:y\n") + '\0');
    EXPECT_EQ(packet[12], packet.size());
}

TEST(Responder, ReportParsesBackToTheUnitsConfiguration)
{
    const auto reply = Vorn::parse(reportPacket(Unit{"10.232.1.2", kConfig, {}}, 5));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->deviceIp, "10.232.1.2");
    EXPECT_EQ(reply->cmd, Vorn::kCmdReport);
    EXPECT_EQ(reply->config, kConfig);
}

TEST(Responder, OversizedConfigurationIsCutToOneDatagram)
{
    Vorn::Config huge;
    for (int i = 0; i < 10; ++i)
        huge["Key" + std::to_string(i)] = std::string(10000, 'x');
    const auto packet = reportPacket(Unit{"10.0.0.1", huge, {}}, 1);
    EXPECT_LE(packet.size(), 65507u);
    EXPECT_EQ(Vorn::parse(packet)->config.size(), 6u);
}

TEST(Responder, BroadcastDiscoverReachesEveryUnitAndEchoesTheSequence)
{
    auto units = twoUnits();
    SimDice dice(1);
    const auto replies = respond(units, discoverTo("255.255.255.255", 0xBEEF), dice);
    ASSERT_EQ(replies.size(), 2u);
    for (const auto& unit : units) {
        const auto reply = std::find_if(replies.begin(), replies.end(), [&](const auto& r) { return r.fromIp == unit.ip; });
        ASSERT_NE(reply, replies.end()) << unit.ip;
        EXPECT_EQ(reply->toIp, "10.232.0.50");
        EXPECT_EQ(reply->delay, std::chrono::milliseconds(0));
        EXPECT_EQ(reply->bytes, reportPacket(unit, 0xBEEF));
        EXPECT_EQ(reply->bytes[14], 0xEF);
        EXPECT_EQ(reply->bytes[15], 0xBE);
    }
}

TEST(Responder, DiscoverToAnAddressTwoUnitsShareGetsAReportFromEach)
{
    std::vector<Unit> units{Unit{"10.232.1.2", kConfig, {}}, Unit{"10.232.1.2", {{"Serial", "KT4-DUPL01"}}, {}},
                            Unit{"10.232.1.3", {{"Channel", "9"}}, {}}};
    SimDice dice(1);
    const auto replies = respond(units, discoverTo("10.232.1.2"), dice);
    ASSERT_EQ(replies.size(), 2u);
    std::vector<std::string> serials;
    for (const auto& reply : replies) {
        EXPECT_EQ(reply.fromIp, "10.232.1.2");
        serials.push_back(Vorn::parse(reply.bytes)->config.at("Serial"));
    }
    std::sort(serials.begin(), serials.end());
    EXPECT_EQ(serials, (std::vector<std::string>{"ABCDEF123456", "KT4-DUPL01"}));
}

namespace {

std::vector<std::string> senders(const std::vector<Outgoing>& replies)
{
    std::vector<std::string> addresses;
    for (const auto& reply : replies)
        addresses.push_back(reply.fromIp);
    return addresses;
}

}  // namespace

TEST(Responder, EachBroadcastDiscoverGetsItsRepliesInAFreshOrderThatTheSeedRepeats)
{
    auto units = std::get<std::vector<Unit>>(generateUnits("10.232.1.1", 50, 1));
    SimDice dice(7);
    const auto first = senders(respond(units, discoverTo("255.255.255.255"), dice));
    const auto second = senders(respond(units, discoverTo("255.255.255.255"), dice));
    ASSERT_EQ(first.size(), 50u);
    EXPECT_NE(first, second);
    auto sortedFirst = first;
    auto sortedSecond = second;
    std::sort(sortedFirst.begin(), sortedFirst.end());
    std::sort(sortedSecond.begin(), sortedSecond.end());
    EXPECT_EQ(sortedFirst, sortedSecond);

    SimDice again(7);
    EXPECT_EQ(senders(respond(units, discoverTo("255.255.255.255"), again)), first);
}

TEST(Responder, TheReplyOrderLeavesTheDropDecisionsAlone)
{
    auto units = std::get<std::vector<Unit>>(generateUnits("10.232.1.1", 50, 1));
    for (auto& unit : units)
        unit.faults.drop = 0.5;
    SimDice shuffled(3);
    SimDice reference(3);
    auto answered = senders(respond(units, discoverTo("255.255.255.255"), shuffled));
    std::vector<std::string> expected;
    for (const auto& unit : units) {
        if (!reference.drops(0.5))
            expected.push_back(unit.ip);
    }
    std::sort(answered.begin(), answered.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(answered, expected);
}

TEST(Responder, DiscoverToTheListenAddressReachesEveryUnit)
{
    auto units = twoUnits();
    SimDice dice(1);
    EXPECT_EQ(respond(units, discoverTo("127.0.0.2"), dice).size(), 2u);
}

TEST(Responder, DiscoverToAUnitsAddressReachesOnlyThatUnit)
{
    auto units = twoUnits();
    SimDice dice(1);
    const auto replies = respond(units, discoverTo("10.232.1.3"), dice);
    ASSERT_EQ(replies.size(), 1u);
    EXPECT_EQ(Vorn::parse(replies[0].bytes)->deviceIp, "10.232.1.3");
}

TEST(Responder, ForeignDatagramsAndOtherCommandsGetNoReply)
{
    auto units = twoUnits();
    SimDice dice(1);
    EXPECT_TRUE(respond(units, Datagram{{1, 2, 3}, "10.0.0.9", 1, "255.255.255.255"}, dice).empty());
    EXPECT_TRUE(respond(units, Datagram{reportPacket(units[0], 1), "10.0.0.9", 1, "255.255.255.255"}, dice).empty());
    EXPECT_EQ(units, twoUnits());
}

TEST(Responder, WriteReplacesGivenKeysAndKeepsTheOthers)
{
    auto units = twoUnits();
    SimDice dice(1);
    EXPECT_TRUE(respond(units, writeTo("10.232.1.2", {{"Channel", "42"}, {"AtemIp", "10.0.0.9"}}), dice).empty());
    EXPECT_EQ(units[0].config, (Vorn::Config{{"IPAddress", "10.232.1.2"}, {"Channel", "42"}, {"AtemIp", "10.0.0.9"},
                                             {"Serial", "ABCDEF123456"}}));
    EXPECT_EQ(units[1], twoUnits()[1]);
}

TEST(Responder, WriteOfANewAddressMovesTheUnit)
{
    auto units = twoUnits();
    SimDice dice(1);
    respond(units, writeTo("10.232.1.2", {{"IPAddress", "10.232.9.9"}}), dice);
    EXPECT_EQ(units[0].ip, "10.232.9.9");
    EXPECT_EQ(units[0].config.at("IPAddress"), "10.232.9.9");

    const auto atNewAddress = respond(units, discoverTo("10.232.9.9"), dice);
    ASSERT_EQ(atNewAddress.size(), 1u);
    EXPECT_EQ(atNewAddress[0].fromIp, "10.232.9.9");
    EXPECT_EQ(Vorn::parse(atNewAddress[0].bytes)->deviceIp, "10.232.9.9");
    // The old address belongs to no unit now, so a discover to it reaches everyone.
    EXPECT_EQ(respond(units, discoverTo("10.232.1.2"), dice).size(), 2u);
}

TEST(Responder, WriteOfAMalformedAddressIsStoredButTheUnitStays)
{
    auto units = twoUnits();
    SimDice dice(1);
    respond(units, writeTo("10.232.1.2", {{"IPAddress", "10.232.9"}}), dice);
    EXPECT_EQ(units[0].ip, "10.232.1.2");
    EXPECT_EQ(units[0].config.at("IPAddress"), "10.232.9");
}

TEST(Responder, WriteToABroadcastOrUnknownAddressChangesNothing)
{
    auto units = twoUnits();
    SimDice dice(1);
    respond(units, writeTo("255.255.255.255", {{"Channel", "1"}}), dice);
    respond(units, writeTo("10.232.1.99", {{"Channel", "1"}}), dice);
    EXPECT_EQ(units, twoUnits());
}

TEST(Responder, ReportIpFaultChangesOnlyTheHeaderAddress)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.reportIp = "10.9.8.7"}}};
    SimDice dice(1);
    const auto replies = respond(units, discoverTo("255.255.255.255"), dice);
    ASSERT_EQ(replies.size(), 1u);
    EXPECT_EQ(replies[0].fromIp, "10.232.1.2");
    EXPECT_EQ(Vorn::parse(replies[0].bytes)->deviceIp, "10.9.8.7");
}

TEST(Responder, CmdFaultChangesTheReplyCommand)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.cmd = 0xA1}}};
    SimDice dice(1);
    const auto replies = respond(units, discoverTo("255.255.255.255"), dice);
    ASSERT_EQ(replies.size(), 1u);
    EXPECT_EQ(replies[0].bytes[11], 0xA1);
}

TEST(Responder, SilentUnitNeverAnswersButStillTakesWrites)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.silent = true}}};
    SimDice dice(1);
    EXPECT_TRUE(respond(units, discoverTo("255.255.255.255"), dice).empty());
    EXPECT_TRUE(respond(units, discoverTo("10.232.1.2"), dice).empty());
    respond(units, writeTo("10.232.1.2", {{"Channel", "3"}}), dice);
    EXPECT_EQ(units[0].config.at("Channel"), "3");
}

TEST(Responder, DelayFaultIsCarriedOnTheReply)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.delay = std::chrono::milliseconds(250)}}};
    SimDice dice(1);
    const auto replies = respond(units, discoverTo("255.255.255.255"), dice);
    ASSERT_EQ(replies.size(), 1u);
    EXPECT_EQ(replies[0].delay, std::chrono::milliseconds(250));
}

// How many of `requests` discovers a unit with drop = `fraction` answers.
int answered(double fraction, std::uint64_t seed, int requests, std::vector<bool>* pattern = nullptr)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.drop = fraction}}};
    SimDice dice(seed);
    int count = 0;
    for (int i = 0; i < requests; ++i) {
        const bool replied = !respond(units, discoverTo("255.255.255.255"), dice).empty();
        count += replied;
        if (pattern)
            pattern->push_back(replied);
    }
    return count;
}

TEST(Responder, DropFaultIgnoresAboutThatFractionOfRequests)
{
    const int count = answered(0.25, 1, 2000);
    EXPECT_GT(count, 1350);
    EXPECT_LT(count, 1650);
    EXPECT_EQ(answered(0.0, 1, 100), 100);
    EXPECT_EQ(answered(1.0, 1, 100), 0);
}

TEST(Responder, DropDecisionsRepeatForTheSameSeed)
{
    std::vector<bool> first, again, otherSeed;
    answered(0.5, 7, 200, &first);
    answered(0.5, 7, 200, &again);
    answered(0.5, 8, 200, &otherSeed);
    EXPECT_EQ(first, again);
    EXPECT_NE(first, otherSeed);
}

TEST(Responder, DroppedWriteIsNotApplied)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.drop = 1.0}}};
    SimDice dice(1);
    respond(units, writeTo("10.232.1.2", {{"Channel", "3"}}), dice);
    EXPECT_EQ(units[0].config, kConfig);
}

TEST(Responder, UnitIgnoringWritesAnswersWithItsOldValues)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.ignoreWrites = true}}};
    SimDice dice(1);
    respond(units, writeTo("10.232.1.2", {{"Channel", "3"}, {"IPAddress", "10.232.1.9"}}), dice);
    EXPECT_EQ(units[0].config, kConfig);
    EXPECT_EQ(units[0].ip, "10.232.1.2");
    EXPECT_EQ(respond(units, discoverTo("10.232.1.2"), dice).size(), 1u);
}

TEST(Responder, UnitKeepingOneKeyStoresTheRestOfAWrite)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.keepKey = "Channel"}}};
    SimDice dice(1);
    respond(units, writeTo("10.232.1.2", {{"Channel", "3"}, {"CallMagic", "99"}}), dice);
    EXPECT_EQ(units[0].config.at("Channel"), "7");
    EXPECT_EQ(units[0].config.at("CallMagic"), "99");
}

TEST(Responder, UnitKeepingItsAddressDoesNotMove)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {.keepKey = "IPAddress"}}};
    SimDice dice(1);
    respond(units, writeTo("10.232.1.2", {{"IPAddress", "10.232.1.9"}}), dice);
    EXPECT_EQ(units[0].ip, "10.232.1.2");
    EXPECT_EQ(units[0].config.at("IPAddress"), "10.232.1.2");
}

TEST(Responder, WrittenAddressWithLeadingZerosMovesTheUnitToItsPlainForm)
{
    std::vector<Unit> units = {Unit{"10.232.1.2", kConfig, {}}};
    SimDice dice(1);
    respond(units, writeTo("10.232.1.2", {{"IPAddress", "10.232.1.010"}}), dice);
    EXPECT_EQ(units[0].ip, "10.232.1.10");
    EXPECT_EQ(units[0].config.at("IPAddress"), "10.232.1.010");
}

}  // namespace
}  // namespace VornSim
