// SPDX-License-Identifier: Apache-2.0
// Every migration, each from the version before it, on a real file.
#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlQuery>

#include "SiteSchema.h"
#include "SiteStore.h"
#include "SiteTestKit.h"
#include "SqliteFile.h"

using namespace SiteTest;

namespace {

// The file at `path` brought to `version` by the migrations alone.
void migrateTo(const QString& path, int version)
{
    auto opened = Site::Sqlite::openFile(path, QStringLiteral("migrate"), false);
    ASSERT_TRUE(opened.problem.isEmpty()) << opened.problem.toStdString();
    QSqlError error;
    EXPECT_TRUE(Site::Schema::migrate(opened.db, error, version)) << error.text().toStdString();
    opened.db.close();
    opened.db = {};
    QSqlDatabase::removeDatabase(QStringLiteral("migrate"));
}

// Unit A with one version, as versions 1 and 2 of the file keep them.
void holdOneUnitAsVersionsOneAndTwoDid(const QString& path)
{
    RawStore raw(path);
    ASSERT_TRUE(raw.exec("INSERT INTO units VALUES ('serial:A', 'A', '10.0.0.1', 'eth0', '2.1', 1000, 2000)"));
    ASSERT_TRUE(raw.exec("INSERT INTO config_versions VALUES ('serial:A', 1000, '10.0.0.1',"
                         " '{\"Channel\":\"3\",\"Serial\":\"A\"}')"));
}

}  // namespace

TEST(SiteSchema, MigrationOneMakesUnitsVersionsAndWritesInANewFile)
{
    Scratch scratch;
    migrateTo(scratch.path(), 1);

    RawStore raw(scratch.path());
    EXPECT_EQ(raw.value("SELECT version FROM site_schema"), "1");
    EXPECT_TRUE(raw.exec("INSERT INTO units VALUES ('serial:A', 'A', '10.0.0.1', '', '', 1, 2)"));
    EXPECT_TRUE(raw.exec("INSERT INTO config_versions VALUES ('serial:A', 1, '10.0.0.1', '{}')"));
    EXPECT_TRUE(raw.exec("INSERT INTO writes VALUES ('serial:A', 1, 'vornctl', 'h', 'u', '10.0.0.1', '{}',"
                         " 'confirmed', '[]')"));
    EXPECT_FALSE(raw.exec("SELECT * FROM activity"));
}

TEST(SiteSchema, MigrationTwoAddsActivityAndKeepsWhatVersionOneHeld)
{
    Scratch scratch;
    migrateTo(scratch.path(), 1);
    holdOneUnitAsVersionsOneAndTwoDid(scratch.path());

    migrateTo(scratch.path(), 2);

    RawStore raw(scratch.path());
    EXPECT_EQ(raw.value("SELECT version FROM site_schema"), "2");
    EXPECT_TRUE(raw.exec("INSERT INTO activity VALUES (1, 'found 10.0.0.1')"));
    EXPECT_EQ(raw.value("SELECT count(*) FROM sqlite_master WHERE type = 'index' AND name = 'versions_by_unit'"),
              "1");
    auto store = Site::SiteStore::open(scratch.path());
    ASSERT_EQ(store->units().size(), 1u);
    EXPECT_EQ(store->units()[0].interface, "eth0");
    EXPECT_EQ(store->history("serial:A").at(0).config.at("Channel"), "3");
}

TEST(SiteSchema, MigrationThreeNamesNoComputerForTheVersionsBeforeIt)
{
    Scratch scratch;
    migrateTo(scratch.path(), 2);
    holdOneUnitAsVersionsOneAndTwoDid(scratch.path());

    migrateTo(scratch.path(), 3);

    auto store = Site::SiteStore::open(scratch.path());
    ASSERT_EQ(store->history("serial:A").size(), 1u);
    EXPECT_EQ(store->history("serial:A")[0].host, "");
    ASSERT_TRUE(store->record({sighting("A", "10.0.0.1", 5, {{"Channel", "4"}})}));
    EXPECT_EQ(store->history("serial:A")[0].host, Site::hostName());
}

TEST(SiteSchema, OpeningAnOlderFileBringsItToTheLatestVersion)
{
    Scratch scratch;
    migrateTo(scratch.path(), 1);

    auto store = Site::SiteStore::open(scratch.path());

    EXPECT_EQ(store->state(), Site::StoreState::Ready);
    RawStore raw(scratch.path());
    EXPECT_EQ(raw.value("SELECT version FROM site_schema").toInt(), Site::Schema::latestVersion());
}
