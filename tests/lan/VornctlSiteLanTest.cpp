// SPDX-License-Identifier: Apache-2.0
// What vornctl remembers of the site, run for real against vorn-sim: the
// history after a set and after a change made outside, the remembered units,
// forgetting one, and the default file under the user's data folder.
#include <pwd.h>
#include <unistd.h>

#include <filesystem>

#include <nlohmann/json.hpp>

#include "VornctlTestCase.h"

namespace {

std::string unitsJson(const std::string& channel, const std::string& callMagic)
{
    return R"([
  {"ip": "10.232.1.1",
   "config": {"Serial": "KT-AAA111", "Version": "2.1.4", "IPAddress": "10.232.1.1", "Netmask": "255.255.0.0",
              "Gateway": "10.232.0.1", "AtemIp": "10.232.0.20", "AtemPort": "9910", "Channel": ")"
        + channel + R"(", "SwitcherBand": "7", "SwitcherModel": "0", "TallyType": "2", "CallMagic": ")" + callMagic
        + R"("}},
  {"ip": "10.232.1.2",
   "config": {"Serial": "KT-BBB222", "Channel": "12", "SwitcherBand": "5", "SwitcherModel": "2", "TallyType": "2"}}
])";
}

std::string hostName()
{
    char name[256] = {};
    ::gethostname(name, sizeof name - 1);
    return name;
}

std::string userName()
{
    const passwd* entry = ::getpwuid(::geteuid());
    return entry ? entry->pw_name : std::to_string(::geteuid());
}

class VornctlSiteOnLan : public VornctlTestCase {
protected:
    LanTest::Simulator units(const std::string& channel = "3", const std::string& callMagic = "1234") const
    {
        return LanTest::Simulator(lan(), {"--units", unitsFile(unitsJson(channel, callMagic), "units-" + channel + ".json")},
                                  dir());
    }

    std::string site() const { return (dir() / "site.sqlite").string(); }

    Finished onSite(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.end(), {"--site", site()});
        return vornctl(arguments);
    }

    nlohmann::json history(const std::string& unit, std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments{"history", unit, "--json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const auto run = onSite(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        auto parsed = nlohmann::json::parse(run.out, nullptr, false);
        EXPECT_TRUE(parsed.is_array()) << run.out << run.err;
        return parsed;
    }
};

}  // namespace

TEST_F(VornctlSiteOnLan, HistoryShowsASetWithWhoSentItAndItsVerdict)
{
    auto sim = units();

    ASSERT_EQ(onSite({"set", "10.232.1.1", "Channel=5"}).status, 0);
    const auto versions = history("KT-AAA111");

    ASSERT_EQ(versions.size(), 2u) << versions.dump();
    EXPECT_EQ(versions[0]["cause"], "written");
    EXPECT_EQ(versions[0]["program"], "vornctl");
    EXPECT_EQ(versions[0]["user"], userName());
    EXPECT_EQ(versions[0]["host"], hostName());
    EXPECT_EQ(versions[0]["verdict"], "confirmed");
    EXPECT_EQ(versions[0]["changes"], nlohmann::json::parse(R"([{"key": "Channel", "from": "3", "to": "5"}])"));
    EXPECT_EQ(versions[1]["cause"], "first seen");
    EXPECT_EQ(versions[1]["program"], nullptr);
    EXPECT_EQ(versions[1]["verdict"], nullptr);
    EXPECT_EQ(versions[1]["changes"], nlohmann::json::array());
    EXPECT_LT(versions[1]["time"].get<std::string>(), versions[0]["time"].get<std::string>());
}

TEST_F(VornctlSiteOnLan, AChangeMadeOutsideBetweenTwoRunsIsOutsideAndHidesThePassword)
{
    {
        auto before = units("3", "1234");
        ASSERT_EQ(onSite({"discover", "--timeout", "1"}).status, 0);
    }
    auto after = units("9", "7777");
    ASSERT_EQ(onSite({"discover", "--timeout", "1"}).status, 0);

    const auto versions = history("10.232.1.1");

    ASSERT_EQ(versions.size(), 2u) << versions.dump();
    EXPECT_EQ(versions[0]["cause"], "outside");
    EXPECT_EQ(versions[0]["user"], nullptr);
    // The computer that heard the change; here, this one.
    const std::string host = hostName();
    EXPECT_EQ(versions[0]["heard_on"], host);
    EXPECT_EQ(versions[0]["changes"], nlohmann::json::parse(R"json([
        {"key": "Channel", "from": "3", "to": "9"},
        {"key": "CallMagic", "from": "(hidden)", "to": "(hidden)"}])json"));
    const auto shown = history("KT-AAA111", {"--show-secrets"});
    EXPECT_EQ(shown[0]["changes"][1], nlohmann::json::parse(R"({"key": "CallMagic", "from": "1234", "to": "7777"})"));
    const auto text = onSite({"history", "KT-AAA111"});
    EXPECT_NE(text.out.find("  Changed outside VornLink \u00B7 heard on " + host
                            + "\n  Channel: 3 \u2192 9\n  CallMagic: (hidden) \u2192 (hidden)\n"),
              std::string::npos)
        << text.out;
    EXPECT_NE(text.out.find("  First seen on " + host + "\n"), std::string::npos) << text.out;
}

