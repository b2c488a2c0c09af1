// SPDX-License-Identifier: Apache-2.0
// Base of the LAN tests: skips when no private LAN can be made here, otherwise
// gives each test its own namespace pair and scratch directory.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "LanFixture.h"

class LanTestCase : public ::testing::Test {
protected:
    static constexpr auto kReadyTimeout = std::chrono::seconds(10);
    // Generous: a self-test run takes 2.4 s; this only stops a hung program.
    static constexpr auto kRunTimeout = std::chrono::seconds(30);

    struct Finished {
        std::optional<int> status;  // nullopt: still running at the timeout, then killed
        std::string out;
        std::string err;
    };

    void SetUp() override
    {
        if (auto reason = LanTest::IsolatedLan::unavailableReason())
            GTEST_SKIP() << *reason;
        lan_.emplace(topology());
        // What the programs remember and prefer stays in this test's folder.
        ::setenv("XDG_DATA_HOME", (dir() / "xdg-data").c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (dir() / "xdg-config").c_str(), 1);
    }

    // The shape of the LAN each test gets; suites override it.
    virtual LanTest::Topology topology() const { return LanTest::Topology::Office; }

    const LanTest::IsolatedLan& lan() const { return *lan_; }
    const std::filesystem::path& dir() const { return dir_.path(); }

    // Runs argv in the console namespace to its end.
    Finished runInConsole(const std::vector<std::string>& argv) const
    {
        LanTest::Process process(lan().consoleNs(), argv, dir());
        const auto status = process.wait(kRunTimeout);
        return {status, process.stdoutText(), process.stderrText()};
    }

private:
    LanTest::TempDir dir_;
    std::optional<LanTest::IsolatedLan> lan_;
};
