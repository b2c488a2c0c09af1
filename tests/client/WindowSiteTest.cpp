// SPDX-License-Identifier: Apache-2.0
// The window's tie to the site store, on real SQLite files in temporary
// folders and on a real PostgreSQL server, with a client on loopback that is
// never started: remembered units, forgetting one, the activity of earlier
// runs, other workstations' writes and what the store has to say.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QScopeGuard>
#include <QTemporaryDir>

#include "DeviceListModel.h"

#include "ClientTestKit.h"
#include "SmallDisk.h"
#include "SiteStore.h"
#include "TestServer.h"
#include "WindowSite.h"
#include "WriteOrigin.h"

using namespace ClientTest;
using namespace std::chrono_literals;

namespace {

class WindowSiteTest : public testing::Test {
protected:
    QTemporaryDir dir;
    QString path() const { return dir.filePath(QStringLiteral("site.sqlite")); }

    // The remembered units are read on the store's thread and listed on this one.
    static bool listed(VornLink::WindowSite& site)
    {
        QSignalSpy spy(&site, &VornLink::WindowSite::rememberedListed);
        return spy.wait(10000);
    }

    // A store that remembers one unit, heard just now.
    bool rememberOneUnit() const
    {
        return Site::SiteStore::open(path())->record(
            {{"10.78.5.129", "", {{"Serial", "KT4-R00001"}}, Site::Clock::now()}});
    }

    // What a site server's recorder cannot send waits in a journal under the
    // data folder: this test's own, not one other tests running beside it share.
    void keepJournalHere() const { qputenv("XDG_DATA_HOME", QFile::encodeName(dir.path())); }

    std::vector<Site::RememberedUnit> storedUnits(VornLink::WindowSite& site)
    {
        std::vector<Site::RememberedUnit> units;
        site.recorder().runAndWait([&units](Site::SiteStore& store) { units = store.units(); });
        return units;
    }
};

Vorn::Reply report(const std::string& address, const std::string& serial)
{
    return Vorn::Reply{address, Vorn::kCmdReport, {{"Serial", serial}, {"Channel", "3"}}};
}

}  // namespace

TEST_F(WindowSiteTest, RememberedUnitsAreListedOfflineWithTheirLastConfigurationUntilTheyAnswer)
{
    {
        auto store = Site::SiteStore::open(path());
        ASSERT_TRUE(store->canRecord()) << store->problem().toStdString();
        const auto now = Site::Clock::now();
        ASSERT_TRUE(store->record({{"10.78.5.129", "", {{"Serial", "KT4-R00001"}, {"Channel", "7"}}, now - 3min},
                                   {"10.77.1.20", "", {{"Serial", "KT4-S00001"}}, now}}));
    }
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, path());
    ASSERT_TRUE(listed(site));
    auto remembered = client->remembered();
    std::sort(remembered.begin(), remembered.end());
    EXPECT_EQ(remembered, (std::vector<std::string>{"10.77.1.20", "10.78.5.129"}));

    DeviceListModel model;
    model.setClient(client.get());
    ASSERT_EQ(model.rowCount(), 2);
    const auto routed = model.index(1);
    EXPECT_EQ(model.data(routed, DeviceListModel::IpRole).toString(), QStringLiteral("10.78.5.129"));
    EXPECT_FALSE(model.data(routed, DeviceListModel::OnlineRole).toBool());
    EXPECT_EQ(model.data(routed, DeviceListModel::LastSeenNoteRole).toString(), QStringLiteral("last seen 3 min ago"));
    EXPECT_EQ(model.data(routed, DeviceListModel::ConfigRole).toMap().value(QStringLiteral("Channel")),
              QStringLiteral("7"));
    // Freshly remembered is still offline until it answers in this run.
    EXPECT_FALSE(model.data(model.index(0), DeviceListModel::OnlineRole).toBool());
    EXPECT_EQ(model.data(model.index(0), DeviceListModel::LastSeenNoteRole).toString(),
              QStringLiteral("last seen just now"));

    QSignalSpy answered(client.get(), &VornClient::rememberedUnitAnswered);
    client->ingest(report("10.78.5.129", "KT4-R00001"));
    EXPECT_EQ(answered.count(), 1);
    EXPECT_TRUE(model.data(routed, DeviceListModel::OnlineRole).toBool());
    EXPECT_EQ(model.data(routed, DeviceListModel::LastSeenNoteRole).toString(), QString());
    EXPECT_EQ(model.data(routed, DeviceListModel::ConfigRole).toMap().value(QStringLiteral("Channel")),
              QStringLiteral("3"));
}

