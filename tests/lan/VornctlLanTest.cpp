// SPDX-License-Identifier: Apache-2.0
// vornctl discover, show and set run for real in the console namespace of a
// private LAN against vorn-sim in the units namespace, on the real port.
#include <nlohmann/json.hpp>

#include "VornctlTestCase.h"

namespace {

constexpr const char* kTwoUnits = R"([
  {"ip": "10.232.1.1",
   "config": {"Serial": "KT-AAA111", "Version": "2.1.4", "IPAddress": "10.232.1.1", "Netmask": "255.255.0.0",
              "Gateway": "10.232.0.1", "AtemIp": "10.232.0.20", "AtemPort": "9910", "Channel": "3",
              "SwitcherBand": "7", "SwitcherModel": "0", "TallyType": "2", "CallMagic": "1234"}},
  {"ip": "10.232.1.2",
   "config": {"Serial": "KT-BBB222", "Channel": "12", "SwitcherBand": "5", "SwitcherModel": "2", "TallyType": "12"}}
])";

// The first unit's write after "set 10.232.1.1 Channel=5": every reported
// write key, in the write key table's order, with the new channel.
constexpr const char* kFirstUnitWithChannel5 =
    "IPAddress:10.232.1.1\nNetmask:255.255.0.0\nGateway:10.232.0.1\nAtemIp:10.232.0.20\nAtemPort:9910\n"
    "Channel:5\nCallMagic:1234\nTallyType:2\nSwitcherBand:7\nSwitcherModel:0\nSerial:KT-AAA111\n";

class VornctlOnLan : public VornctlTestCase {
protected:
    LanTest::Simulator twoUnits(std::vector<std::string> faults = {}) const
    {
        std::vector<std::string> arguments{"--units", unitsFile(kTwoUnits)};
        arguments.insert(arguments.end(), faults.begin(), faults.end());
        return LanTest::Simulator(lan(), arguments, dir());
    }

    // Where the units of the office link are heard: "<interface> · <address>/<prefix>".
    std::string officeInterface() const
    {
        return lan().officeLink() + " \u00B7 " + LanTest::IsolatedLan::kConsoleAddress + "/12";
    }
};

// --- discover -------------------------------------------------------------

TEST_F(VornctlOnLan, DiscoverListsOneLinePerUnitSortedByAddress)
{
    auto sim = twoUnits();

    const auto run = vornctl({"discover", "--timeout", "1"});

    const std::string heardOn = officeInterface();
    EXPECT_EQ(run.out,
              "10.232.1.1  KT400 \u00B7AAA111  Blackmagic ATEM  Ch 3  " + heardOn + "  -\n"
              "10.232.1.2  KT400 \u00B7BBB222  Band 5 / Model 2  Ch 12  " + heardOn
                  + "  TallyType \"12\" is outside 0\u20139\n");
    EXPECT_NE(run.err.find("2 unit(s) answered"), std::string::npos) << run.err;
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(VornctlOnLan, DiscoverJsonGivesEveryUnitWithItsWholeConfiguration)
{
    auto sim = twoUnits();

    const auto run = vornctl({"discover", "--json", "--timeout", "1"});

    ASSERT_EQ(run.status, 0) << run.err;
    const auto units = nlohmann::json::parse(run.out);
    ASSERT_EQ(units.size(), 2u);
    EXPECT_EQ(units[0]["address"], "10.232.1.1");
    EXPECT_EQ(units[0]["serial"], "KT-AAA111");
    EXPECT_EQ(units[0]["title"], "KT400 \u00B7AAA111");
    EXPECT_EQ(units[0]["firmware"], "2.1.4");
    EXPECT_EQ(units[0]["interface"], officeInterface());
    EXPECT_EQ(units[0]["warnings"], nlohmann::json::array());
    EXPECT_EQ(units[0]["config"].size(), 12u);
    EXPECT_EQ(units[0]["config"]["CallMagic"], "1234");
    EXPECT_EQ(units[1]["address"], "10.232.1.2");
    EXPECT_EQ(units[1]["firmware"], "");
    EXPECT_EQ(units[1]["warnings"], nlohmann::json::array({"TallyType \"12\" is outside 0\u20139"}));
}

TEST_F(VornctlOnLan, DiscoverBroadcastsEveryHalfSecondFromEphemeralPorts)
{
    auto sim = twoUnits();

    ASSERT_EQ(vornctl({"discover", "--timeout", "1"}).status, 0);
    const auto log = sim.stopAndReadLog();

    // A discover at 0 s and at 0.5 s within one second; nothing else.
    ASSERT_EQ(log.size(), 2u);
    for (const auto& datagram : log) {
        EXPECT_EQ(datagram.dst, "255.255.255.255");
        EXPECT_EQ(datagram.bytes.size(), 20u);
        EXPECT_EQ(datagram.bytes[11], kDiscover);
        EXPECT_NE(datagram.sport, 23457);
    }
}

TEST_F(VornctlOnLan, DiscoverExpectingMoreUnitsThanAnswerExits3)
{
    auto sim = twoUnits();

    const auto run = vornctl({"discover", "--timeout", "1", "--expect", "3"});

    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.err.find("expected at least 3 unit(s)"), std::string::npos) << run.err;
    EXPECT_EQ(vornctl({"discover", "--timeout", "1", "--expect", "2"}).status, 0);
}

