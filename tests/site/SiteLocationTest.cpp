// SPDX-License-Identifier: Apache-2.0
// Which file a program uses: the default under the data folder, --site, --no-site.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#include "SiteLocation.h"

namespace {

std::variant<Site::SiteChoice, std::string> parse(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "vornlink");
    return Site::siteChoiceFromArguments(arguments);
}

}  // namespace

TEST(SiteLocation, TheDefaultFileIsUnderTheUsersDataFolder)
{
    QTemporaryDir home;
    const QString data = home.filePath("data");
    qputenv("XDG_DATA_HOME", QFile::encodeName(data));
    EXPECT_EQ(Site::defaultSitePath(), QDir(data).filePath("vornlink/site.sqlite"));
    EXPECT_EQ(Site::sitePath({}), Site::defaultSitePath());
}

TEST(SiteLocation, SiteAndNoSiteAreReadAmongOtherArguments)
{
    auto choice = std::get<Site::SiteChoice>(parse({"--selftest", "--site", "/tmp/a.sqlite"}));
    EXPECT_EQ(Site::sitePath(choice), QString("/tmp/a.sqlite"));
    choice = std::get<Site::SiteChoice>(parse({"--site=/tmp/b.sqlite"}));
    EXPECT_EQ(choice.path, "/tmp/b.sqlite");
    choice = std::get<Site::SiteChoice>(parse({"--no-site", "--selftest"}));
    EXPECT_FALSE(Site::sitePath(choice));
}

TEST(SiteLocation, UsageProblemsAreNamed)
{
    EXPECT_EQ(std::get<std::string>(parse({"--site"})), "--site needs a file");
    EXPECT_EQ(std::get<std::string>(parse({"--site="})), "--site needs a file");
    EXPECT_EQ(std::get<std::string>(parse({"--site", "a", "--site", "b"})), "--site is given twice");
    EXPECT_EQ(std::get<std::string>(parse({"--site", "a", "--no-site"})), "--site and --no-site exclude each other");
}

TEST(SiteLocation, VornlinkSiteNamesTheStoreWhenSiteIsNotGiven)
{
    qputenv("VORNLINK_SITE", "postgresql://desk@studio-db/site");
    const auto unset = qScopeGuard([] { qunsetenv("VORNLINK_SITE"); });

    EXPECT_EQ(Site::sitePath({}), QString("postgresql://desk@studio-db/site"));
    EXPECT_EQ(Site::sitePath(std::get<Site::SiteChoice>(parse({"--site", "/tmp/a.sqlite"}))), QString("/tmp/a.sqlite"));
    EXPECT_FALSE(Site::sitePath(std::get<Site::SiteChoice>(parse({"--no-site"}))));
}

TEST(SiteLocation, TheWindowsOwnChoiceComesAfterSiteAndVornlinkSite)
{
    const QString remembered("postgresql://desk@studio-db/site");
    EXPECT_EQ(Site::sitePath({}, remembered), remembered);
    EXPECT_EQ(Site::sitePath(std::get<Site::SiteChoice>(parse({"--site", "/tmp/a.sqlite"})), remembered),
              QString("/tmp/a.sqlite"));
    qputenv("VORNLINK_SITE", "/tmp/b.sqlite");
    const auto unset = qScopeGuard([] { qunsetenv("VORNLINK_SITE"); });
    EXPECT_EQ(Site::sitePath({}, remembered), QString("/tmp/b.sqlite"));
}
