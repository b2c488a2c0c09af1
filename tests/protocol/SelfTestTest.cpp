// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <unistd.h>

#include <sstream>

#include "LoopbackPeer.h"
#include "SelfTest.h"

namespace {

VornLink::SelfTestOptions options(std::uint16_t port, const char* broadcastAddress,
                                  std::vector<std::string> remembered = {})
{
    VornLink::SelfTestOptions made;
    made.port = port;
    made.broadcastAddress = broadcastAddress;
    made.remembered = std::move(remembered);
    return made;
}

bool flagIn(std::vector<const char*> arguments)
{
    return VornLink::hasSelfTestFlag(arguments);
}

}  // namespace

TEST(SelfTestFlag, OnlyArgumentRunsTheSelfTest) { EXPECT_TRUE(flagIn({"vornlink", "--selftest"})); }
TEST(SelfTestFlag, FlagAmongOtherArgumentsRunsTheSelfTest)
{
    EXPECT_TRUE(flagIn({"vornlink", "-v", "--selftest", "extra"}));
    EXPECT_TRUE(flagIn({"vornlink", "x", "y", "--selftest"}));
}
TEST(SelfTestFlag, VariantsOfTheFlagDoNotRunIt)
{
    EXPECT_FALSE(flagIn({"vornlink", "--selftest=1"}));
    EXPECT_FALSE(flagIn({"vornlink", "-selftest"}));
    EXPECT_FALSE(flagIn({"vornlink", "--SELFTEST"}));
    EXPECT_FALSE(flagIn({"vornlink", "--selftes"}));
    EXPECT_FALSE(flagIn({"vornlink", " --selftest"}));
}
TEST(SelfTestFlag, ProgramNameIsNotAnArgument) { EXPECT_FALSE(flagIn({"--selftest"})); }
TEST(SelfTestFlag, NoArgumentsDoNotRunIt) { EXPECT_FALSE(flagIn({"vornlink"})); }

TEST(SelfTestLine, ShowsAtemAddressPortSwitcherAndChannel)
{
    const Vorn::Config config = {{"AtemIp", "192.168.1.240"}, {"AtemPort", "9910"}, {"Channel", "3"}};
    EXPECT_EQ(VornLink::selfTestLine("192.168.1.50", config),
              "  192.168.1.50  ATEM=192.168.1.240:9910  Switcher=Band -1 / Model -1  Channel=3");
}

TEST(SelfTestLine, MissingAtemPortShowsQuestionMark)
{
    const Vorn::Config config = {{"AtemIp", "10.0.0.5"}, {"Channel", "1"}, {"SwitcherBand", "7"},
                                 {"SwitcherModel", "0"}};
    EXPECT_EQ(VornLink::selfTestLine("10.0.0.2", config),
              "  10.0.0.2  ATEM=10.0.0.5:?  Switcher=Blackmagic ATEM  Channel=1");
}

TEST(SelfTestLine, AbsentKeysShowQuestionMarksAndEmptyValuesShowEmpty)
{
    EXPECT_EQ(VornLink::selfTestLine("10.0.0.3", {}),
              "  10.0.0.3  ATEM=?:?  Switcher=Band -1 / Model -1  Channel=?");
    const Vorn::Config empty = {{"AtemIp", ""}, {"AtemPort", ""}, {"Channel", ""}};
    EXPECT_EQ(VornLink::selfTestLine("10.0.0.3", empty),
              "  10.0.0.3  ATEM=:  Switcher=Band -1 / Model -1  Channel=");
}

TEST(SelfTestLine, SwitcherCodesAcceptSignsAndTreatGarbageAsMinusOne)
{
    EXPECT_EQ(VornLink::selfTestLine("a", {{"SwitcherBand", "+1"}, {"SwitcherModel", "15"}}),
              "  a  ATEM=?:?  Switcher=Datavideo SE-2200  Channel=?");
    EXPECT_EQ(VornLink::selfTestLine("a", {{"SwitcherBand", "-3"}, {"SwitcherModel", "x"}}),
              "  a  ATEM=?:?  Switcher=Band -3 / Model -1  Channel=?");
    EXPECT_EQ(VornLink::selfTestLine("a", {{"SwitcherBand", ""}, {"SwitcherModel", " 2"}}),
              "  a  ATEM=?:?  Switcher=Band -1 / Model -1  Channel=?");
    EXPECT_EQ(VornLink::selfTestLine("a", {{"SwitcherBand", "99999999999999999999"}, {"SwitcherModel", "0"}}),
              "  a  ATEM=?:?  Switcher=Band -1 / Model 0  Channel=?");
}

