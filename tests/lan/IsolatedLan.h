// One private LAN made by scripts/lan-harness: a console namespace and a units
// namespace joined by a veth pair, removed again when the object goes away.
//
//   console namespace (run vornlink here): 10.231.0.1/24, default via 10.231.0.2,
//       so the limited broadcast and the units' addresses leave by the veth;
//   units namespace (run vorn-sim here): 10.231.0.2/24, and every address of
//       10.232.0.0/16 is local, so the simulator can answer as any unit there.
//
// Typical use in a test:
//   if (auto reason = LanTest::IsolatedLan::unavailableReason()) GTEST_SKIP() << *reason;
//   LanTest::IsolatedLan lan;
//   ... LanTest::Process(lan.consoleNs(), {...}, dir) ...
#pragma once

#include <optional>
#include <string>

namespace LanTest {

class IsolatedLan {
public:
    static constexpr const char* kConsoleAddress = "10.231.0.1";
    static constexpr const char* kUnitsAddress = "10.231.0.2";
    static constexpr const char* kFirstUnitAddress = "10.232.1.1";

    // Why no LAN can be made on this machine (not root, no namespaces), or
    // nullopt when it can. Checked once per process; the first call also
    // removes pairs left behind by processes that no longer exist.
    static std::optional<std::string> unavailableReason();

    // Makes the pair; throws std::runtime_error when that fails.
    IsolatedLan();
    // Removes the pair, ending whatever still runs inside it.
    ~IsolatedLan();
    IsolatedLan(const IsolatedLan&) = delete;
    IsolatedLan& operator=(const IsolatedLan&) = delete;

    const std::string& consoleNs() const { return consoleNs_; }
    const std::string& unitsNs() const { return unitsNs_; }

private:
    std::string name_;
    std::string consoleNs_;
    std::string unitsNs_;
};

}  // namespace LanTest
