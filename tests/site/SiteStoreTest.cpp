// SPDX-License-Identifier: Apache-2.0
// The store on a real file and on a real server: first use, units, versions
// stored once per change, last-seen times, writes, activity retention, forgetting.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <QFile>
#include <QFileInfo>

#include "SiteSchema.h"
#include "SiteStore.h"
#include "SiteTestKit.h"

using namespace SiteTest;
using Site::SiteStore;

namespace {

mode_t modeOf(const QString& path)
{
    struct stat info {};
    ::stat(QFile::encodeName(path).constData(), &info);
    return info.st_mode & 0777;
}

Site::WriteRecord channelWrite(const std::string& serial, const std::string& address, int seconds,
                               const std::string& channel)
{
    return {at(seconds), "vornctl", "desk-3", "kim", serial, address, {{"Channel", channel}}, Site::Verdict::Confirmed, {}};
}

// Each of these runs on an SQLite file and on a PostgreSQL server.
class SiteStoreOn : public OnEachStore {};
INSTANTIATE_TEST_SUITE_P(Stores, SiteStoreOn, ::testing::Values(Backend::File, Backend::Server), backendName);

}  // namespace

TEST(SiteStore, FirstUseMakesAPrivateFolderAndFileInWalMode)
{
    Scratch scratch;
    const QString path = scratch.dir.filePath("deeper/vornlink/site.sqlite");

    auto store = SiteStore::open(path);

    ASSERT_EQ(store->state(), Site::StoreState::Ready) << store->problem().toStdString();
    EXPECT_EQ(modeOf(QFileInfo(path).absolutePath()), 0700u);
    EXPECT_EQ(modeOf(path), 0600u);
    RawStore raw(path);
    EXPECT_EQ(raw.value("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(raw.value("SELECT version FROM site_schema").toInt(), Site::Schema::latestVersion());
}

TEST_P(SiteStoreOn, ANewUnitIsRememberedWithItsFirstVersion)
{
    auto store = SiteStore::open(location());

    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));

    const auto units = store->units();
    ASSERT_EQ(units.size(), 1u);
    EXPECT_EQ(units[0].key, "serial:KT-0001");
    EXPECT_EQ(units[0].serial, "KT-0001");
    EXPECT_EQ(units[0].address, "10.77.1.5");
    EXPECT_EQ(units[0].interface, "studio0 \u00B7 10.77.1.1/24");
    EXPECT_EQ(units[0].firmware, "2.1.4");
    EXPECT_EQ(units[0].firstSeen, at(0));
    EXPECT_EQ(units[0].lastSeen, at(0));
    const auto history = store->history(units[0].key);
    ASSERT_EQ(history.size(), 1u);
    EXPECT_EQ(history[0].cause, Site::Cause::FirstSeen);
    EXPECT_EQ(history[0].config.at("Channel"), "3");
}

TEST_P(SiteStoreOn, AUnitWithoutSerialIsRememberedByAddress)
{
    auto store = SiteStore::open(location());

    ASSERT_TRUE(store->record({sighting("", "10.77.1.9", 0)}));

    ASSERT_EQ(store->units().size(), 1u);
    EXPECT_EQ(store->units()[0].key, "address:10.77.1.9");
    EXPECT_EQ(store->findUnit("10.77.1.9")->key, "address:10.77.1.9");
}

TEST_P(SiteStoreOn, TheSameConfigurationIsStoredOnceHoweverOftenItIsReported)
{
    auto store = SiteStore::open(location());

    for (int round = 0; round < 20; ++round)
        ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", round * 5)}));
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 200, {{"Channel", "9"}})}));
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 205, {{"Channel", "9"}})}));

    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT count(*) FROM config_versions"), "2");
}

TEST_P(SiteStoreOn, EachVersionKeepsTheComputerThatHeardIt)
{
    auto store = SiteStore::open(location());
    auto elsewhere = sighting("KT-0001", "10.77.1.5", 10, {{"Channel", "9"}});
    elsewhere.host = "audio-room";
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));
    ASSERT_TRUE(store->record({elsewhere}));

    const auto history = store->history(Site::unitKey("KT-0001", "10.77.1.5"));

    ASSERT_EQ(history.size(), 2u);
    EXPECT_EQ(history[0].host, "audio-room");
    EXPECT_EQ(history[1].host, Site::hostName());
}

TEST_P(SiteStoreOn, AnotherProgramsWritesAreNewsOnceAndOwnWritesNever)
{
    auto here = SiteStore::open(location());
    auto there = SiteStore::open(location());
    const auto now = Site::Clock::now();
    const Site::WriteRecord theirs{now, "vornctl", "audio-room", "kim", "KT-0001", "10.77.1.5", {{"Channel", "5"}},
                                   Site::Verdict::Confirmed, {}};
    const Site::WriteRecord ours{now, "vornlink", "vision", "lee", "KT-0001", "10.77.1.5", {{"Channel", "6"}},
                                 Site::Verdict::NoAnswer, {}};
    ASSERT_TRUE(there->record({}, {theirs}));
    ASSERT_TRUE(here->record({}, {ours}));

    const auto news = here->newWritesElsewhere();

    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].host, "audio-room");
    EXPECT_EQ(news[0].serial, "KT-0001");
    EXPECT_EQ(news[0].sent, (Vorn::Config{{"Channel", "5"}}));
    EXPECT_TRUE(here->newWritesElsewhere().empty());
    ASSERT_EQ(there->newWritesElsewhere().size(), 1u);
}