TEST_F(VornctlOnLan, DiscoverWithNoUnitPrintsNothingAndExits0)
{
    const auto run = vornctl({"discover", "--json", "--timeout", "0.5"});

    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

// --- show -----------------------------------------------------------------

TEST_F(VornctlOnLan, ShowPrintsWriteKeysInTableOrderThenTheOthers)
{
    auto sim = twoUnits();

    const auto run = vornctl({"show", "10.232.1.1"});

    EXPECT_EQ(run.out,
              "IPAddress: 10.232.1.1\nNetmask: 255.255.0.0\nGateway: 10.232.0.1\nAtemIp: 10.232.0.20\n"
              "AtemPort: 9910\nChannel: 3\nCallMagic: 1234\nTallyType: 2\nSwitcherBand: 7\nSwitcherModel: 0\n"
              "Serial: KT-AAA111\nVersion: 2.1.4\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(VornctlOnLan, ShowAsksOnlyTheUnitByUnicast)
{
    auto sim = twoUnits();

    ASSERT_EQ(vornctl({"show", "10.232.1.2", "--json"}).status, 0);
    const auto log = sim.stopAndReadLog();

    ASSERT_GE(log.size(), 1u);
    for (const auto& datagram : log) {
        EXPECT_EQ(datagram.dst, "10.232.1.2");
        EXPECT_EQ(datagram.bytes[11], kDiscover);
    }
}

TEST_F(VornctlOnLan, ShowJsonIsTheDiscoverObject)
{
    auto sim = twoUnits();

    const auto run = vornctl({"show", "10.232.1.2", "--json"});

    ASSERT_EQ(run.status, 0) << run.err;
    const auto unit = nlohmann::json::parse(run.out);
    EXPECT_EQ(unit["address"], "10.232.1.2");
    EXPECT_EQ(unit["title"], "KT400 \u00B7BBB222");
    EXPECT_EQ(unit["config"]["SwitcherModel"], "2");
}

TEST_F(VornctlOnLan, ShowOfAUnitThatNeverAnswersExits4AfterThreeTries)
{
    auto sim = twoUnits({"--silent", "10.232.1.1"});

    const auto run = vornctl({"show", "10.232.1.1", "--timeout", "0.6"});

    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vornctl: 10.232.1.1 did not answer\n");
    EXPECT_EQ(withCommand(sim.stopAndReadLog(), kDiscover).size(), 3u);
}

// --- set ------------------------------------------------------------------

TEST_F(VornctlOnLan, SetWritesTheFullOverlayTwiceThenVerifies)
{
    auto sim = twoUnits();

    const auto run = vornctl({"set", "10.232.1.1", "Channel=5"});

    EXPECT_EQ(run.out, "verified\n");
    EXPECT_EQ(run.status, 0) << run.err;
    const auto log = sim.stopAndReadLog();
    const auto writes = withCommand(log, kWrite);
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_EQ(writes[0].bytes, writes[1].bytes);
    EXPECT_EQ(writes[0].dst, "10.232.1.1");
    EXPECT_EQ(bodyOf(writes[0]), kFirstUnitWithChannel5);
    // Asked before the write and again after it.
    const auto firstWrite = std::find(log.begin(), log.end(), writes[0]);
    EXPECT_EQ(withCommand({log.begin(), firstWrite}, kDiscover).size(), 1u);
    EXPECT_EQ(withCommand({firstWrite, log.end()}, kDiscover).size(), 1u);
}

TEST_F(VornctlOnLan, SetToAUnitIgnoringWritesExits5NamingTheKey)
{
    auto sim = twoUnits({"--ignore-writes", "10.232.1.1"});

    const auto run = vornctl({"set", "10.232.1.1", "Channel=5", "TallyType=2"});

    EXPECT_EQ(run.out, "Channel: wrote 5, unit reports 3\n");
    EXPECT_EQ(run.status, 5) << run.err;
}

TEST_F(VornctlOnLan, SetToAUnitKeepingOneKeyReportsOnlyThatKey)
{
    auto sim = twoUnits({"--keep-key", "10.232.1.1=TallyType"});

    const auto run = vornctl({"set", "10.232.1.1", "Channel=5", "TallyType=4"});

    EXPECT_EQ(run.out, "TallyType: wrote 4, unit reports 2\n");
    EXPECT_EQ(run.status, 5) << run.err;
}

TEST_F(VornctlOnLan, SetToAUnitThatNeverAnswersExits4WithoutWriting)
{
    auto sim = twoUnits({"--silent", "10.232.1.1"});

    const auto run = vornctl({"set", "10.232.1.1", "Channel=5", "--timeout", "0.6"});

    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.err, "vornctl: 10.232.1.1 did not answer\n");
    EXPECT_TRUE(withCommand(sim.stopAndReadLog(), kWrite).empty());
}

TEST_F(VornctlOnLan, SetOfTheAddressIsVerifiedUnderTheNewAddress)
{
    auto sim = twoUnits();

    const auto run = vornctl({"set", "10.232.1.1", "IPAddress=10.232.1.50", "--yes"});

    EXPECT_EQ(run.out, "verified\n");
    EXPECT_EQ(run.status, 0) << run.err;
    const auto log = sim.stopAndReadLog();
    ASSERT_EQ(withCommand(log, kWrite).size(), 2u);
    EXPECT_EQ(withCommand(log, kWrite)[0].dst, "10.232.1.1");
    EXPECT_EQ(withCommand(log, kDiscover).back().dst, "10.232.1.50");
}

TEST_F(VornctlOnLan, SetWithNoReplyAfterTheWriteExits4)
{
    // The unit moves to an address the simulator cannot answer from.
    auto sim = twoUnits();

    const auto run = vornctl({"set", "10.232.1.1", "IPAddress=10.240.0.1", "--yes", "--timeout", "0.6"});

    EXPECT_EQ(run.out, "IPAddress: wrote 10.240.0.1, no reply\n");
    EXPECT_EQ(run.status, 4) << run.err;
}

TEST_F(VornctlOnLan, SetRefusesBadPairsWithOneLineAndSendsNothing)
{
    auto sim = twoUnits();
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"set", "10.232.1.1", "Bogus=1"}, "vornctl: unknown key Bogus; try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "TallyType=10"}, "vornctl: TallyType \"10\" is outside 0\u20139; try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "Channel"}, "vornctl: 'Channel' is not KEY=VALUE; try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "Wire2Enable=true"},
         "vornctl: Wire2Enable \"true\" is neither 1 (on) nor 0 (off); try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "CallMagic=x\nIPAddress:10.9.9.9"},
         "vornctl: the value of CallMagic holds a line feed (LF); try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "Channel=1\r"},
         "vornctl: the value of Channel holds a carriage return (CR); try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "Gateway=10.232.0.9"},
         "vornctl: Gateway changes how the unit is reached; add --yes to write it; try 'vornctl --help'\n"},
        {{"set", "10.232.1.x", "Channel=1"}, "vornctl: '10.232.1.x' is not an IPv4 address; try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "AtemIp=300.1.1.1"},
         "vornctl: AtemIp \"300.1.1.1\" is not an IPv4 address (four numbers 0\u2013255 joined by dots), nor empty; "
         "try 'vornctl --help'\n"},
        {{"set", "10.232.1.1", "AtemIp=atem.local"},
         "vornctl: AtemIp \"atem.local\" is not an IPv4 address (four numbers 0\u2013255 joined by dots), nor empty; "
         "try 'vornctl --help'\n"},
    };
    for (const auto& [arguments, message] : cases) {
        SCOPED_TRACE(arguments.back());
        const auto run = vornctl(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err, message);
        EXPECT_EQ(run.out, "");
    }
    EXPECT_TRUE(sim.stopAndReadLog().empty());
}