TEST_F(WindowSiteTest, UnitsTheClientHearsAreRecordedAndRememberedAtTheNextStart)
{
    {
        auto client = loopbackClient();
        VornLink::WindowSite site(*client, path());
        ASSERT_TRUE(listed(site));
        EXPECT_TRUE(client->remembered().empty());
        client->ingest(report("10.78.5.129", "KT4-R00001"));
        client->ingest(report("10.78.5.129", "KT4-R00001"));
        const auto units = storedUnits(site);
        ASSERT_EQ(units.size(), 1u);
        EXPECT_EQ(units[0].address, "10.78.5.129");
        EXPECT_EQ(units[0].serial, "KT4-R00001");
    }
    auto restarted = loopbackClient();
    VornLink::WindowSite site(*restarted, path());
    ASSERT_TRUE(listed(site));
    EXPECT_EQ(restarted->remembered(), std::vector<std::string>{"10.78.5.129"});
    ASSERT_EQ(restarted->deviceCount(), 1);
    EXPECT_TRUE(restarted->devices()[0].remembered);
    EXPECT_EQ(restarted->devices()[0].config.at("Serial"), "KT4-R00001");
    // Listing what was remembered records nothing new.
    EXPECT_EQ(storedUnits(site).size(), 1u);
}

TEST_F(WindowSiteTest, AUnitHeardBeforeTheRememberedOnesAreListedKeepsItsRowAndIsRecorded)
{
    {
        auto store = Site::SiteStore::open(path());
        ASSERT_TRUE(store->record({{"10.78.5.129", "", {{"Serial", "KT4-R00001"}, {"Channel", "7"}}, Site::Clock::now()},
                                   {"10.77.1.20", "", {{"Serial", "KT4-S00001"}}, Site::Clock::now()}}));
    }
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, path());
    // The window's thread hears a unit while the store is still being read.
    client->ingest(report("10.78.5.129", "KT4-R00001"));
    ASSERT_TRUE(listed(site));
    ASSERT_EQ(client->deviceCount(), 2);
    const auto heard = client->device("10.78.5.129");
    ASSERT_TRUE(heard);
    EXPECT_FALSE(heard->remembered);
    EXPECT_EQ(heard->config.at("Channel"), "3");
    EXPECT_TRUE(client->device("10.77.1.20")->remembered);
    std::map<std::string, Vorn::Config> latest;
    site.recorder().runAndWait([&latest](Site::SiteStore& store) { latest = store.latestConfigurations(); });
    ASSERT_EQ(latest.size(), 2u);
    const auto recorded = std::find_if(latest.begin(), latest.end(),
                                       [](const auto& unit) { return unit.second.at("Serial") == "KT4-R00001"; });
    ASSERT_NE(recorded, latest.end());
    EXPECT_EQ(recorded->second.at("Channel"), "3");
}

TEST_F(WindowSiteTest, AHeldListingWaitsForItsReleaseAndThenListsWhatWasRead)
{
    ASSERT_TRUE(rememberOneUnit());
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, path());
    site.holdListing();
    QSignalSpy listedSpy(&site, &VornLink::WindowSite::rememberedListed);
    // What was read waits on this thread: the store's job has long finished.
    site.recorder().runAndWait([](Site::SiteStore&) {});
    QCoreApplication::processEvents();
    EXPECT_EQ(listedSpy.count(), 0);
    EXPECT_EQ(client->deviceCount(), 0);
    site.releaseListing();
    EXPECT_EQ(listedSpy.count(), 1);
    ASSERT_EQ(client->deviceCount(), 1);
    EXPECT_TRUE(client->devices()[0].remembered);
}