TEST_P(SiteStoreOn, AWorkstationWhoseClockRunsAheadHidesNoOtherWorkstationsWrite)
{
    auto here = SiteStore::open(location());
    auto there = SiteStore::open(location());
    const auto now = Site::Clock::now();
    const auto write = [](Site::Time sentAt, const std::string& host) {
        return Site::WriteRecord{sentAt, "vornctl", host, "kim", "KT-0001", "10.77.1.5", {{"Channel", "5"}},
                                 Site::Verdict::Confirmed, {}};
    };
    ASSERT_TRUE(there->record({}, {write(now + std::chrono::hours(1), "clock-ahead")}));
    ASSERT_EQ(here->newWritesElsewhere().size(), 1u);

    ASSERT_TRUE(there->record({}, {write(Site::Clock::now(), "audio-room")}));
    const auto news = here->newWritesElsewhere();

    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].host, "audio-room");
}

TEST_P(SiteStoreOn, AWriteSentLongBeforeTheStoreOpenedIsNoNews)
{
    const auto now = Site::Clock::now();
    ASSERT_TRUE(SiteStore::open(location())->record(
        {}, {{now - Site::kNewsLookBack - std::chrono::minutes(1), "vornctl", "audio-room", "kim", "KT-0001",
              "10.77.1.5", {{"Channel", "5"}}, Site::Verdict::Confirmed, {}}}));

    EXPECT_TRUE(SiteStore::open(location(), now)->newWritesElsewhere().empty());
}

TEST_P(SiteStoreOn, AnotherConnectionsVersionIsNotStoredTwice)
{
    auto window = SiteStore::open(location());
    auto script = SiteStore::open(location());
    ASSERT_TRUE(window->record({sighting("KT-0001", "10.77.1.5", 0)}));

    ASSERT_TRUE(script->record({sighting("KT-0001", "10.77.1.5", 10, {{"Channel", "9"}})}));
    ASSERT_TRUE(window->record({sighting("KT-0001", "10.77.1.5", 12, {{"Channel", "9"}})}));

    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT count(*) FROM config_versions"), "2");
}

TEST_P(SiteStoreOn, LastSeenIsWrittenAtMostOnceAMinuteForAnUnchangedUnit)
{
    auto store = SiteStore::open(location());
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));

    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 30)}));
    EXPECT_EQ(store->units()[0].lastSeen, at(0));
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 60)}));
    EXPECT_EQ(store->units()[0].lastSeen, at(60));
}

TEST_P(SiteStoreOn, AChangedConfigurationOrAddressIsWrittenAtOnce)
{
    auto store = SiteStore::open(location());
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));

    auto moved = sighting("KT-0001", "10.77.1.6", 5);
    moved.config.insert_or_assign("IPAddress", "10.77.1.6");
    ASSERT_TRUE(store->record({moved}));

    const auto unit = store->findUnit("KT-0001");
    ASSERT_TRUE(unit);
    EXPECT_EQ(unit->address, "10.77.1.6");
    EXPECT_EQ(unit->lastSeen, at(5));
    EXPECT_EQ(unit->firstSeen, at(0));
    EXPECT_EQ(store->findUnit("10.77.1.6")->key, "serial:KT-0001");
}

TEST_P(SiteStoreOn, HistoryNamesTheWriteTheOutsideChangeAndFirstSeenNewestFirst)
{
    auto store = SiteStore::open(location());
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 12, {{"Channel", "9"}})},
                              {channelWrite("KT-0001", "10.77.1.5", 10, "9")}));
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 100, {{"Channel", "4"}})}));

    const auto history = store->history("serial:KT-0001");

    ASSERT_EQ(history.size(), 3u);
    EXPECT_EQ(history[0].cause, Site::Cause::Outside);
    EXPECT_EQ(history[0].at, at(100));
    EXPECT_EQ(history[0].changes, (std::vector<Site::KeyChange>{{"Channel", "9", "4"}}));
    EXPECT_FALSE(history[0].write);
    EXPECT_EQ(history[1].cause, Site::Cause::Written);
    ASSERT_TRUE(history[1].write);
    EXPECT_EQ(history[1].write->program, "vornctl");
    EXPECT_EQ(history[1].write->user, "kim");
    EXPECT_EQ(history[1].write->host, "desk-3");
    EXPECT_EQ(history[1].write->verdict, Site::Verdict::Confirmed);
    EXPECT_EQ(history[1].changes, (std::vector<Site::KeyChange>{{"Channel", "3", "9"}}));
    EXPECT_EQ(history[2].cause, Site::Cause::FirstSeen);
    EXPECT_TRUE(history[2].changes.empty());
}

