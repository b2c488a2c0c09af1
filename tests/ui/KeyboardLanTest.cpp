// SPDX-License-Identifier: Apache-2.0
// The real vornlink on an X display of its own (Xvfb) on the private LAN,
// driven by key presses alone (xdotool) against vorn-sim: select the unit,
// change its channel, save with Ctrl+S, switch tabs, open the network
// confirmation and cancel it with Return and with Escape, then apply it.
// What the program did is read from the simulator's datagram log.
#include <cstdlib>
#include <unistd.h>

#include <fstream>
#include <thread>

#include <nlohmann/json.hpp>

#include "LanTestCase.h"
#include "SidebarRows.h"

namespace {

using namespace std::chrono_literals;

constexpr std::uint8_t kWrite = 0xA0;
constexpr const char* kUnit = "10.232.1.7";

bool onPath(const char* program)
{
    return std::system((std::string("command -v ") + program + " >/dev/null 2>&1").c_str()) == 0;
}

// The text of a write datagram's body, without its closing NUL.
std::string bodyOf(const LanTest::CapturedDatagram& datagram)
{
    std::string body(datagram.bytes.begin() + 20, datagram.bytes.end());
    if (!body.empty() && body.back() == '\0')
        body.pop_back();
    return body;
}

std::vector<std::string> writeBodies(const std::vector<LanTest::CapturedDatagram>& log)
{
    std::vector<std::string> bodies;
    for (const auto& datagram : log)
        if (datagram.bytes.size() > 20 && datagram.bytes[11] == kWrite && datagram.dst == kUnit)
            bodies.push_back(bodyOf(datagram));
    return bodies;
}

// Key names for xdotool, the parts one after the other.
std::vector<std::string> keys(std::initializer_list<std::vector<std::string>> parts)
{
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<std::string> tabs(int count)
{
    return std::vector<std::string>(static_cast<std::size_t>(count), "Tab");
}

bool carries(const std::string& body, const std::string& line)
{
    return body.find(line + "\n") != std::string::npos || body.ends_with(line);
}

class KeyboardOnLan : public LanTestCase {
protected:
    void SetUp() override
    {
        LanTestCase::SetUp();
        if (IsSkipped())
            return;
        if (!onPath("Xvfb") || !onPath("xdotool"))
            GTEST_SKIP() << "needs Xvfb and xdotool (scripts/install-deps)";
    }

    // Xvfb in the console namespace on the first display from :99 on whose
    // lock file it takes, so that tests started together, also in other
    // namespaces, never share one (a server without a lock, as with -displayfd
    // alone, may take a number another namespace's server has and replace its
    // socket file); the display's name once it is ready, empty when none starts.
    std::string startDisplay()
    {
        for (int number = 99; number < 200; ++number) {
            const std::string name = std::to_string(number);
            xvfb_.emplace(lan().consoleNs(),
                          std::vector<std::string>{"Xvfb", ":" + name, "-displayfd", "1", "-nolisten", "tcp", "-screen",
                                                   "0", "1280x800x24"},
                          dir());
            for (int attempt = 0; attempt < 100 && !xvfb_->wait(0ms); ++attempt) {
                if (xvfb_->stdoutText() == name + "\n")
                    return ":" + name;
                std::this_thread::sleep_for(100ms);
            }
            if (xvfb_->stderrText().find("already active") == std::string::npos)
                return {};
        }
        return {};
    }

    // xdotool on `display` with `arguments`, to its end.
    Finished xdotool(const std::string& display, std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"env", "DISPLAY=" + display, "xdotool"});
        return runInConsole(arguments);
    }

    // Presses `keys` one after the other in the window that has the keyboard.
    void press(const std::string& display, const std::vector<std::string>& keys) const
    {
        std::vector<std::string> arguments{"key", "--delay", "120"};
        arguments.insert(arguments.end(), keys.begin(), keys.end());
        const Finished done = xdotool(display, arguments);
        ASSERT_EQ(done.status, 0) << done.err;
        std::this_thread::sleep_for(300ms);
    }

private:
    std::optional<LanTest::Process> xvfb_;
};

