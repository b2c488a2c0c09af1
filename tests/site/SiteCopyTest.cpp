// SPDX-License-Identifier: Apache-2.0
// vornctl site copy on real stores: a file into a server and back, each unit's
// history unchanged; a target that remembers something is refused unless
// --merge, and merging the same store twice stores no version twice.
#include <gtest/gtest.h>

#include <QFileInfo>

#include <sstream>

#include "Commands.h"
#include "SiteStore.h"
#include "SiteTestKit.h"
#include "TestServer.h"

using namespace SiteTest;
using Site::SiteStore;

namespace {

class SiteCopyInto : public OnEachStore {};
INSTANTIATE_TEST_SUITE_P(Stores, SiteCopyInto, ::testing::Values(Backend::File, Backend::Server), backendName);

struct Run {
    int status = -1;
    std::string out;
    std::string err;
};

Run copy(const QString& from, const QString& to, bool merge = false)
{
    std::ostringstream out;
    std::ostringstream err;
    const int status = VornCtl::runSiteCopy(out, err, {from.toStdString(), to.toStdString(), merge});
    return {status, out.str(), err.str()};
}

// Two units, one of them changed by a write and once from outside (heard on
// another computer), and activity.
void fill(const QString& location)
{
    auto store = SiteStore::open(location);
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 0), sighting("", "10.77.1.9", 0)}, {},
                              {{at(0), "found 10.77.1.5"}}));
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 12, {{"Channel", "9"}})},
                              {{at(10), "vornctl", "laptop", "kim", "KT-0001", "10.77.1.5", {{"Channel", "9"}},
                                Site::Verdict::Confirmed, {}}},
                              {{at(10), "wrote Channel to 10.77.1.5"}}));
    auto heardElsewhere = sighting("KT-0001", "10.77.1.5", 100, {{"Channel", "4"}});
    heardElsewhere.host = "vision-desk";
    ASSERT_TRUE(store->record({heardElsewhere}));
    ASSERT_TRUE(store->record({sighting("KT-0001", "10.77.1.5", 400, {{"Channel", "4"}})}));
}

// What a store remembers, as text to compare.
std::string contents(const QString& location)
{
    auto store = SiteStore::open(location);
    std::ostringstream text;
    for (const auto& unit : store->units()) {
        text << unit.key << ' ' << unit.address << ' ' << unit.interface << ' ' << unit.firmware << ' '
             << unit.firstSeen.time_since_epoch().count() << ' ' << unit.lastSeen.time_since_epoch().count() << '\n';
        for (const auto& entry : store->history(unit.key)) {
            text << "  " << entry.at.time_since_epoch().count() << ' ' << static_cast<int>(entry.cause) << ' '
                 << entry.host;
            if (entry.write)
                text << ' ' << entry.write->host << ' ' << Site::verdictText(entry.write->verdict);
            for (const auto& change : entry.changes)
                text << ' ' << change.key << ':' << change.from << '>' << change.to;
            text << '\n';
        }
    }
    for (const auto& entry : store->activity(Site::Time{}))
        text << entry.at.time_since_epoch().count() << ' ' << entry.message << '\n';
    return text.str();
}

}  // namespace

TEST_P(SiteCopyInto, AFileIsCopiedWholeAndCopiedBackTheSame)
{
    const QString laptop = scratch.dir.filePath("laptop.sqlite");
    fill(laptop);

    const auto there = copy(laptop, location());
    ASSERT_EQ(there.status, 0) << there.err;
    EXPECT_EQ(there.out, "copied 2 units, 4 versions, 1 writes and 2 activity entries\n");
    EXPECT_EQ(contents(location()), contents(laptop));
    EXPECT_NE(contents(location()).find(" vision-desk"), std::string::npos);

    const QString back = scratch.dir.filePath("back.sqlite");
    const auto returned = copy(location(), back);
    ASSERT_EQ(returned.status, 0) << returned.err;
    EXPECT_EQ(contents(back), contents(laptop));
    EXPECT_NE(contents(back).find("KT-0001"), std::string::npos);
}

TEST_P(SiteCopyInto, ATargetThatRemembersSomethingIsRefusedUnlessMerge)
{
    const QString laptop = scratch.dir.filePath("laptop.sqlite");
    fill(laptop);
    {
        auto target = SiteStore::open(location());
        ASSERT_TRUE(target->record({}, {}, {{at(1), "found 10.77.9.9"}}));
    }
    const std::string before = contents(location());

    const auto refused = copy(laptop, location());
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err, "vornctl: the site " + location().toStdString()
                               + " already remembers units or activity; add --merge to copy into it\n");
    EXPECT_EQ(contents(location()), before);

    ASSERT_EQ(copy(laptop, location(), true).status, 0);
    ASSERT_EQ(copy(laptop, location(), true).status, 0);
    RawStore raw(location());
    EXPECT_EQ(raw.value("SELECT count(*) FROM config_versions"), "4");
    EXPECT_EQ(raw.value("SELECT count(*) FROM units"), "2");
}

TEST(SiteCopy, AMissingSourceFileIsNamedAndNotMade)
{
    Scratch scratch;
    const QString missing = scratch.dir.filePath("none.sqlite");

    const auto run = copy(missing, scratch.path());

    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "vornctl: there is no site file " + missing.toStdString() + "\n");
    EXPECT_FALSE(QFileInfo::exists(missing));
}
