// SPDX-License-Identifier: Apache-2.0
// vornctl on a site server that does not answer, run for real against vorn-sim
// and a real PostgreSQL: the set still goes out, stderr says where its record
// waits, and the next run once the server is back sends it, once.
#include <nlohmann/json.hpp>

#include <QScopeGuard>

#include "TestServer.h"
#include "VornctlTestCase.h"

namespace {

class VornctlSiteServerOnLan : public VornctlTestCase {
protected:
    void SetUp() override
    {
        VornctlTestCase::SetUp();
        if (IsSkipped())
            return;
        if (!server().running())
            GTEST_SKIP() << "no PostgreSQL server for the test: " << server().whyNot().toStdString();
        site_ = server().newDatabase().toStdString();
        ASSERT_FALSE(site_.empty());
    }

    static SiteTest::TestServer& server() { return SiteTest::TestServer::shared(); }

    Finished onSite(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.end(), {"--site", site_});
        return vornctl(arguments);
    }

    LanTest::Simulator unit() const
    {
        const std::string json = R"([{"ip": "10.232.1.1",
            "config": {"Serial": "KT-SRV001", "Channel": "3", "SwitcherModel": "0", "TallyType": "2"}}])";
        return LanTest::Simulator(lan(), {"--units", unitsFile(json)}, dir());
    }

    std::string journal() const { return (dir() / "xdg-data" / "vornlink" / "site-journal.sqlite").string(); }

private:
    std::string site_;
};

}  // namespace

TEST_F(VornctlSiteServerOnLan, ASetWhileTheServerIsAwayIsSaidAndStoredOnceItAnswers)
{
    auto sim = unit();
    const auto restart = qScopeGuard([] {
        if (!server().running())
            server().start();
    });
    ASSERT_EQ(onSite({"discover", "--timeout", "0.5"}).status, 0);
    ASSERT_TRUE(server().stop());

    const auto away = onSite({"set", "10.232.1.1", "Channel=5"});

    ASSERT_EQ(away.status, 0) << away.err;
    EXPECT_NE(away.err.find("vornctl: Site server unreachable: "), std::string::npos) << away.err;
    EXPECT_NE(away.err.find("; keeping what is recorded in " + journal() + " until it answers\n"), std::string::npos)
        << away.err;

    ASSERT_TRUE(server().start());
    const auto first = onSite({"history", "KT-SRV001", "--json"});
    const auto again = onSite({"history", "KT-SRV001", "--json"});

    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(first.err, "");
    const auto versions = nlohmann::json::parse(first.out, nullptr, false);
    ASSERT_TRUE(versions.is_array()) << first.out;
    ASSERT_EQ(versions.size(), 2u) << versions.dump();
    EXPECT_EQ(versions[0]["cause"], "written");
    EXPECT_EQ(versions[0]["program"], "vornctl");
    EXPECT_EQ(versions[0]["verdict"], "confirmed");
    EXPECT_EQ(versions[0]["changes"], nlohmann::json::parse(R"([{"key": "Channel", "from": "3", "to": "5"}])"));
    EXPECT_EQ(versions[1]["cause"], "first seen");
    EXPECT_EQ(again.out, first.out);
}