TEST_F(WindowSiteTest, AListingReleasedBeforeTheStoreIsReadListsAsSoonAsItIs)
{
    ASSERT_TRUE(rememberOneUnit());
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, path());
    site.holdListing();
    site.releaseListing();
    ASSERT_TRUE(listed(site));
    EXPECT_EQ(client->deviceCount(), 1);
}

TEST_F(WindowSiteTest, AForgottenUnitLeavesTheStoreWithItsVersionsAndWrites)
{
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, path());
    ASSERT_TRUE(listed(site));
    client->ingest(report("10.78.5.129", "KT4-R00001"));
    client->ingest(report("10.77.1.20", "KT4-S00001"));
    site.recorder().wrote({Site::Clock::now(), "vornlink", "desk", "kim", "KT4-R00001", "10.78.5.129",
                           {{"Channel", "4"}}, Site::Verdict::NoAnswer, {}});
    ASSERT_EQ(storedUnits(site).size(), 2u);

    ASSERT_TRUE(client->forget(QStringLiteral("10.78.5.129")));

    const auto units = storedUnits(site);
    ASSERT_EQ(units.size(), 1u);
    EXPECT_EQ(units[0].serial, "KT4-S00001");
    std::vector<Site::HistoryEntry> history{Site::HistoryEntry{}};
    site.recorder().runAndWait([&history](Site::SiteStore& store) { history = store.history("serial:KT4-R00001"); });
    EXPECT_TRUE(history.empty());
    // Not listed at the next start either.
    auto restarted = loopbackClient();
    VornLink::WindowSite again(*restarted, path());
    ASSERT_TRUE(listed(again));
    EXPECT_EQ(restarted->remembered(), std::vector<std::string>{"10.77.1.20"});
}

TEST_F(WindowSiteTest, EarlierRunsActivityIsShownAboveThisRunsOnceAsked)
{
    {
        // An hour ago: a run that ended within the same millisecond as this
        // one started would not be earlier by the stored times.
        auto client = loopbackClient();
        ManualTime time(client->clock());
        time.set(WallClock::now() - 1h);
        VornLink::WindowSite site(*client, path());
        ASSERT_TRUE(listed(site));
        client->ingest(report("10.78.5.129", "KT4-R00001"));
    }
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, path());
    ASSERT_TRUE(listed(site));
    client->ingest(report("10.77.1.20", "KT4-S00001"));
    ASSERT_EQ(client->log().size(), 1);

    site.showEarlierActivity();

    ASSERT_TRUE(processEventsUntil([&] { return client->log().size() > 1; }));
    const QStringList lines = client->log();
    ASSERT_EQ(lines.size(), 4) << lines.join(u'\n').toStdString();
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("—— "))) << lines[0].toStdString();
    EXPECT_TRUE(lines[1].endsWith(QStringLiteral("  found 10.78.5.129"))) << lines[1].toStdString();
    EXPECT_TRUE(lines[2].endsWith(QStringLiteral(" · this run ——"))) << lines[2].toStdString();
    EXPECT_TRUE(lines[3].endsWith(QStringLiteral("  found 10.77.1.20"))) << lines[3].toStdString();
}

TEST_F(WindowSiteTest, AStoreThatCannotBeMadeSaysNotRemembering)
{
    QFile blocker(dir.filePath(QStringLiteral("vornlink")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));  // a file where the folder should be
    auto client = loopbackClient();

    VornLink::WindowSite site(*client, dir.filePath(QStringLiteral("vornlink/site.sqlite")));
    ASSERT_TRUE(listed(site));

    EXPECT_EQ(client->siteNotice(),
              QStringLiteral("Not remembering: cannot make the folder ") + dir.filePath(QStringLiteral("vornlink")));
    // The window goes on without memory.
    client->ingest(report("10.78.5.129", "KT4-R00001"));
    EXPECT_EQ(client->deviceCount(), 1);
}