TEST_F(VornctlSiteOnLan, HistorySinceLeavesOutEarlierVersions)
{
    auto sim = units();
    ASSERT_EQ(onSite({"discover", "--timeout", "0.5"}).status, 0);

    EXPECT_EQ(history("KT-AAA111", {"--since", "2000-01-01"}).size(), 1u);
    EXPECT_EQ(history("KT-AAA111", {"--since", "2999-01-01T00:00:00Z"}).size(), 0u);
    EXPECT_EQ(onSite({"history", "KT-AAA111", "--since", "yesterday"}).status, 2);
}

TEST_F(VornctlSiteOnLan, UnitsListsRememberedUnitsAndWhichAnswerNow)
{
    {
        auto sim = units();
        ASSERT_EQ(onSite({"discover", "--timeout", "1"}).status, 0);
        const auto run = onSite({"units", "--json", "--timeout", "1"});
        ASSERT_EQ(run.status, 0) << run.err;
        const auto list = nlohmann::json::parse(run.out);
        ASSERT_EQ(list.size(), 2u);
        EXPECT_EQ(list[0]["serial"], "KT-AAA111");
        EXPECT_EQ(list[0]["address"], "10.232.1.1");
        EXPECT_EQ(list[0]["firmware"], "2.1.4");
        EXPECT_EQ(list[0]["online"], true);
        EXPECT_EQ(list[1]["serial"], "KT-BBB222");
    }
    const auto run = onSite({"units", "--timeout", "0.5"});

    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("10.232.1.1  KT-AAA111  2.1.4  first seen "), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("  offline\n10.232.1.2  KT-BBB222  -  first seen "), std::string::npos) << run.out;
}

TEST_F(VornctlSiteOnLan, ForgetRemovesTheUnitAndItsHistory)
{
    auto sim = units();
    ASSERT_EQ(onSite({"set", "10.232.1.2", "Channel=4"}).status, 0);

    EXPECT_EQ(onSite({"forget", "KT-BBB222"}).status, 2);
    const auto forgot = onSite({"forget", "10.232.1.2", "--yes"});
    EXPECT_EQ(forgot.status, 0) << forgot.err;
    EXPECT_EQ(forgot.out, "forgot KT-BBB222 (10.232.1.2)\n");

    const auto gone = onSite({"history", "KT-BBB222"});
    EXPECT_EQ(gone.status, 4);
    EXPECT_EQ(gone.err, "vornctl: KT-BBB222 is not a remembered unit\n");
    EXPECT_EQ(onSite({"forget", "KT-BBB222", "--yes"}).status, 4);
    // Never heard: set asked only the other unit.
    EXPECT_EQ(onSite({"history", "KT-AAA111"}).status, 4);
}

TEST_F(VornctlSiteOnLan, TheDefaultFileIsUnderTheDataFolderAndNoSiteWritesNone)
{
    auto sim = units();
    const auto file = dir() / "xdg-data" / "vornlink" / "site.sqlite";

    ASSERT_EQ(vornctl({"discover", "--timeout", "0.5", "--no-site"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(file));
    ASSERT_EQ(vornctl({"discover", "--timeout", "0.5"}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(vornctl({"units", "--no-site"}).status, 2);
}

TEST_F(VornctlSiteOnLan, ADamagedFileIsReportedOnceAndReplaced)
{
    auto sim = units();
    textFile(std::string(4096, 'x'), "site.sqlite");

    const auto first = onSite({"discover", "--timeout", "0.5"});
    const auto second = onSite({"discover", "--timeout", "0.5"});

    EXPECT_EQ(first.status, 0);
    EXPECT_NE(first.err.find("vornctl: The site file was damaged; kept as " + site() + ".damaged-"), std::string::npos)
        << first.err;
    EXPECT_EQ(second.err.find("damaged"), std::string::npos) << second.err;
    EXPECT_EQ(history("KT-AAA111").size(), 1u);
}
