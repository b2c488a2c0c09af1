// SPDX-License-Identifier: Apache-2.0
// A device editor on a fake link: units report what a test tells them, time
// moves by hand, and writes are recorded instead of sent. No socket is opened.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DeviceEditor.h"
#include "EditorLink.h"

// Readable QString values in failure messages.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace EditorTest {

// The edited unit.
inline constexpr const char* kUnitIp = "127.0.0.2";

// The least a unit can report and still load without a difference: the
// integer keys of "Save changes" (a missing one counts as the empty text),
// canonical; then `extra` on top.
Vorn::Config cleanUnit(const Vorn::Config& extra = {});

// `config` with `changes` written over it.
Vorn::Config overlaid(Vorn::Config config, const Vorn::Config& changes);

// The editor's link in tests.
class FakeLink : public EditorLink {
    Q_OBJECT

public:
    struct Write {
        std::string ip;
        Vorn::Config changes;
    };

    // 2024-03-05 14:03:27 UTC, an arbitrary fixed instant.
    static constexpr WallClock::time_point kStart{std::chrono::seconds(1709647407)};

    std::optional<Device> unit(const std::string& ip) const override;
    bool isOnline(const Device& unit) const override;
    WallClock::time_point now() const override { return now_; }
    void write(const std::string& ip, const Vorn::Config& changes) override;

    // A reply of the unit at `ip`, heard now: its configuration replaces the last one.
    void report(const Vorn::Config& config, const std::string& ip = kUnitIp);
    // Time passes without anyone noticing until the next tick or reply.
    void advance(WallClock::duration step) { now_ += step; }
    // The presence clock's tick.
    void tick() { emit changed(); }

    // Every write, oldest first.
    std::vector<Write> writes;

private:
    std::vector<Device> units_;
    WallClock::time_point now_ = kStart;
};

class EditorFixture : public testing::Test {
protected:
    FakeLink link;
    DeviceEditor editor;

    TallySection& tally() { return *editor.tally(); }
    CommunicationSection& communication() { return *editor.communication(); }
    NetworkSection& network() { return *editor.network(); }
    EditorHeader& header() { return *editor.header(); }

    void report(const Vorn::Config& config, const std::string& ip = kUnitIp) { link.report(config, ip); }
    // The editor opened on `ip`, as the window does on selection.
    void open(const std::string& ip = kUnitIp);
    // The changes of the latest write to `kUnitIp`; none when nothing was written.
    std::optional<Vorn::Config> lastWrite() const;
};

}  // namespace EditorTest