TEST_F(WindowSiteTest, AFileOfANewerVornLinkIsSaidSo)
{
    ASSERT_TRUE(Site::SiteStore::open(path())->canRecord());
    {
        auto db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("newer"));
        db.setDatabaseName(path());
        ASSERT_TRUE(db.open());
        ASSERT_TRUE(QSqlQuery(db).exec(QStringLiteral("UPDATE site_schema SET version = 99")));
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("newer"));
    auto client = loopbackClient();

    VornLink::WindowSite site(*client, path());
    ASSERT_TRUE(listed(site));

    EXPECT_EQ(client->siteNotice(), QStringLiteral("This site file is from a newer VornLink; changes are not remembered"));
}

TEST_F(WindowSiteTest, ADamagedFileIsSaidOnceWithWhereItWasKept)
{
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(8192, '\x5a'));
    }
    auto client = loopbackClient();
    {
        VornLink::WindowSite site(*client, path());
        ASSERT_TRUE(listed(site));
        const QStringList kept = QDir(dir.path()).entryList({QStringLiteral("site.sqlite.damaged-*")});
        ASSERT_EQ(kept.size(), 1);
        EXPECT_EQ(client->siteNotice(), QStringLiteral("The site file was damaged; kept as %1 and started a new one")
                                            .arg(dir.filePath(kept[0])));
    }
    auto restarted = loopbackClient();
    VornLink::WindowSite site(*restarted, path());
    ASSERT_TRUE(listed(site));
    EXPECT_EQ(restarted->siteNotice(), QString());
}

TEST_F(WindowSiteTest, AFullDiskLeavesTheWindowWorkingAndSaysNotRemembering)
{
    SmallDisk disk(256);
    if (!disk.mounted())
        GTEST_SKIP() << disk.whyNot();
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, disk.path() + QStringLiteral("/site.sqlite"));
    ASSERT_TRUE(listed(site));
    ASSERT_EQ(client->siteNotice(), QString());

    // Units with long notes until the store no longer fits.
    const std::string note(2000, 'n');
    for (int unit = 0; unit < 400; ++unit) {
        const std::string address = "10.78." + std::to_string(unit / 200 + 5) + "." + std::to_string(unit % 200 + 1);
        client->ingest(Vorn::Reply{address, Vorn::kCmdReport, {{"Serial", "KT4-F" + std::to_string(unit)}, {"Note", note}}});
    }

    ASSERT_TRUE(processEventsUntil([&] { return !client->siteNotice().isEmpty(); }, std::chrono::seconds(10)));
    EXPECT_TRUE(client->siteNotice().startsWith(QStringLiteral("Not remembering: "))) << client->siteNotice().toStdString();
    EXPECT_TRUE(client->siteNotice().contains(QStringLiteral("full"))) << client->siteNotice().toStdString();
    EXPECT_EQ(client->deviceCount(), 400);
    client->ingest(report("10.77.1.20", "KT4-S00001"));
    EXPECT_EQ(client->deviceCount(), 401);
}

namespace {

// On a database of its own on the test server; skipped, saying why, without one.
class WindowSiteOnServer : public WindowSiteTest {
protected:
    void SetUp() override
    {
        keepJournalHere();
        if (!SiteTest::TestServer::shared().running())
            GTEST_SKIP() << "no PostgreSQL server for the test: "
                         << SiteTest::TestServer::shared().whyNot().toStdString();
        uri = SiteTest::TestServer::shared().newDatabase();
        ASSERT_FALSE(uri.isEmpty());
    }

    static qsizetype linesWith(const VornClient& client, const QString& text)
    {
        const QStringList log = client.log();
        return std::count_if(log.begin(), log.end(), [&](const QString& line) { return line.contains(text); });
    }

    QString uri;
};

}  // namespace

