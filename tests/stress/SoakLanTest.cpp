// SPDX-License-Identifier: Apache-2.0
// The soak: the window runs for a long time (30 minutes unless
// VORN_SOAK_MINUTES says otherwise) with about 500 simulated units whose set
// churns, while its second link goes down and up every minute. Its resident
// memory, open descriptors and threads are sampled every 30 s and printed as
// three series; after the warm-up they must stay flat, and at the end every
// unit ever simulated is listed (the table keeps units that fell silent).
#include <algorithm>
#include <cstdlib>
#include <optional>
#include <sstream>

#include "StressTestCase.h"

namespace {

using namespace std::chrono_literals;
using LanTest::IsolatedLan;

constexpr int kSteadyUnits = 250;     // office units that answer all along
constexpr int kChurningUnits = 150;   // office units that come and go in a group
constexpr int kStudioUnits = 100;     // behind the link that goes down and up
// The churning group lives at one of these ranges at a time, in turn: units
// leave, come back at another address, and return later to the first.
constexpr const char* kChurnRanges[] = {"10.232.10.1", "10.232.20.1", "10.232.30.1"};
constexpr int kEverListed = kSteadyUnits + 3 * kChurningUnits + kStudioUnits;
constexpr auto kChurnPeriod = 20s;
constexpr auto kLinkPeriod = 30s;  // down for 30 s, up for 30 s
constexpr auto kSamplePeriod = 30s;

int soakMinutes()
{
    const char* text = std::getenv("VORN_SOAK_MINUTES");
    const int minutes = text != nullptr ? std::atoi(text) : 30;
    return minutes > 0 ? minutes : 30;
}

struct Sample {
    long seconds;
    long residentKib;
    long descriptors;
    long threads;
};

std::string series(const std::vector<Sample>& samples, long Sample::*field)
{
    std::ostringstream text;
    for (const auto& sample : samples)
        text << (text.tellp() > 0 ? " " : "") << sample.*field;
    return text.str();
}

class SoakOnLan : public StressTestCase {
protected:
    LanTest::Topology topology() const override { return LanTest::Topology::TwoLinks; }

    void startChurn(int round)
    {
        churn_.reset();
        churn_.emplace(lan().unitsNs(),
                       std::vector<std::string>{"--count", std::to_string(kChurningUnits), "--first-ip",
                                                kChurnRanges[round % 3], "--seed", std::to_string(100 + round)},
                       dir());
    }

    Sample sample(long seconds) const
    {
        return {seconds, residentKib(), ProcStatus::openDescriptors(pid()), ProcStatus::threadCount(pid())};
    }

    std::optional<LanTest::Simulator> churn_;
};

TEST_F(SoakOnLan, FiveHundredChurningUnitsWhileALinkGoesDownAndUpEveryMinute)
{
    const auto length = std::chrono::minutes(soakMinutes());
    const auto warmUp = std::max<std::chrono::seconds>(2min, length / 6);
    LanTest::Simulator steady(lan(), {"--count", std::to_string(kSteadyUnits), "--first-ip", "10.232.1.1"}, dir());
    LanTest::Simulator studio(lan().studioNs(),
                              {"--count", std::to_string(kStudioUnits), "--first-ip",
                               IsolatedLan::kFirstStudioUnitAddress},
                              dir());
    startChurn(0);
    startWindow();

    std::vector<Sample> samples;
    const auto start = std::chrono::steady_clock::now();
    auto nextChurn = start + kChurnPeriod;
    auto nextLink = start + kLinkPeriod;
    auto nextSample = start;
    int churnRound = 0;
    bool studioUp = true;
    for (auto now = start; now - start < length && windowRunning(); now = std::chrono::steady_clock::now()) {
        if (now >= nextSample) {
            samples.push_back(sample(std::chrono::duration_cast<std::chrono::seconds>(now - start).count()));
            nextSample += kSamplePeriod;
        }
        if (now >= nextChurn) {
            startChurn(++churnRound);
            nextChurn += kChurnPeriod;
        }
        if (now >= nextLink) {
            studioUp = !studioUp;
            lan().setStudioLinkUp(studioUp);
            nextLink += kLinkPeriod;
        }
        std::this_thread::sleep_for(200ms);
    }
    ASSERT_TRUE(windowRunning()) << windowErrors();
    if (!studioUp)
        lan().setStudioLinkUp(true);
    // Two discovery rounds with every link up.
    std::this_thread::sleep_for(11s);
    samples.push_back(sample(std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start).count()));
    const auto final = waitForReports(2);

    record("minutes", static_cast<double>(length.count()));
    record("sample_seconds", series(samples, &Sample::seconds));
    record("resident_kib", series(samples, &Sample::residentKib));
    record("open_descriptors", series(samples, &Sample::descriptors));
    record("threads", series(samples, &Sample::threads));
    record("rows_listed", final.rows);

    ASSERT_TRUE(windowRunning()) << windowErrors();
    EXPECT_EQ(final.rows, kEverListed);
    const auto settled = std::find_if(samples.begin(), samples.end(),
                                      [&](const Sample& s) { return s.seconds >= warmUp.count(); });
    ASSERT_NE(settled, samples.end());
    for (auto s = settled; s != samples.end(); ++s) {
        SCOPED_TRACE("at " + std::to_string(s->seconds) + " s");
        // Flat: within a tenth of the memory after warm-up; a send socket or
        // a worker thread caught in passing is no growth.
        EXPECT_LE(s->residentKib, settled->residentKib + settled->residentKib / 10);
        EXPECT_LE(s->descriptors, settled->descriptors + 2);
        EXPECT_LE(s->threads, settled->threads + 2);
    }
}

}  // namespace