TEST(SelfTestRun, UnitsAnsweringEveryCycleAreListedOnceAndForeignCodesAreNotCounted)
{
    const auto port = TestKit::freeUdpPort();
    const Vorn::Config atem = {{"AtemIp", "192.168.1.240"}, {"AtemPort", "9910"}, {"Channel", "3"},
                               {"SwitcherBand", "7"}, {"SwitcherModel", "0"}};
    const Vorn::Config noPort = {{"AtemIp", "10.1.1.1"}, {"Channel", "12"}};
    TestKit::LoopbackPeer peer(port, [&](const TestKit::Received& request) {
        return std::vector<Vorn::Bytes>{
            TestKit::reportDatagram("192.168.1.50", atem),
            TestKit::reportDatagram("192.168.1.7", noPort),
            TestKit::reportDatagram("192.168.1.99", atem, 0xA1),
            request.data,  // the request itself, as if our own broadcast came back
        };
    });

    std::ostringstream out;
    EXPECT_EQ(VornLink::runSelfTest(out, options(port, TestKit::kPeerAddress)), 0);
    EXPECT_EQ(out.str(),
              "selftest: 2 device(s)\n"
              "  192.168.1.50  ATEM=192.168.1.240:9910  Switcher=Blackmagic ATEM  Channel=3\n"
              "  192.168.1.7  ATEM=10.1.1.1:?  Switcher=Band -1 / Model -1  Channel=12\n");

    const auto requests = peer.received();
    ASSERT_EQ(requests.size(), 8u);
    for (std::size_t i = 0; i < requests.size(); ++i)
        EXPECT_EQ(requests[i].data, Vorn::discoverPacket(static_cast<std::uint16_t>(i + 1)));
}

TEST(SelfTestRun, LaterReportFromTheSameAddressReplacesTheEarlierOne)
{
    const auto port = TestKit::freeUdpPort();
    int cycle = 0;
    TestKit::LoopbackPeer peer(port, [&](const TestKit::Received&) {
        ++cycle;
        return std::vector<Vorn::Bytes>{TestKit::reportDatagram("10.9.9.9", {{"Channel", std::to_string(cycle)}})};
    });
    std::ostringstream out;
    EXPECT_EQ(VornLink::runSelfTest(out, options(port, TestKit::kPeerAddress)), 0);
    EXPECT_EQ(out.str(), "selftest: 1 device(s)\n  10.9.9.9  ATEM=?:?  Switcher=Band -1 / Model -1  Channel=8\n");
}

TEST(SelfTestRun, PortHeldExclusivelyPrintsCannotBindAndReturnsOne)
{
    const auto port = TestKit::freeUdpPort();
    const int holder = TestKit::bindUdp("0.0.0.0", port, false);
    ASSERT_GE(holder, 0);
    std::ostringstream out;
    EXPECT_EQ(VornLink::runSelfTest(out, options(port, TestKit::kPeerAddress)), 1);
    EXPECT_EQ(out.str(), "selftest: cannot bind UDP 23457\n");
    ::close(holder);
}

// The broadcast goes to an address where no unit listens, so only the
// remembered unit's own unicasts reach the peer.
constexpr const char* kNobody = "127.0.0.3";

TEST(SelfTestRemembered, SilentRememberedUnitIsAskedByUnicastInEveryCycle)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, [](const TestKit::Received&) { return std::vector<Vorn::Bytes>{}; });
    std::ostringstream out;
    EXPECT_EQ(VornLink::runSelfTest(out, options(port, kNobody, {TestKit::kPeerAddress})), 0);
    EXPECT_EQ(out.str(), "selftest: 0 device(s)\n");
    const auto requests = peer.received();
    ASSERT_EQ(requests.size(), 8u);
    for (std::size_t i = 0; i < requests.size(); ++i)
        EXPECT_EQ(requests[i].data, Vorn::discoverPacket(static_cast<std::uint16_t>(i + 1)));
}

TEST(SelfTestRemembered, RememberedUnitThatAnswersIsListedAndNotAskedAgain)
{
    const auto port = TestKit::freeUdpPort();
    TestKit::LoopbackPeer peer(port, [](const TestKit::Received&) {
        return std::vector<Vorn::Bytes>{TestKit::reportDatagram(TestKit::kPeerAddress, {{"Channel", "4"}})};
    });
    std::ostringstream out;
    std::map<std::string, Vorn::Config> heard;
    auto remembering = options(port, kNobody, {TestKit::kPeerAddress});
    remembering.heard = [&](const std::map<std::string, Vorn::Config>& units) { heard = units; };
    EXPECT_EQ(VornLink::runSelfTest(out, remembering), 0);
    EXPECT_EQ(heard, (std::map<std::string, Vorn::Config>{{TestKit::kPeerAddress, {{"Channel", "4"}}}}));
    EXPECT_EQ(out.str(), "selftest: 1 device(s)\n  127.0.0.2  ATEM=?:?  Switcher=Band -1 / Model -1  Channel=4\n");
    const auto requests = peer.received();
    ASSERT_FALSE(requests.empty());
    EXPECT_EQ(requests.front().data, Vorn::discoverPacket(1));
    EXPECT_LT(requests.size(), 8u);
}