TEST_P(SiteStoreOn, AWriteKeepsItsVerdictAndTheKeysNotConfirmed)
{
    auto store = SiteStore::open(location());
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0)}));
    auto write = channelWrite("KT-0001", "10.77.1.5", 10, "9");
    write.sent.insert_or_assign("TallyType", "4");
    write.verdict = Site::Verdict::NotConfirmed;
    write.unconfirmedKeys = {"TallyType"};

    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 12, {{"Channel", "9"}})}, {write}));

    const auto history = store->history("serial:KT-0001");
    ASSERT_TRUE(history[0].write);
    EXPECT_EQ(history[0].write->verdict, Site::Verdict::NotConfirmed);
    EXPECT_EQ(history[0].write->unconfirmedKeys, std::vector<std::string>{"TallyType"});
    EXPECT_EQ(history[0].write->sent.at("TallyType"), "4");
}

TEST_P(SiteStoreOn, ForgetRemovesTheUnitItsVersionsAndItsWrites)
{
    auto store = SiteStore::open(location());
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0), sighting("KT-0002", "10.77.1.6", 0)},
                              {channelWrite("KT-0001", "10.77.1.5", 1, "9")}));

    EXPECT_TRUE(store->forget("serial:KT-0001"));
    EXPECT_FALSE(store->forget("serial:KT-0001"));

    ASSERT_EQ(store->units().size(), 1u);
    EXPECT_EQ(store->units()[0].serial, "KT-0002");
    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT count(*) FROM config_versions WHERE unit_key = 'serial:KT-0001'"), "0");
    EXPECT_EQ(raw.value("SELECT count(*) FROM writes"), "0");
    // Heard again, it starts over as a unit seen for the first time.
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 50)}));
    EXPECT_EQ(store->findUnit("KT-0001")->firstSeen, at(50));
}

TEST_P(SiteStoreOn, ActivityIsKeptNinetyDays)
{
    const int day = 24 * 3600;
    {
        auto store = SiteStore::open(location(), at(0));
        ASSERT_TRUE(store->record({}, {}, {{at(0), "found 10.77.1.5"}, {at(10 * day), "wrote Channel"}}));
        EXPECT_EQ(store->pruneActivity(at(90 * day)), 0);
        EXPECT_EQ(store->activity(at(0)).size(), 2u);
    }
    // Opening a day after the first entry's ninety days removes it.
    auto store = SiteStore::open(location(), at(91 * day));
    const auto left = store->activity(at(0));
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].message, "wrote Channel");
    EXPECT_EQ(left[0].at, at(10 * day));
}

TEST_P(SiteStoreOn, TheNewestActivityBeforeAnInstantComesOldestFirst)
{
    auto store = SiteStore::open(location(), at(0));
    ASSERT_TRUE(store->record({}, {}, {{at(1), "one"}, {at(2), "two"}, {at(3), "three"}, {at(4), "this run"}}));

    const auto earlier = store->activityBefore(at(4), 2);

    ASSERT_EQ(earlier.size(), 2u);
    EXPECT_EQ(earlier[0].message, "two");
    EXPECT_EQ(earlier[0].at, at(2));
    EXPECT_EQ(earlier[1].message, "three");
    EXPECT_EQ(store->activityBefore(at(4), 10).size(), 3u);
    EXPECT_TRUE(store->activityBefore(at(1), 10).empty());
}

TEST_P(SiteStoreOn, FindUnitTakesASerialBeforeAnAddress)
{
    auto store = SiteStore::open(location());
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0), sighting("KT-0002", "10.77.1.6", 0)}));

    EXPECT_EQ(store->findUnit("KT-0002")->address, "10.77.1.6");
    EXPECT_EQ(store->findUnit("10.77.1.5")->serial, "KT-0001");
    EXPECT_FALSE(store->findUnit("KT-0003"));
}

TEST_P(SiteStoreOn, LatestConfigurationsGiveEachUnitsNewestVersionInOneList)
{
    auto store = SiteStore::open(location());
    auto first = sighting("KT-0001", "10.77.1.5", 0);
    ASSERT_TRUE(store->record({first, sighting("KT-0002", "10.77.1.7", 0)}));
    auto changed = sighting("KT-0001", "10.77.1.5", 5);
    changed.config.insert_or_assign("Channel", "9");
    ASSERT_TRUE(store->record({changed}));

    const auto latest = store->latestConfigurations();
    ASSERT_EQ(latest.size(), 2u);
    EXPECT_EQ(latest.at(store->findUnit("KT-0001")->key), changed.config);
    EXPECT_EQ(latest.at(store->findUnit("KT-0002")->key), store->history(store->findUnit("KT-0002")->key).front().config);
    EXPECT_EQ(latest.at(store->findUnit("KT-0001")->key), store->history(store->findUnit("KT-0001")->key).front().config);
}
