// SPDX-License-Identifier: Apache-2.0
// One private LAN made by scripts/lan-harness: a console namespace and a units
// namespace joined by a veth pair, removed again when the object goes away.
//
//   console namespace (run vornlink here): 10.231.0.1/24, default via 10.231.0.2,
//       so the limited broadcast and the units' addresses leave by the veth;
//   units namespace (run vorn-sim here): 10.231.0.2/12, and every address of
//       10.232.0.0/16 is local, so the simulator can answer as any unit there.
// With Topology::TwoLinks the console also has a studio link without gateway
// (10.77.1.1/24) to a studio namespace where 10.77.1.128/25 and 192.168.0.0/25
// are local (and 192.168.0.128/25 on the link, for a console alias address); Topology::Studio has that link alone and no default route.
// Topology::Routed has the office link and a subnet behind a router: the
// console's router link (10.77.2.1/24) with a route to 10.78.5.0/24 via
// 10.77.2.2, and a routed namespace behind the router where 10.78.5.128/25 is
// local; no broadcast ever reaches it.
//
// Typical use in a test:
//   if (auto reason = LanTest::IsolatedLan::unavailableReason()) GTEST_SKIP() << *reason;
//   LanTest::IsolatedLan lan;
//   ... LanTest::Process(lan.consoleNs(), {...}, dir) ...
#pragma once

#include <optional>
#include <string>

namespace LanTest {

enum class Topology { Office, TwoLinks, Studio, Routed };

class IsolatedLan {
public:
    static constexpr const char* kConsoleAddress = "10.231.0.1";
    static constexpr const char* kUnitsAddress = "10.231.0.2";
    static constexpr const char* kFirstUnitAddress = "10.232.1.1";
    static constexpr const char* kStudioConsoleAddress = "10.77.1.1";
    static constexpr const char* kFirstStudioUnitAddress = "10.77.1.129";
    // Outside every subnet of the console: a unit with a factory-default address.
    static constexpr const char* kWrongSubnetAddress = "192.168.0.50";
    static constexpr const char* kRouterLinkConsoleAddress = "10.77.2.1";
    static constexpr const char* kRoutedSubnet = "10.78.5.0/24";
    static constexpr const char* kFirstRoutedUnitAddress = "10.78.5.129";

    // Why no LAN can be made on this machine (not root, no namespaces), or
    // nullopt when it can. Checked once per process; the first call also
    // removes pairs left behind by processes that no longer exist.
    static std::optional<std::string> unavailableReason();

    // Makes the namespaces; throws std::runtime_error when that fails.
    explicit IsolatedLan(Topology topology = Topology::Office);
    // Removes the pair, ending whatever still runs inside it.
    ~IsolatedLan();
    IsolatedLan(const IsolatedLan&) = delete;
    IsolatedLan& operator=(const IsolatedLan&) = delete;

    const std::string& consoleNs() const { return consoleNs_; }
    const std::string& unitsNs() const { return unitsNs_; }
    const std::string& studioNs() const { return studioNs_; }
    // The namespace behind the router (Topology::Routed).
    const std::string& routedNs() const { return routedNs_; }
    // The console's office interface (named as its namespace), by name.
    const std::string& officeLink() const { return consoleNs_; }
    // The console's studio interface, by name.
    const std::string& studioLink() const { return studioLink_; }
    // The console's interface towards the router, by name.
    const std::string& routerLink() const { return routerLink_; }

    // Brings the console's end of the studio link up or down; throws on failure.
    void setStudioLinkUp(bool up) const;
    // Adds `addressWithPrefix` (e.g. "192.168.0.200/24") to the console's
    // studio link; throws on failure.
    void addStudioAlias(const std::string& addressWithPrefix) const;

private:
    std::string name_;
    std::string consoleNs_;
    std::string unitsNs_;
    std::string studioNs_;
    std::string studioLink_;
    std::string routedNs_;
    std::string routerLink_;
};

}  // namespace LanTest
