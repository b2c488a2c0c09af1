// SPDX-License-Identifier: Apache-2.0
#include "IsolatedLan.h"

#include <unistd.h>

#include <atomic>
#include <stdexcept>

#include "LanPaths.h"
#include "Spawn.h"
#include "TextFile.h"
#include "TempDir.h"

namespace LanTest {
namespace {

constexpr int kHarnessUnavailable = 77;

int runHarness(const std::vector<std::string>& arguments, const std::filesystem::path& stderrPath = {})
{
    std::vector<std::string> argv{kHarnessScript};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return detail::waitForExit(detail::spawn(argv, {}, stderrPath));
}

std::optional<std::string> checkHarness()
{
    if (::geteuid() != 0)
        return "network namespaces need root";
    if (::access(kHarnessScript, X_OK) != 0)
        return std::string("cannot run ") + kHarnessScript;
    TempDir dir;
    if (runHarness({"cleanup"}) != 0)
        return std::nullopt;  // let the constructor report the harness failure
    const int status = runHarness({"check"}, dir / "check.err");
    if (status == kHarnessUnavailable)
        return readTextFile(dir / "check.err");
    return std::nullopt;
}

// Unique per process and per pair, at most 14 characters: "vl" + pid + "n" + count.
std::string nextPairName()
{
    static std::atomic<unsigned> count{0};
    return "vl" + std::to_string(::getpid()) + "n" + std::to_string(count++ % 1000);
}

}  // namespace

std::optional<std::string> IsolatedLan::unavailableReason()
{
    static const std::optional<std::string> reason = checkHarness();
    return reason;
}

IsolatedLan::IsolatedLan(Topology topology)
    : name_(nextPairName()), consoleNs_(name_ + "c"), unitsNs_(name_ + "u"), studioNs_(name_ + "s"),
      studioLink_(name_ + "t"), routedNs_(name_ + "f"), routerLink_(name_ + "g")
{
    const char* topologyName = topology == Topology::TwoLinks ? "two-links"
                               : topology == Topology::Studio ? "studio"
                               : topology == Topology::Routed ? "routed"
                                                              : "office";
    const int status = runHarness({"up", name_, "--owner", std::to_string(::getpid()), "--topology", topologyName});
    if (status != 0)
        throw std::runtime_error("lan-harness up " + name_ + " failed with status " + std::to_string(status));
}

void IsolatedLan::setStudioLinkUp(bool up) const
{
    const int status = runHarness({"link", name_, "studio", up ? "up" : "down"});
    if (status != 0)
        throw std::runtime_error("lan-harness link " + name_ + " failed with status " + std::to_string(status));
}

IsolatedLan::~IsolatedLan()
{
    try {
        runHarness({"down", name_});
    } catch (const std::exception&) {
        // The next unavailableReason() of any test process removes the pair.
    }
}

}  // namespace LanTest

namespace LanTest {

void IsolatedLan::addStudioAlias(const std::string& addressWithPrefix) const
{
    const int status = runHarness({"alias", name_, "studio", addressWithPrefix});
    if (status != 0)
        throw std::runtime_error("lan-harness alias " + name_ + " failed with status " + std::to_string(status));
}

}  // namespace LanTest
