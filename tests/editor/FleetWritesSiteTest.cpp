// SPDX-License-Identifier: Apache-2.0
// Writes to several units from the window go into the site store, each with
// its verdict: "Save to N units" of the editor of several units on the fake
// link, and a restore from a backup file through a client on loopback. The
// store is a real SQLite file in a temporary folder, whose writes table is read
// back through a connection of the test's own, or a real PostgreSQL server
// that is stopped and started again in the middle of a save.
#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <thread>

#include "BackupFile.h"
#include "ClientTestKit.h"
#include "EditorTestKit.h"
#include "MultiEditor.h"
#include "RestoreReview.h"
#include "SiteRecorder.h"
#include "TestServer.h"
#include "WindowRecorder.h"

using namespace EditorTest;
using namespace std::chrono_literals;

namespace {

struct StoredWrite {
    std::string unitKey;
    std::string program;
    std::string sent;
    std::string verdict;
    std::string unconfirmed;
};

class FleetWritesSiteTest : public testing::Test {
protected:
    QTemporaryDir dir;
    std::unique_ptr<Site::SiteRecorder> recorder;

    void SetUp() override
    {
        recorder = std::make_unique<Site::SiteRecorder>(dir.filePath(QStringLiteral("site.sqlite")));
        ASSERT_EQ(recorder->state(), Site::StoreState::Ready);
        WindowRecorder::use(recorder.get());
    }
    void TearDown() override { WindowRecorder::use(nullptr); }

    // Every stored write by unit, after what was handed over is in the file.
    std::vector<StoredWrite> storedWrites()
    {
        recorder->runAndWait([](Site::SiteStore&) {});
        std::vector<StoredWrite> writes;
        {
            auto db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("look"));
            db.setDatabaseName(dir.filePath(QStringLiteral("site.sqlite")));
            EXPECT_TRUE(db.open());
            QSqlQuery query(db);
            EXPECT_TRUE(query.exec(QStringLiteral(
                "SELECT unit_key, program, sent, verdict, unconfirmed FROM writes ORDER BY unit_key")));
            while (query.next()) {
                writes.push_back({query.value(0).toString().toStdString(), query.value(1).toString().toStdString(),
                                  query.value(2).toString().toStdString(), query.value(3).toString().toStdString(),
                                  query.value(4).toString().toStdString()});
            }
            db.close();
        }
        QSqlDatabase::removeDatabase(QStringLiteral("look"));
        return writes;
    }
};

Vorn::Config unit(const std::string& serial, const std::string& channel)
{
    return cleanUnit({{"Serial", serial}, {"Channel", channel}});
}

}  // namespace

TEST_F(FleetWritesSiteTest, SaveToSeveralUnitsRecordsEachWriteWithItsVerdict)
{
    FakeLink link;
    link.report(unit("KT4-000001", "1"), "127.0.0.2");
    link.report(unit("KT4-000002", "2"), "127.0.0.3");
    link.report(unit("KT4-000003", "3"), "127.0.0.4");
    MultiEditor editor;
    editor.setLink(&link);
    editor.setAddresses({"127.0.0.2", "127.0.0.3", "127.0.0.4"});
    editor.communication()->fieldAs<TextField>("Channel")->setText(QStringLiteral("7"));
    editor.save();
    // Nothing is recorded before a verdict.
    EXPECT_TRUE(storedWrites().empty());

    link.advance(SaveVerdict::kFirstCountedReply + 100ms);
    link.report(unit("KT4-000001", "7"), "127.0.0.2");
    link.report(unit("KT4-000002", "2"), "127.0.0.3");
    link.advance(SaveVerdict::kAnswerDeadline);
    link.tick();
    ASSERT_EQ(editor.writer()->waiting(), 0);

    const auto writes = storedWrites();
    ASSERT_EQ(writes.size(), 3u);
    EXPECT_EQ(writes[0].unitKey, "serial:KT4-000001");
    EXPECT_EQ(writes[0].program, "vornlink");
    EXPECT_EQ(writes[0].sent, R"({"Channel":"7"})");
    EXPECT_EQ(writes[0].verdict, "confirmed");
    EXPECT_EQ(writes[1].unitKey, "serial:KT4-000002");
    EXPECT_EQ(writes[1].verdict, "not confirmed");
    EXPECT_EQ(writes[1].unconfirmed, R"(["Channel"])");
    EXPECT_EQ(writes[2].unitKey, "serial:KT4-000003");
    EXPECT_EQ(writes[2].verdict, "no answer");
}