TEST_F(KeyboardOnLan, SelectsEditsSavesSwitchesTabsAndCancelsTheNetworkConfirmationByKeys)
{
    const auto unitsFile = dir() / "units.json";
    std::ofstream(unitsFile) << nlohmann::json::array(
                                    {{{"ip", kUnit},
                                      {"config",
                                       {{"IPAddress", kUnit}, {"Netmask", "255.255.255.0"}, {"Gateway", "10.232.1.254"},
                                        {"Channel", "3"}, {"CallMagic", "studio-b"}, {"Serial", "KT4-0002C9"}}}}})
                                    .dump();
    LanTest::Simulator sim(lan(), {"--units", unitsFile.string()}, dir());
    const std::string display = startDisplay();
    ASSERT_FALSE(display.empty()) << "Xvfb did not start";

    // Under AddressSanitizer: xkbcommon-x11 (Debian 12) hands strndup a keymap
    // name without a terminating NUL, which strict string checks read past;
    // the X11 platform is only this test's, so only its window drops them.
    const char* sanitizer = std::getenv("ASAN_OPTIONS");
    const std::string asanOptions =
        "ASAN_OPTIONS=" + std::string(sanitizer ? sanitizer : "") + ":strict_string_checks=0";
    LanTest::Process app(lan().consoleNs(),
                         {"env", "DISPLAY=" + display, "QT_QPA_PLATFORM=xcb", "TMPDIR=" + dir().string(), asanOptions,
                          "QT_LOGGING_RULES=vornlink.*.info=true", LanTest::kVornlinkBinary},
                         dir());
    ASSERT_TRUE(app.waitForStderrLine(
        LanTest::sidebarRowsLine(nlohmann::json::array({nlohmann::json::array({kUnit, "KT400 \u00b70002C9", ""})})),
        20s))
        << app.stderrText();
    // No window manager: the keyboard goes to the window that xdotool focuses.
    const Finished focus =
        xdotool(display, {"search", "--sync", "--onlyvisible", "--name", "^VornLink$", "windowfocus", "--sync"});
    ASSERT_EQ(focus.status, 0) << focus.err;

    // Tab to the list, Down selects the unit, Return goes to its editor's
    // tabs; Ctrl+2 shows Communication; five Tabs pass the tabs to Channel.
    press(display, keys({{"Tab", "Down", "Return", "ctrl+2"}, tabs(5), {"ctrl+a", "7", "ctrl+s"}}));
    // Every tab in turn, ending on Network; Ctrl+L and eleven Tabs (Query, the
    // fleet menu, Discover, five tabs, address, mask) reach Gateway.
    press(display, keys({{"ctrl+1", "ctrl+5", "ctrl+4", "ctrl+2", "ctrl+3", "ctrl+l"}, tabs(11), {"ctrl+a"}}));
    press(display, {"1", "0", "period", "2", "3", "2", "period", "1", "period", "1"});
    // Tab to "Apply network…", open the confirmation and cancel it with
    // Return (Cancel is the default), again with Escape; then Tab to Apply.
    press(display, {"Tab", "Return", "Return"});
    press(display, keys({{"ctrl+l"}, tabs(12), {"Return", "Escape"}}));
    press(display, keys({{"ctrl+l"}, tabs(12), {"Return", "Tab", "Return"}}));
    std::this_thread::sleep_for(1s);
    EXPECT_FALSE(app.wait(0ms).has_value()) << "the window ended: " << app.stderrText();

    const auto writes = writeBodies(sim.stopAndReadLog());
    // Each write goes out twice: the channel save, then the gateway apply.
    ASSERT_EQ(writes.size(), 4u) << app.stderrText();
    EXPECT_EQ(writes[0], writes[1]);
    EXPECT_TRUE(carries(writes[0], "Channel:7")) << writes[0];
    EXPECT_TRUE(carries(writes[0], "Gateway:10.232.1.254")) << writes[0];
    EXPECT_EQ(writes[2], writes[3]);
    EXPECT_TRUE(carries(writes[2], "Gateway:10.232.1.1")) << writes[2];
    EXPECT_TRUE(carries(writes[2], std::string("IPAddress:") + kUnit)) << writes[2];
}

}  // namespace
