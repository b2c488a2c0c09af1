// SPDX-License-Identifier: Apache-2.0
// The real vornlink window (offscreen) on a private LAN against vorn-sim:
// what the sidebar lists, a unit with markup in its serial, and one running
// instance per user.
#include <algorithm>
#include <fstream>

#include <nlohmann/json.hpp>

#include "LanTestCase.h"
#include "SidebarRows.h"

namespace {

using namespace std::chrono_literals;

class WindowOnLan : public LanTestCase {
protected:
    // vornlink with its window offscreen, its diagnostics on, and its
    // single-instance socket in this test's directory.
    LanTest::Process startVornlink() const
    {
        return LanTest::Process(lan().consoleNs(),
                                {"env", "QT_QPA_PLATFORM=offscreen", "TMPDIR=" + dir().string(),
                                 "QT_LOGGING_RULES=vornlink.*.info=true", LanTest::kVornlinkBinary},
                                dir());
    }
};

// The rows come in as the replies do: the first report that lists `count`
// rows, or the last one seen when none does within 20 s.
nlohmann::json waitForRows(LanTest::Process& app, std::size_t count)
{
    nlohmann::json rows;
    for (int attempt = 0; attempt < 200 && rows.size() < count; ++attempt) {
        if (app.wait(100ms).has_value())
            break;
        rows = LanTest::lastSidebarRows(app.stderrText());
    }
    return rows;
}

// One column of the rows: 0 the addresses, 2 the notes and warnings after them.
std::vector<std::string> columnOf(const nlohmann::json& rows, std::size_t column)
{
    std::vector<std::string> values;
    for (const auto& row : rows)
        values.push_back(row[column].get<std::string>());
    return values;
}

std::vector<std::string> addressesOf(const nlohmann::json& rows)
{
    return columnOf(rows, 0);
}

std::vector<std::string> warningsOf(const nlohmann::json& rows)
{
    return columnOf(rows, 2);
}

TEST_F(WindowOnLan, ListsTheSimulatedUnitsInAddressTextOrder)
{
    LanTest::Simulator sim(lan(), {"--count", "10", "--first-ip", "10.232.1.1"}, dir());
    auto app = startVornlink();

    std::vector<std::string> addresses;
    for (int host = 1; host <= 10; ++host)
        addresses.push_back("10.232.1." + std::to_string(host));
    std::sort(addresses.begin(), addresses.end());
    const auto rows = waitForRows(app, 10);
    ASSERT_EQ(rows.size(), 10u) << app.stderrText();
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i][0], addresses[i]) << rows.dump();
    EXPECT_FALSE(app.wait(500ms).has_value()) << "the window ended by itself";
}

class WindowOnTwoLinks : public WindowOnLan {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::TwoLinks; }
};

TEST_F(WindowOnTwoLinks, ListsTheUnitsOfTheOfficeAndOfTheStudioLinkWithoutGateway)
{
    LanTest::Simulator office(lan(), {"--count", "2"}, dir());
    LanTest::Simulator studio(lan().studioNs(),
                              {"--count", "2", "--first-ip", LanTest::IsolatedLan::kFirstStudioUnitAddress, "--unit",
                               LanTest::IsolatedLan::kWrongSubnetAddress},
                              dir());
    auto app = startVornlink();

    const auto rows = waitForRows(app, 5);
    EXPECT_EQ(addressesOf(rows), (std::vector<std::string>{"10.232.1.1", "10.232.1.2", "10.77.1.129", "10.77.1.130",
                                                           "192.168.0.50"}))
        << app.stderrText();
    // Only the unit outside the studio link's subnet is flagged.
    EXPECT_EQ(warningsOf(rows), (std::vector<std::string>{"", "", "", "", " \u00b7 wrong subnet"})) << rows.dump();
    EXPECT_FALSE(app.wait(500ms).has_value()) << "the window ended by itself";
}

TEST_F(WindowOnTwoLinks, ListsTheUnitsOfALinkBroughtUpWhileTheWindowRuns)
{
    lan().setStudioLinkUp(false);
    LanTest::Simulator office(lan(), {"--count", "2"}, dir());
    LanTest::Simulator studio(lan().studioNs(),
                              {"--count", "2", "--first-ip", LanTest::IsolatedLan::kFirstStudioUnitAddress}, dir());
    auto app = startVornlink();
    ASSERT_EQ(waitForRows(app, 2).size(), 2u) << app.stderrText();

    lan().setStudioLinkUp(true);
    // The next discover, at most one period later, goes out on the new link too.
    const auto rows = waitForRows(app, 4);
    EXPECT_EQ(addressesOf(rows), (std::vector<std::string>{"10.232.1.1", "10.232.1.2", "10.77.1.129", "10.77.1.130"}))
        << app.stderrText();
}

class WindowOnStudioOnly : public WindowOnLan {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::Studio; }
};

