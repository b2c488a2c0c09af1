// SPDX-License-Identifier: Apache-2.0
// The window's tie to the site store, on a real SQLite file in a temporary
// folder and a client on loopback that is never started.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "ClientTestKit.h"
#include "SiteStore.h"
#include "WindowSite.h"

using namespace ClientTest;

namespace {

class WindowSiteTest : public testing::Test {
protected:
    QTemporaryDir dir;
    QString path() const { return dir.filePath(QStringLiteral("site.sqlite")); }

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

TEST_F(WindowSiteTest, TheClientGetsEveryRememberedUnitsAddress)
{
    {
        auto store = Site::SiteStore::open(path());
        ASSERT_TRUE(store->canRecord()) << store->problem().toStdString();
        const auto now = Site::Clock::now();
        ASSERT_TRUE(store->record({{"10.78.5.129", "", {{"Serial", "KT4-R00001"}}, now},
                                   {"10.77.1.20", "", {{"Serial", "KT4-S00001"}}, now}}));
    }
    auto client = loopbackClient();
    VornLink::WindowSite site(*client, path());
    auto remembered = client->remembered();
    std::sort(remembered.begin(), remembered.end());
    EXPECT_EQ(remembered, (std::vector<std::string>{"10.77.1.20", "10.78.5.129"}));
}

TEST_F(WindowSiteTest, UnitsTheClientHearsAreRecordedAndRememberedAtTheNextStart)
{
    {
        auto client = loopbackClient();
        VornLink::WindowSite site(*client, path());
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
    EXPECT_EQ(restarted->remembered(), std::vector<std::string>{"10.78.5.129"});
}
