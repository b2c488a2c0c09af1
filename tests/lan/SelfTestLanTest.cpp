// SPDX-License-Identifier: Apache-2.0
// "vornlink --selftest" run for real in the console namespace of a private LAN,
// against vorn-sim in the units namespace, on the real port 23457.
#include <fstream>
#include <sstream>

#include "LanTestCase.h"

namespace {

using LanTest::kVornlinkBinary;

class SelfTestOnLan : public LanTestCase {
protected:
    Finished runVornlink(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), kVornlinkBinary);
        return runInConsole(arguments);
    }

    // The program without the self-test would go on to open its window: with
    // no display to open it on, it has to end by itself.
    Finished runVornlinkWithoutDisplay(const std::string& argument) const
    {
        return runInConsole({"env", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", "-u", "QT_QPA_PLATFORM",
                             kVornlinkBinary, argument});
    }
};

// The discover datagram as it must appear on the wire, written out byte by byte.
std::vector<std::uint8_t> discoverBytes(unsigned seq)
{
    return {0x3A, 0x62, 0x7F, 0x3D, 0xE0, 0x00, 0x00, 0xC8, 0x00, 0x01,
            0x01, 0xA3, 0x14, 0x00, static_cast<std::uint8_t>(seq & 0xFF),
            static_cast<std::uint8_t>(seq >> 8), 0x00, 0x00, 0x00, 0x00};
}