TEST_F(WindowSiteOnServer, AWriteAnotherWorkstationStoredIsShownInTheActivityOnceAndOurOwnNot)
{
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, uri);
    ASSERT_TRUE(listed(site));
    const auto now = Site::Clock::now();
    site.recorder().wrote({now, "vornlink", Site::hostName(), Site::userName(), "KT4-R00001", "10.78.5.129",
                           {{"Channel", "4"}}, Site::Verdict::Confirmed, {}});
    site.recorder().runAndWait([](Site::SiteStore&) {});

    ASSERT_TRUE(Site::SiteStore::open(uri)->record(
        {}, {{now, "vornctl", "audio-room", "kim", "KT4-R00001", "10.78.5.129", {{"Channel", "5"}, {"CallMagic", "x1"}},
              Site::Verdict::NotConfirmed, {"Channel"}}}));

    const QString line = QStringLiteral("kim on audio-room wrote CallMagic, Channel \u2192 10.78.5.129 \u00b7 not confirmed: Channel");
    ASSERT_TRUE(processEventsUntil([&] { return linesWith(*client, line) > 0; }, std::chrono::seconds(10)))
        << client->log().join(u'\n').toStdString();
    // Another look finds nothing new.
    site.showWritesElsewhere();
    site.recorder().runAndWait([](Site::SiteStore&) {});
    QCoreApplication::processEvents();
    EXPECT_EQ(linesWith(*client, line), 1);
    EXPECT_EQ(linesWith(*client, QStringLiteral(" wrote ")), 1);
    EXPECT_EQ(linesWith(*client, QStringLiteral("x1")), 0);
}

TEST_F(WindowSiteTest, AnUnreachableSiteServerIsSaidAndTheWindowWorksOn)
{
    keepJournalHere();
    auto client = loopbackClient();

    VornLink::WindowSite site(*client, QStringLiteral("postgresql://desk@/site?host=") + dir.path());
    ASSERT_TRUE(listed(site));

    EXPECT_TRUE(client->siteNotice().startsWith(QStringLiteral("Site server unreachable: ")))
        << client->siteNotice().toStdString();
    client->ingest(report("10.78.5.129", "KT4-R00001"));
    EXPECT_EQ(client->deviceCount(), 1);
}

TEST_F(WindowSiteOnServer, TheServerStoppedWhileUnitsAreHeardIsSaidAndWhatWasHeardIsStoredOnceItIsBack)
{
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, uri);
    ASSERT_TRUE(listed(site));
    ASSERT_EQ(client->siteNotice(), QString());
    auto& server = SiteTest::TestServer::shared();
    ASSERT_TRUE(server.stop());

    client->ingest(report("10.78.5.129", "KT4-R00001"));
    ASSERT_TRUE(processEventsUntil([&] { return !client->siteNotice().isEmpty(); }, std::chrono::seconds(10)));
    EXPECT_TRUE(client->siteNotice().startsWith(QStringLiteral("Site server unreachable: ")))
        << client->siteNotice().toStdString();
    client->ingest(report("10.78.5.130", "KT4-R00002"));
    ASSERT_TRUE(server.start());

    EXPECT_TRUE(processEventsUntil([&] { return client->siteNotice().isEmpty(); }, std::chrono::seconds(15)))
        << client->siteNotice().toStdString();
    site.recorder().runAndWait([](Site::SiteStore&) {});
    const auto units = Site::SiteStore::open(uri)->units();
    ASSERT_EQ(units.size(), 2u);
    EXPECT_EQ(units[0].serial, "KT4-R00001");
    EXPECT_EQ(units[1].serial, "KT4-R00002");
}

TEST_F(WindowSiteOnServer, TheUnitsOfASiteServerAwayAtStartAreListedOnceItAnswers)
{
    ASSERT_TRUE(Site::SiteStore::open(uri)->record(
        {{"10.78.5.129", "", {{"Serial", "KT4-R00001"}}, Site::Clock::now()}}));
    auto& server = SiteTest::TestServer::shared();
    ASSERT_TRUE(server.stop());
    const auto restart = qScopeGuard([&server] {
        if (!server.running())
            server.start();
    });
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, uri);
    ASSERT_TRUE(listed(site));
    EXPECT_EQ(client->deviceCount(), 0);

    ASSERT_TRUE(server.start()) << server.whyNot().toStdString();

    ASSERT_TRUE(processEventsUntil([&] { return client->deviceCount() == 1; }, std::chrono::seconds(15)));
    EXPECT_EQ(client->devices()[0].ip, "10.78.5.129");
    EXPECT_TRUE(client->devices()[0].remembered);
    EXPECT_EQ(client->siteNotice(), QString());
}
