// SPDX-License-Identifier: Apache-2.0
// The store when things go wrong: a damaged or cut-short file, a file of a
// newer VornLink (file or server), a folder that cannot be written, two
// programs writing at once (file or server) and a writer killed in the middle
// of a burst.
#include <gtest/gtest.h>

#include <pwd.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include <thread>

#include "SiteStore.h"
#include "SiteTestKit.h"
#include "SqliteFile.h"

using namespace SiteTest;
using Site::SiteStore;

namespace {

QStringList damagedCopies(const QTemporaryDir& dir)
{
    return QDir(dir.path()).entryList({"site.sqlite.damaged-*"}, QDir::Files);
}

void fillWithUnits(const QString& path, int count)
{
    auto store = SiteStore::open(path);
    std::vector<Site::Sighting> sightings;
    for (int i = 0; i < count; ++i)
        sightings.push_back(sighting("KT-" + std::to_string(1000 + i), "10.77.3." + std::to_string(i % 250), 0,
                                     {{"Padding", std::string(200, 'x')}}));
    ASSERT_TRUE(store->record(sightings));
}

struct Outcome {
    int state = -1;
    std::string problem;
};

// Opens the store in another process: as the user "nobody" when this test runs
// as root (root writes into any folder, so a read-only folder shows nothing).
Outcome openElsewhere(const QString& path)
{
    int pipeEnds[2];
    if (::pipe(pipeEnds) != 0)
        return {};
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(pipeEnds[1], STDOUT_FILENO);
        if (::geteuid() == 0) {
            const passwd* nobody = ::getpwnam("nobody");
            if (!nobody || ::setgid(nobody->pw_gid) != 0 || ::setuid(nobody->pw_uid) != 0)
                ::_exit(3);
        }
        ::execl(VORN_SITE_BURST_WRITER, VORN_SITE_BURST_WRITER, "open", QFile::encodeName(path).constData(),
                static_cast<char*>(nullptr));
        ::_exit(4);
    }
    ::close(pipeEnds[1]);
    std::string text;
    char buffer[512];
    for (ssize_t n; (n = ::read(pipeEnds[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(n));
    ::close(pipeEnds[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    Outcome outcome;
    if (std::sscanf(text.c_str(), "state %d", &outcome.state) != 1)
        return outcome;
    const auto problem = text.find("problem ");
    if (problem != std::string::npos)
        outcome.problem = text.substr(problem + 8, text.find('\n', problem) - problem - 8);
    return outcome;
}

class SiteFaultsOn : public OnEachStore {};
INSTANTIATE_TEST_SUITE_P(Stores, SiteFaultsOn, ::testing::Values(Backend::File, Backend::Server), backendName);

// A folder the other process may enter but not write.
QString readOnlyFolder(const QTemporaryDir& dir)
{
    ::chmod(QFile::encodeName(dir.path()).constData(), 0755);
    const QString folder = dir.filePath("locked");
    QDir().mkpath(folder);
    ::chmod(QFile::encodeName(folder).constData(), 0555);
    return folder;
}

}  // namespace

TEST(SiteFaults, AGarbageFileIsMovedAsideAndAFreshStoreStarted)
{
    Scratch scratch;
    {
        QFile file(scratch.path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(8192, '\x5a'));
    }

    auto store = SiteStore::open(scratch.path(), at(0));

    EXPECT_EQ(store->state(), Site::StoreState::Ready);
    const auto notice = store->takeDamagedNotice();
    ASSERT_TRUE(notice);
    EXPECT_EQ(*notice, scratch.path() + ".damaged-20261120T000000Z");
    EXPECT_FALSE(store->takeDamagedNotice());
    EXPECT_EQ(damagedCopies(scratch.dir), QStringList{"site.sqlite.damaged-20261120T000000Z"});
    QFile kept(*notice);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), QByteArray(8192, '\x5a'));
    EXPECT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));
}

TEST(SiteFaults, ACutShortFileIsMovedAside)
{
    Scratch scratch;
    fillWithUnits(scratch.path(), 400);
    const qint64 size = QFileInfo(scratch.path()).size();
    ASSERT_GT(size, 40000);
    ASSERT_TRUE(QFile::resize(scratch.path(), size / 2));

    auto store = SiteStore::open(scratch.path(), at(0));

    EXPECT_EQ(store->state(), Site::StoreState::Ready);
    EXPECT_TRUE(store->takeDamagedNotice());
    EXPECT_TRUE(store->units().empty());
    EXPECT_EQ(damagedCopies(scratch.dir).size(), 1);
}

TEST(SiteFaults, AnIntactFileIsNotMovedAside)
{
    Scratch scratch;
    fillWithUnits(scratch.path(), 400);

    auto store = SiteStore::open(scratch.path());

    EXPECT_FALSE(store->takeDamagedNotice());
    EXPECT_EQ(store->units().size(), 400u);
    EXPECT_TRUE(damagedCopies(scratch.dir).isEmpty());
}