TEST_F(SelfTestOnLan, ListsEachReportingUnitUnderItsHeaderAddressInAddressTextOrder)
{
    const auto unitsFile = dir() / "units.json";
    // 10.232.1.3 reports itself as 10.232.1.10, which sorts between .1 and .2 as
    // text; 10.232.1.4 answers with command A1 and must not be counted.
    std::ofstream(unitsFile) << R"([
  {"ip": "10.232.1.1",
   "config": {"AtemIp": "10.231.0.240", "SwitcherBand": "7", "SwitcherModel": "0", "Channel": "3"}},
  {"ip": "10.232.1.2",
   "config": {"AtemIp": "10.231.0.241", "AtemPort": "9910", "SwitcherBand": "5", "SwitcherModel": "2",
              "Channel": "12"}},
  {"ip": "10.232.1.3", "reportIp": "10.232.1.10",
   "config": {"AtemIp": "", "AtemPort": "9990", "Channel": "1"}},
  {"ip": "10.232.1.4", "cmd": "0xA1",
   "config": {"AtemIp": "10.231.0.243", "AtemPort": "9910", "Channel": "4"}}
])";
    LanTest::Simulator simulator(lan(), {"--units", unitsFile.string()}, dir());

    const auto run = runVornlink({"--selftest"});

    EXPECT_EQ(run.out,
              "selftest: 3 device(s)\n"
              "  10.232.1.1  ATEM=10.231.0.240:?  Switcher=Blackmagic ATEM  Channel=3\n"
              "  10.232.1.10  ATEM=:9990  Switcher=Band -1 / Model -1  Channel=1\n"
              "  10.232.1.2  ATEM=10.231.0.241:9910  Switcher=Band 5 / Model 2  Channel=12\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(SelfTestOnLan, BroadcastsEightDiscoversWithSequenceOneToEightFromEphemeralPorts)
{
    LanTest::Simulator simulator(lan(), {}, dir());

    const auto run = runVornlink({"--selftest"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto received = simulator.stopAndReadLog();

    ASSERT_EQ(received.size(), 8u);
    for (unsigned seq = 1; seq <= 8; ++seq) {
        SCOPED_TRACE("sequence " + std::to_string(seq));
        const auto& datagram = received[seq - 1];
        EXPECT_EQ(datagram.bytes, discoverBytes(seq));
        EXPECT_EQ(datagram.dst, "255.255.255.255");
        EXPECT_EQ(datagram.src, LanTest::IsolatedLan::kConsoleAddress);
        EXPECT_NE(datagram.sport, 23457);
    }
}

TEST_F(SelfTestOnLan, ReportsZeroDevicesWhenNoUnitAnswers)
{
    const auto run = runVornlink({"--selftest"});

    EXPECT_EQ(run.out, "selftest: 0 device(s)\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(SelfTestOnLan, FailsWithoutSendingWhenThePortIsHeldExclusively)
{
    LanTest::Simulator simulator(lan(), {}, dir());
    LanTest::Process holder(lan().consoleNs(), {VORN_LAN_PROBE, "hold-port", "23457"}, dir());
    ASSERT_TRUE(holder.waitForStderrLine("holding UDP 23457", kReadyTimeout)) << holder.stderrText();

    const auto run = runVornlink({"--selftest"});

    EXPECT_EQ(run.out, "selftest: cannot bind UDP 23457\n");
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_TRUE(simulator.stopAndReadLog().empty());
}

TEST_F(SelfTestOnLan, RunsWhenTheFlagIsAmongOtherArguments)
{
    LanTest::Simulator simulator(lan(), {"--count", "1"}, dir());

    const auto run = runVornlink({"first", "--selftest", "last"});

    EXPECT_EQ(run.out.rfind("selftest: 1 device(s)\n  10.232.1.1  ATEM=", 0), 0u) << run.out;
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(SelfTestOnLan, FlagWithAValueDoesNotRunTheSelfTest)
{
    LanTest::Simulator simulator(lan(), {}, dir());

    const auto run = runVornlinkWithoutDisplay("--selftest=1");

    EXPECT_TRUE(run.status.has_value()) << "still running";
    EXPECT_EQ(run.out.find("selftest:"), std::string::npos) << run.out;
    EXPECT_TRUE(simulator.stopAndReadLog().empty());
}

TEST_F(SelfTestOnLan, SingleDashFlagDoesNotRunTheSelfTest)
{
    LanTest::Simulator simulator(lan(), {}, dir());

    const auto run = runVornlinkWithoutDisplay("-selftest");

    EXPECT_TRUE(run.status.has_value()) << "still running";
    EXPECT_EQ(run.out.find("selftest:"), std::string::npos) << run.out;
    EXPECT_TRUE(simulator.stopAndReadLog().empty());
}

}  // namespace

namespace {

// The self-test's report for the units the two links' simulators run below.
const std::string kStudioUnits = "--count 2 --first-ip 10.77.1.129 --unit 192.168.0.50";

std::vector<std::string> reportedAddresses(const std::string& out)
{
    std::vector<std::string> addresses;
    std::istringstream lines(out);
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line))
        addresses.push_back(line.substr(2, line.find("  ", 2) - 2));
    return addresses;
}

std::vector<std::string> splitAtBlanks(const std::string& text)
{
    std::vector<std::string> words;
    std::istringstream in(text);
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

class SelfTestOnTwoLinks : public SelfTestOnLan {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::TwoLinks; }
};

class SelfTestOnStudioOnly : public SelfTestOnLan {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::Studio; }
};

}  // namespace

TEST_F(SelfTestOnTwoLinks, FindsTheUnitsOfBothLinksAndSendsEachCycleOncePerLinkWithOneNumber)
{
    LanTest::Simulator office(lan(), {"--count", "2"}, dir());
    LanTest::Simulator studio(lan().studioNs(), splitAtBlanks(kStudioUnits), dir());

    const auto run = runVornlink({"--selftest"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("selftest: 5 device(s)\n")) << run.out;
    EXPECT_EQ(reportedAddresses(run.out),
              (std::vector<std::string>{"10.232.1.1", "10.232.1.2", "10.77.1.129", "10.77.1.130", "192.168.0.50"}));

    const auto officeLog = office.stopAndReadLog();
    const auto studioLog = studio.stopAndReadLog();
    ASSERT_EQ(officeLog.size(), 8u);
    ASSERT_EQ(studioLog.size(), 8u);
    for (unsigned seq = 1; seq <= 8; ++seq) {
        SCOPED_TRACE("sequence " + std::to_string(seq));
        EXPECT_EQ(officeLog[seq - 1].bytes, discoverBytes(seq));
        EXPECT_EQ(studioLog[seq - 1].bytes, discoverBytes(seq));
        EXPECT_EQ(officeLog[seq - 1].src, LanTest::IsolatedLan::kConsoleAddress);
        EXPECT_EQ(studioLog[seq - 1].src, LanTest::IsolatedLan::kStudioConsoleAddress);
        EXPECT_EQ(studioLog[seq - 1].dst, "255.255.255.255");
    }
}

TEST_F(SelfTestOnStudioOnly, FindsEveryUnitWithoutADefaultRoute)
{
    LanTest::Simulator studio(lan().studioNs(), splitAtBlanks(kStudioUnits), dir());

    const auto run = runVornlink({"--selftest"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("selftest: 3 device(s)\n")) << run.out;
    EXPECT_EQ(reportedAddresses(run.out), (std::vector<std::string>{"10.77.1.129", "10.77.1.130", "192.168.0.50"}));
    EXPECT_EQ(studio.stopAndReadLog().size(), 8u);
}
