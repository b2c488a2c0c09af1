// SPDX-License-Identifier: Apache-2.0
// Floods against the running window: junk of every kind at full speed, then
// ordinary units; and well-formed reports naming ten thousand units.
#include "FloodDatagrams.h"
#include "SidebarRows.h"
#include "StressTestCase.h"

namespace {

constexpr int kUnits = 20;
// Growth that a flood of junk may cause: the few junk units' rows, the
// bounded batch of decoded reports waiting for the main thread, and what the
// allocator keeps around; anything that holds on to datagrams is far above.
constexpr long kJunkGrowthLimitKib = 16 * 1024;
constexpr long kPerUnitLimitBytes = 16 * 1024;

// In a sanitizer build the resident memory is mostly the sanitizer's (shadow
// memory, quarantined frees), so the memory bounds hold only for plain builds;
// everything else is checked in both.
#ifdef VORN_SANITIZED_PROGRAM
constexpr bool kMemoryBoundsApply = false;
#else
constexpr bool kMemoryBoundsApply = true;
#endif

// The address of the top row in the sidebar's latest diagnostic line.
std::string topSidebarAddress(const std::string& err)
{
    const auto rows = LanTest::lastSidebarRows(err);
    return rows.empty() ? std::string() : rows[0][0].get<std::string>();
}

class FloodOnLan : public StressTestCase {
protected:
    // The junk flood of `datagrams`, then kUnits simulated units: the program
    // keeps running, keeps its memory, keeps ticking, and lists the units.
    void floodThenUnits(long datagrams)
    {
        startWindow();
        const auto settled = waitForReport([](const auto& r) { return r.atMs >= 2000; }, std::chrono::seconds(20));
        const long before = residentKib();
        const auto counters = udpCounters();

        auto sent = flood({"--count", std::to_string(datagrams), "--seed", "1"});
        ASSERT_TRUE(windowRunning()) << windowErrors();
        const auto drained = waitForReports(2);
        const long afterFlood = residentKib();
        const auto afterCounters = udpCounters();
        const int junkRows = drained.rows;

        LanTest::Simulator units(lan(), {"--count", std::to_string(kUnits), "--first-ip", "10.232.1.1"}, dir());
        const auto listed = waitForReport([&](const auto& r) { return r.rows >= junkRows + kUnits; },
                                          std::chrono::seconds(20));
        const long afterUnits = residentKib();
        // From the first report after the flood began to the second after it ended.
        const auto during = Stress::latenessBetween(reports(), settled.atMs + 1, drained.atMs);

        record("sent", sent["sent"]);
        record("sent_per_second", sent["rate"]);
        record("flood_seconds", sent["seconds"]);
        record("delivered_to_sockets", afterCounters.inDatagrams - counters.inDatagrams);
        record("dropped_buffer_full", afterCounters.receiveBufferErrors - counters.receiveBufferErrors);
        record("rss_before_kib", before);
        record("rss_after_flood_kib", afterFlood);
        record("rss_after_units_kib", afterUnits);
        record("latency_worst_ms_during_flood", during.worstMs);
        record("latency_mean_ms_during_flood", during.meanMs);
        record("junk_rows", junkRows);
        record("rows_after_units", listed.rows);

        ASSERT_TRUE(windowRunning()) << windowErrors();
        EXPECT_EQ(sent["sent"], std::to_string(datagrams));
        EXPECT_LE(junkRows, Flood::kJunkUnits);
        if (kMemoryBoundsApply)
            EXPECT_LT(afterFlood - before, kJunkGrowthLimitKib);
        else
            record("memory_bounds", "not checked in a sanitizer build");
        // Still ticking after the flood: the main thread is not stuck.
        EXPECT_GE(during.reports, 2);
        EXPECT_EQ(listed.rows, junkRows + kUnits);
        EXPECT_EQ(topSidebarAddress(windowErrors()), "10.232.1.1") << windowErrors();
    }
};

TEST_F(FloodOnLan, HundredThousandJunkDatagramsThenUnitsAreStillListed)
{
    floodThenUnits(100'000);
}

TEST_F(FloodOnLan, MillionJunkDatagramsThenUnitsAreStillListed)
{
    floodThenUnits(1'000'000);
}

// Well-formed reports naming ten thousand units at full speed, in passes (each
// in its own order) until each is listed or kMaxPasses are sent (a full
// socket buffer drops some of every pass); the memory each listed unit takes.
TEST_F(FloodOnLan, SpoofedReportsFromTenThousandAddressesAreListedAtAFewKilobytesEach)
{
    constexpr int kSpoofed = 10'000;
    constexpr int kMaxPasses = 8;
    startWindow();
    waitForReport([](const auto& r) { return r.atMs >= 2000; }, std::chrono::seconds(20));
    const long before = residentKib();
    const int rowsBefore = latest().rows;

    int passes = 0;
    int rows = rowsBefore;
    while (passes < kMaxPasses && rows < rowsBefore + kSpoofed && windowRunning()) {
        auto sent = flood({"--count", std::to_string(kSpoofed), "--spoof-units", std::to_string(kSpoofed),
                                 "--first-ip", "10.240.0.1"});
        ++passes;
        rows = waitForReports(2).rows;
        record("rows_after_pass_" + std::to_string(passes), rows);
        record("sent_per_second_pass_" + std::to_string(passes), sent["rate"]);
    }
    const long after = residentKib();
    const int listed = rows - rowsBefore;
    record("rss_before_kib", before);
    record("rss_after_kib", after);
    record("units_listed", listed);
    if (listed > 0)
        record("bytes_per_listed_unit", double(after - before) * 1024 / listed);

    ASSERT_TRUE(windowRunning()) << windowErrors();
    EXPECT_LE(listed, kSpoofed);
    ASSERT_GT(listed, 0);
    if (kMemoryBoundsApply)
        EXPECT_LT((after - before) * 1024 / listed, kPerUnitLimitBytes);
    else
        record("memory_bounds", "not checked in a sanitizer build");
}

}  // namespace