TEST_P(SiteFaultsOn, AFileOfANewerVornLinkIsReadButNeverWritten)
{
    fillWithUnits(location(), 3);
    {
        RawStore raw(location());
        ASSERT_TRUE(raw.exec("UPDATE site_schema SET version = 99"));
    }

    auto store = SiteStore::open(location());

    EXPECT_EQ(store->state(), Site::StoreState::NewerSchema);
    EXPECT_EQ(store->problem(), GetParam() == Backend::File
                                    ? "This site file is from a newer VornLink; changes are not remembered"
                                    : "The site server holds the store of a newer VornLink; changes are not remembered");
    EXPECT_EQ(store->units().size(), 3u);
    EXPECT_FALSE(store->record({sighting("KT-9999", "10.77.1.99", 0)}));
    EXPECT_FALSE(store->forget(store->units()[0].key));
    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT count(*) FROM units"), "3");
    EXPECT_EQ(raw.value("SELECT version FROM site_schema"), "99");
}

TEST(SiteFaults, AFolderThatCannotBeMadeLeavesTheStoreUnavailableWithTheReason)
{
    Scratch scratch;
    const QString folder = readOnlyFolder(scratch.dir);

    const auto outcome = openElsewhere(folder + "/vornlink/site.sqlite");

    EXPECT_EQ(outcome.state, static_cast<int>(Site::StoreState::Unavailable));
    EXPECT_EQ(outcome.problem, "cannot make the folder " + (folder + "/vornlink").toStdString());
}

TEST(SiteFaults, AReadOnlyFolderWithoutTheFileLeavesTheStoreUnavailable)
{
    Scratch scratch;
    const QString folder = readOnlyFolder(scratch.dir);

    const auto outcome = openElsewhere(folder + "/site.sqlite");

    EXPECT_EQ(outcome.state, static_cast<int>(Site::StoreState::Unavailable));
    EXPECT_EQ(outcome.problem, "cannot write " + (folder + "/site.sqlite").toStdString() + ": Permission denied");
}

TEST(SiteFaults, UnavailableStoreRecordsAndListsNothing)
{
    Scratch scratch;
    QFile blocker(scratch.dir.filePath("vornlink"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));  // a file where the folder should be

    auto store = SiteStore::open(scratch.dir.filePath("vornlink/site.sqlite"));

    EXPECT_EQ(store->state(), Site::StoreState::Unavailable);
    EXPECT_FALSE(store->problem().isEmpty());
    EXPECT_FALSE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));
    EXPECT_TRUE(store->units().empty());
    EXPECT_TRUE(store->history("serial:KT-0001").empty());
}

TEST_P(SiteFaultsOn, TwoConnectionsWritingAtOnceBothRecordEverything)
{
    SiteStore::open(location());  // made first, so both open an existing file
    constexpr int kRounds = 150;
    constexpr int kUnits = 10;
    auto writer = [&](const std::string& prefix, bool& allStored) {
        auto store = SiteStore::open(location());
        allStored = store->canRecord();
        for (int round = 0; round < kRounds && allStored; ++round) {
            std::vector<Site::Sighting> sightings;
            for (int unit = 0; unit < kUnits; ++unit)
                sightings.push_back(sighting(prefix + std::to_string(unit), "10.77.4." + std::to_string(unit), round,
                                             {{"Channel", std::to_string(round)}}));
            allStored = store->record(sightings, {}, {{at(round), prefix}});
        }
    };
    bool windowStored = false;
    bool scriptStored = false;
    std::thread window(writer, "KT-W", std::ref(windowStored));
    std::thread script(writer, "KT-S", std::ref(scriptStored));
    window.join();
    script.join();

    EXPECT_TRUE(windowStored);
    EXPECT_TRUE(scriptStored);
    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT count(*) FROM config_versions").toInt(), 2 * kRounds * kUnits);
    EXPECT_EQ(raw.value("SELECT count(*) FROM activity").toInt(), 2 * kRounds);
}

TEST(SiteFaults, AWriterKilledInABurstLosesNothingItCommitted)
{
    Scratch scratch;
    QProcess writer;
    writer.start(VORN_SITE_BURST_WRITER, {"burst", scratch.path()});
    ASSERT_TRUE(writer.waitForStarted());
    long committed = 0;
    while (committed < 500 && writer.waitForReadyRead(10000)) {
        while (writer.canReadLine())
            std::sscanf(writer.readLine().constData(), "committed %ld", &committed);
    }
    ASSERT_GE(committed, 500);
    ::kill(static_cast<pid_t>(writer.processId()), SIGKILL);
    ASSERT_TRUE(writer.waitForFinished());
    // Whatever the pipe still held was committed too.
    for (const auto& line : writer.readAllStandardOutput().split('\n'))
        std::sscanf(line.constData(), "committed %ld", &committed);

    auto store = SiteStore::open(scratch.path());
    ASSERT_EQ(store->state(), Site::StoreState::Ready);
    EXPECT_FALSE(store->takeDamagedNotice());
    RawStore raw(scratch.path());
    EXPECT_EQ(raw.value("PRAGMA integrity_check"), "ok");
    EXPECT_GE(raw.value("SELECT count(*) FROM config_versions").toLong(), committed);
}