TEST_F(VornctlOnLan, UnitArgumentsThatAreNotAddressesExit2AndSendNothing)
{
    auto sim = twoUnits();
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"show", "10.232.1"}, "10.232.1"},
        {{"show", "studio-base"}, "studio-base"},
        {{"show", "10.232.1.256"}, "10.232.1.256"},
        {{"set", "0x0a.232.1.1", "Channel=1"}, "0x0a.232.1.1"},
        {{"backup", "10.232.1.1", "10.232.1.1.", "-o", "unused.json"}, "10.232.1.1."},
    };
    for (const auto& [arguments, unit] : cases) {
        SCOPED_TRACE(unit);
        const auto run = vornctl(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err, "vornctl: '" + unit + "' is not an IPv4 address; try 'vornctl --help'\n");
        EXPECT_EQ(run.out, "");
    }
    EXPECT_TRUE(sim.stopAndReadLog().empty());
}

TEST_F(VornctlOnLan, LeadingZerosInAUnitArgumentAreDecimal)
{
    auto sim = twoUnits();

    // As octal, 010.232.001.002 would be 8.232.1.2.
    const auto run = vornctl({"show", "010.232.001.002", "--json"});

    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(nlohmann::json::parse(run.out)["address"], "10.232.1.2");
    const auto log = sim.stopAndReadLog();
    ASSERT_GE(log.size(), 1u);
    for (const auto& datagram : log)
        EXPECT_EQ(datagram.dst, "10.232.1.2");
}