TEST_F(WindowOnStudioOnly, ListsTheUnitsOfAStudioLinkWithNoDefaultRoute)
{
    LanTest::Simulator studio(lan().studioNs(),
                              {"--count", "2", "--first-ip", LanTest::IsolatedLan::kFirstStudioUnitAddress, "--unit",
                               LanTest::IsolatedLan::kWrongSubnetAddress},
                              dir());
    auto app = startVornlink();

    const auto rows = waitForRows(app, 3);
    EXPECT_EQ(addressesOf(rows), (std::vector<std::string>{"10.77.1.129", "10.77.1.130", "192.168.0.50"}))
        << app.stderrText();
    EXPECT_EQ(warningsOf(rows), (std::vector<std::string>{"", "", " \u00b7 wrong subnet"})) << rows.dump();
    EXPECT_FALSE(app.wait(500ms).has_value()) << "the window ended by itself";
}

TEST_F(WindowOnLan, ShowsMarkupInASerialAsTextAndFetchesNothing)
{
    const std::string serial = R"(<img src="http://127.0.0.1:9/x.png"><b>big</b>)";
    const auto unitsFile = dir() / "units.json";
    std::ofstream(unitsFile) << nlohmann::json::array({{{"ip", "10.232.1.5"}, {"config", {{"Serial", serial}}}}}).dump();
    LanTest::Simulator sim(lan(), {"--units", unitsFile.string()}, dir());
    LanTest::Process witness(lan().consoleNs(), {TCP_WITNESS, "9"}, dir());
    ASSERT_TRUE(witness.waitForStderrLine("tcp_witness: listening", kReadyTimeout)) << witness.stderrText();

    auto app = startVornlink();
    // The title keeps the serial's last six characters, markup and all.
    const std::string title = "KT400 \u00b7ig</b>";
    ASSERT_TRUE(app.waitForStderrLine(LanTest::sidebarRowsLine(nlohmann::json::array({nlohmann::json::array({"10.232.1.5", title, ""})})), 20s)) << app.stderrText();
    EXPECT_FALSE(app.wait(1s).has_value()) << "the window ended: " << app.stderrText();
    EXPECT_EQ(witness.stderrText().find("connection"), std::string::npos);
}

TEST_F(WindowOnLan, ASecondLaunchRaisesTheFirstWindowAndEndsWithoutListening)
{
    LanTest::Simulator sim(lan(), {"--count", "2"}, dir());
    auto first = startVornlink();
    ASSERT_TRUE(first.waitForStderrLine("vornlink.window: first frame", 20s)) << first.stderrText();

    auto second = startVornlink();
    EXPECT_EQ(second.wait(20s), 0) << second.stderrText();
    EXPECT_NE(second.stderrText().find("handed over to the running instance"), std::string::npos)
        << second.stderrText();
    EXPECT_EQ(second.stderrText().find("first frame"), std::string::npos) << second.stderrText();
    EXPECT_EQ(second.stderrText().find("cannot bind"), std::string::npos) << second.stderrText();
    EXPECT_TRUE(first.waitForStderrLine("raising the window for another launch", 10s)) << first.stderrText();
    EXPECT_FALSE(first.wait(500ms).has_value()) << "the first instance ended";
}

}  // namespace

namespace {

class WindowWithRoutedSubnet : public WindowOnLan {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::Routed; }
};

}  // namespace

TEST_F(WindowWithRoutedSubnet, UnitFoundOnceBehindTheRouterIsListedAtTheNextStartWithNothingTypedAndNotFlagged)
{
    using LanTest::IsolatedLan;
    LanTest::Simulator office(lan(), {"--count", "1"}, dir());
    LanTest::Simulator routed(lan().routedNs(), {"--count", "1", "--first-ip", IsolatedLan::kFirstRoutedUnitAddress},
                              dir());
    // Found once by a scan, which the site store remembers.
    LanTest::Process scan(lan().consoleNs(), {VORN_LAN_VORNCTL, "discover", "--range", IsolatedLan::kRoutedSubnet},
                          dir());
    ASSERT_EQ(scan.wait(kRunTimeout), 0) << scan.stderrText();

    auto app = startVornlink();
    // Listed at once from the store, offline, with when it was last seen.
    // The office unit may answer the first broadcast before the list is read.
    const auto remembered = waitForRows(app, 1);
    const auto listed = addressesOf(remembered);
    const auto routedRow = std::find(listed.begin(), listed.end(), IsolatedLan::kFirstRoutedUnitAddress);
    ASSERT_NE(routedRow, listed.end()) << app.stderrText();
    EXPECT_EQ(warningsOf(remembered).at(static_cast<std::size_t>(routedRow - listed.begin())),
              " \u00b7 last seen just now");

    // Then it answers the unicast: the note goes, and no warning comes.
    const std::vector<std::string> answered{"10.232.1.1", IsolatedLan::kFirstRoutedUnitAddress};
    nlohmann::json rows;
    for (int attempt = 0; attempt < 200 && warningsOf(rows) != std::vector<std::string>{"", ""}; ++attempt) {
        if (app.wait(100ms).has_value())
            break;
        rows = LanTest::lastSidebarRows(app.stderrText());
    }
    EXPECT_EQ(addressesOf(rows), answered) << app.stderrText();
    EXPECT_EQ(warningsOf(rows), (std::vector<std::string>{"", ""})) << rows.dump();
}
