// SPDX-License-Identifier: Apache-2.0
// The store on its own thread: what is handed over arrives, in one batch.
#include <gtest/gtest.h>

#include "SiteRecorder.h"
#include "SiteTestKit.h"

using namespace SiteTest;

namespace {

class SiteRecorderOn : public OnEachStore {};
INSTANTIATE_TEST_SUITE_P(Stores, SiteRecorderOn, ::testing::Values(Backend::File, Backend::Server), backendName);

}  // namespace

TEST_P(SiteRecorderOn, WhatIsHandedOverIsStoredBeforeALaterJobRuns)
{
    Site::SiteRecorder recorder(location());
    recorder.runAndWait([](Site::SiteStore&) {});  // a server's connection is made on the store's thread
    ASSERT_EQ(recorder.state(), Site::StoreState::Ready);

    for (int unit = 0; unit < 50; ++unit)
        recorder.heard(sighting("KT-" + std::to_string(unit), "10.77.1." + std::to_string(unit + 1), 0));
    recorder.wrote({at(1), "vornlink", "desk", "kim", "KT-1", "10.77.1.2", {{"Channel", "5"}},
                    Site::Verdict::NoAnswer, {}});
    recorder.logged({at(1), "found 10.77.1.2"});
    std::size_t units = 0;
    recorder.runAndWait([&](Site::SiteStore& store) { units = store.units().size(); });

    EXPECT_EQ(units, 50u);
    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT verdict FROM writes"), "no answer");
    EXPECT_EQ(raw.value("SELECT message FROM activity"), "found 10.77.1.2");
}

TEST_P(SiteRecorderOn, WhatIsPendingIsStoredWhenTheRecorderEnds)
{
    {
        Site::SiteRecorder recorder(location());
        recorder.heard(sighting("KT-1", "10.77.1.2", 0));
    }
    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT count(*) FROM units"), "1");
}

TEST(SiteRecorder, AnUnavailableStoreSaysWhy)
{
    Scratch scratch;
    QFile blocker(scratch.dir.filePath("vornlink"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));

    Site::SiteRecorder recorder(scratch.dir.filePath("vornlink/site.sqlite"));
    recorder.heard(sighting("KT-1", "10.77.1.2", 0));
    recorder.runAndWait([](Site::SiteStore&) {});

    EXPECT_EQ(recorder.state(), Site::StoreState::Unavailable);
    EXPECT_FALSE(recorder.problem().isEmpty());
}