TEST_F(FleetWritesSiteTest, ARestoreFromABackupFileRecordsItsWrite)
{
    auto client = ClientTest::loopbackClient();
    ClientTest::ManualTime time(client->clock());
    client->ingest(Vorn::Reply{"127.0.0.2", Vorn::kCmdReport, unit("KT4-000001", "3")});
    const std::string file = dir.filePath(QStringLiteral("studio.vornbackup")).toStdString();
    ASSERT_TRUE(Settings::writeBackupFile(
        file, {"2026-11-20T12:00:00Z", {Settings::backupUnitOf("127.0.0.2", unit("KT4-000001", "9"))}}));
    RestoreReview review;
    review.setClient(client.get());
    ASSERT_TRUE(review.open(QUrl::fromLocalFile(QString::fromStdString(file)))) << review.error().toStdString();
    BatchWriter writer;
    writer.setClient(client.get());

    review.restore(&writer);
    time.advance(SaveVerdict::kFirstCountedReply + 100ms);
    client->ingest(Vorn::Reply{"127.0.0.2", Vorn::kCmdReport, unit("KT4-000001", "9")});

    ASSERT_EQ(writer.confirmed(), 1);
    const auto writes = storedWrites();
    ASSERT_EQ(writes.size(), 1u);
    EXPECT_EQ(writes[0].unitKey, "serial:KT4-000001");
    EXPECT_EQ(writes[0].sent, R"({"Channel":"9"})");
    EXPECT_EQ(writes[0].verdict, "confirmed");
}

TEST(FleetWritesOnServer, ASiteServerStoppedAndStartedDuringASaveToSeveralUnitsLosesNoWrite)
{
    auto& server = SiteTest::TestServer::shared();
    if (!server.running())
        GTEST_SKIP() << "no PostgreSQL server for the test: " << server.whyNot().toStdString();
    const QString uri = server.newDatabase();
    ASSERT_FALSE(uri.isEmpty());
    QTemporaryDir dir;
    Site::SiteRecorder recorder(uri, dir.filePath(QStringLiteral("journal.sqlite")));
    ASSERT_EQ(recorder.state(), Site::StoreState::Ready) << recorder.problem().toStdString();
    WindowRecorder::use(&recorder);
    const auto forget = qScopeGuard([&] {
        WindowRecorder::use(nullptr);
        if (!server.running())
            server.start();
    });
    FakeLink link;
    for (int unit = 1; unit <= 3; ++unit)
        link.report(::unit("KT4-00000" + std::to_string(unit), "1"), "127.0.0." + std::to_string(unit + 1));
    MultiEditor editor;
    editor.setLink(&link);
    editor.setAddresses({"127.0.0.2", "127.0.0.3", "127.0.0.4"});
    editor.communication()->fieldAs<TextField>("Channel")->setText(QStringLiteral("7"));

    editor.save();
    ASSERT_TRUE(server.stop());
    link.advance(SaveVerdict::kFirstCountedReply + 100ms);
    link.report(::unit("KT4-000001", "7"), "127.0.0.2");
    link.report(::unit("KT4-000002", "7"), "127.0.0.3");
    recorder.runAndWait([](Site::SiteStore&) {});
    // Two verdicts are in, and wait in the journal.
    ASSERT_EQ(recorder.state(), Site::StoreState::Unreachable);
    ASSERT_TRUE(QFile::exists(dir.filePath(QStringLiteral("journal.sqlite"))));
    ASSERT_TRUE(server.start()) << server.whyNot().toStdString();
    link.report(::unit("KT4-000003", "7"), "127.0.0.4");
    link.advance(SaveVerdict::kAnswerDeadline);
    link.tick();
    ASSERT_EQ(editor.writer()->waiting(), 0);
    // Back on the server (tried again every couple of seconds), with the journal sent first.
    bool back = false;
    for (int attempt = 0; attempt < 600 && !back; ++attempt) {
        recorder.runAndWait([&back](Site::SiteStore& store) { back = store.canRecord(); });
        if (!back)
            std::this_thread::sleep_for(100ms);
    }
    ASSERT_TRUE(back) << recorder.problem().toStdString();
    recorder.runAndWait([](Site::SiteStore&) {});

    auto store = Site::SiteStore::open(uri);
    for (const char* serial : {"KT4-000001", "KT4-000002", "KT4-000003"}) {
        const auto writes = store->writes(Site::unitKey(serial, {}));
        ASSERT_EQ(writes.size(), 1u) << serial;
        EXPECT_EQ(writes[0].sent, (Vorn::Config{{"Channel", "7"}})) << serial;
        EXPECT_EQ(writes[0].verdict, Site::Verdict::Confirmed) << serial;
    }
}