// --- the port -------------------------------------------------------------

TEST_F(VornctlOnLan, PortHeldByAnotherSocketExits1WithoutSending)
{
    auto sim = twoUnits();
    LanTest::Process holder(lan().consoleNs(), {VORN_LAN_PROBE, "hold-port", "23457"}, dir());
    ASSERT_TRUE(holder.waitForStderrLine("holding UDP 23457", kReadyTimeout)) << holder.stderrText();

    const auto run = vornctl({"discover", "--timeout", "0.5"});

    EXPECT_EQ(run.err, "vornctl: cannot bind UDP 23457 (is VornLink running?)\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(sim.stopAndReadLog().empty());
}

TEST_F(VornctlOnLan, PortSharedByTheWindowIsNotSplit)
{
    auto sim = twoUnits();
    LanTest::Process holder(lan().consoleNs(), {VORN_LAN_PROBE, "hold-shared-port"}, dir());
    ASSERT_TRUE(holder.waitForStderrLine("holding UDP 23457 shared", kReadyTimeout)) << holder.stderrText();

    const auto run = vornctl({"show", "10.232.1.1"});

    EXPECT_EQ(run.err, "vornctl: cannot bind UDP 23457 (is VornLink running?)\n");
    EXPECT_EQ(run.status, 1);
}

// --- help, version, usage -------------------------------------------------

TEST_F(VornctlOnLan, HelpListsTheCommandsAndExits0)
{
    const auto run = vornctl({"--help"});

    EXPECT_EQ(run.status, 0);
    for (const char* command : {"discover", "show", "set", "backup", "restore"})
        EXPECT_NE(run.out.find(command), std::string::npos) << command;
}

TEST_F(VornctlOnLan, EveryCommandHasItsOwnHelp)
{
    for (const char* command : {"discover", "show", "set", "backup", "restore"}) {
        SCOPED_TRACE(command);
        const auto run = vornctl({command, "--help"});
        EXPECT_EQ(run.status, 0);
        EXPECT_NE(run.out.find("--timeout"), std::string::npos) << run.out;
    }
}

TEST_F(VornctlOnLan, VersionPrintsTheProgramVersion)
{
    const auto run = vornctl({"--version"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.rfind("vornctl ", 0), 0u) << run.out;
}

TEST_F(VornctlOnLan, BadUsageIsOneLineAndExits2)
{
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{}, {"frobnicate"}, {"show"}, {"discover", "--timeout", "-1"},
                                               {"discover", "--timeout", "1e30"},
                                               {"discover", "--bogus"}, {"restore"}}) {
        SCOPED_TRACE(arguments.empty() ? std::string("(none)") : arguments.front());
        const auto run = vornctl(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(isOneLine(run.err)) << run.err;
        EXPECT_EQ(run.out, "");
    }
}

}  // namespace
