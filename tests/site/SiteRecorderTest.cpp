// SPDX-License-Identifier: Apache-2.0
// The store on its own thread: what is handed over arrives, in one batch,
// and a batch that fails is told.
#include <gtest/gtest.h>

#include <mutex>

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

TEST(SiteRecorder, TheProblemListenerHearsABatchFailAndTheNextOneGoThrough)
{
    Scratch scratch;
    Site::SiteRecorder recorder(scratch.path());
    ASSERT_EQ(recorder.state(), Site::StoreState::Ready);  // opened before another program takes the lock
    std::mutex heardLock;
    std::vector<QString> heard;
    recorder.setProblemListener([&](Site::StoreState, const QString& problem) {
        std::lock_guard guard(heardLock);
        heard.push_back(problem);
    });
    RawStore other(scratch.path());
    // Another program holds the write lock longer than the store waits for it.
    ASSERT_TRUE(other.exec(QStringLiteral("BEGIN IMMEDIATE")));
    recorder.logged({at(1), "found 10.77.1.2"});
    recorder.runAndWait([](Site::SiteStore&) {});
    recorder.runAndWait([](Site::SiteStore&) {});  // the listener runs after a batch's jobs
    EXPECT_FALSE(recorder.problem().isEmpty());
    ASSERT_TRUE(other.exec(QStringLiteral("ROLLBACK")));
    recorder.logged({at(2), "found 10.77.1.3"});
    recorder.runAndWait([](Site::SiteStore&) {});
    recorder.runAndWait([](Site::SiteStore&) {});

    std::lock_guard guard(heardLock);
    ASSERT_EQ(heard.size(), 2u);
    EXPECT_TRUE(heard[0].contains(QStringLiteral("locked")) || heard[0].contains(QStringLiteral("busy")))
        << heard[0].toStdString();
    EXPECT_EQ(heard[1], QString());
    EXPECT_TRUE(recorder.problem().isEmpty());
}
