// SPDX-License-Identifier: Apache-2.0
// Base of the stress tests: the real vornlink window (offscreen) in the
// console namespace of a private LAN, with its latency probe on, and the ways
// to watch it: the probe's reports, its resident memory, its namespace's UDP
// counters. Skips like every LAN test when no private LAN can be made.
#pragma once

#include <cstdio>
#include <functional>
#include <thread>

#include "LanTestCase.h"
#include "ProcStatus.h"
#include "StressKit.h"

class StressTestCase : public LanTestCase {
protected:
    static constexpr auto kFloodTimeout = std::chrono::seconds(150);

    void startWindow()
    {
        window_.emplace(lan().consoleNs(),
                        std::vector<std::string>{"env", "QT_QPA_PLATFORM=offscreen", "TMPDIR=" + dir().string(),
                                                 "QT_LOGGING_RULES=vornlink.*.info=true", LanTest::kVornlinkBinary},
                        dir());
        ASSERT_TRUE(window_->waitForStderrLine("vornlink.window: first frame", std::chrono::seconds(30)))
            << window_->stderrText();
        const auto pid = Stress::processInNamespace(lan().consoleNs(), "vornlink");
        ASSERT_TRUE(pid.has_value());
        pid_ = *pid;
    }

    bool windowRunning() { return !window_->wait(std::chrono::milliseconds(0)).has_value(); }
    std::string windowErrors() const { return window_->stderrText(); }
    pid_t pid() const { return pid_; }
    long residentKib() const { return ProcStatus::residentKib(pid_); }
    Stress::UdpCounters udpCounters() const { return Stress::udpCounters(pid_); }
    std::vector<Stress::LatencyReport> reports() const { return Stress::latencyReports(window_->stderrText()); }

    // The newest report (zeros before the first one).
    Stress::LatencyReport latest() const
    {
        const auto all = reports();
        return all.empty() ? Stress::LatencyReport{} : all.back();
    }

    // Waits until a report satisfies `done`, the program ends, or `timeout`
    // passes; the last report seen.
    Stress::LatencyReport waitForReport(const std::function<bool(const Stress::LatencyReport&)>& done,
                                        std::chrono::seconds timeout)
    {
        const auto deadline = std::chrono::steady_clock::now() + timeout;
        Stress::LatencyReport last = latest();
        while (!done(last) && windowRunning() && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            last = latest();
        }
        return last;
    }

    // Waits for `count` more reports: the main thread has worked off what was queued.
    Stress::LatencyReport waitForReports(int count)
    {
        const std::size_t target = reports().size() + static_cast<std::size_t>(count);
        waitForReport([&](const Stress::LatencyReport&) { return reports().size() >= target; },
                      std::chrono::seconds(5 * count + 10));
        return latest();
    }

    // Runs vorn_flood in the units namespace against the console's port; its summary.
    std::map<std::string, std::string> flood(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), {VORN_FLOOD, "--netns", lan().unitsNs(), "--to",
                                             LanTest::IsolatedLan::kConsoleAddress, "--max-seconds", "120"});
        LanTest::Process sender(lan().unitsNs(), arguments, dir());
        const auto status = sender.wait(kFloodTimeout);
        EXPECT_EQ(status, 0) << sender.stderrText();
        return Stress::keyValues(sender.stdoutText());
    }

    // A figure for the report: printed, and kept in the test's XML result.
    void record(const std::string& key, const std::string& value)
    {
        RecordProperty(key, value);
        std::printf("  %s = %s\n", key.c_str(), value.c_str());
    }
    void record(const std::string& key, double value)
    {
        char text[64];
        std::snprintf(text, sizeof text, "%.6g", value);
        record(key, std::string(text));
    }

private:
    std::optional<LanTest::Process> window_;
    pid_t pid_ = -1;
};
