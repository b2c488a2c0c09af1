// SPDX-License-Identifier: Apache-2.0
// The real vornlink window (offscreen) on a private LAN, killed with SIGKILL
// while it records a thousand new units in its site file: what it committed
// is there at the next start, in a file that passes SQLite's own check.
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

#include <thread>

#include "LanTestCase.h"
#include "Simulator.h"

namespace {

using namespace std::chrono_literals;

// A connection of its own to the site file, as another program would open it.
class SiteFile {
public:
    explicit SiteFile(const std::filesystem::path& path)
    {
        auto db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kConnection);
        db.setDatabaseName(QString::fromStdString(path.string()));
        db.open();
    }
    ~SiteFile() { QSqlDatabase::removeDatabase(kConnection); }
    SiteFile(const SiteFile&) = delete;
    SiteFile& operator=(const SiteFile&) = delete;

    // The first column of the first row of `sql`, or "" when there is none.
    QString value(const char* sql) const
    {
        QSqlQuery query(QSqlDatabase::database(kConnection));
        return query.exec(QString::fromLatin1(sql)) && query.next() ? query.value(0).toString() : QString();
    }

private:
    static constexpr auto kConnection = "killed-window-site";
};

class WindowKilledOnLan : public LanTestCase {};

}  // namespace

TEST_F(WindowKilledOnLan, AWindowKilledWhileRecordingABurstLosesNothingItCommitted)
{
    LanTest::Simulator units(lan(), {"--count", "1000"}, dir());
    const auto site = dir() / "site.sqlite";
    LanTest::Process app(lan().consoleNs(),
                         {"env", "QT_QPA_PLATFORM=offscreen", "TMPDIR=" + dir().string(), LanTest::kVornlinkBinary,
                          "--site", site.string()},
                         dir());
    // Killed as soon as a first part of the burst is committed, while the rest is being stored.
    long committed = 0;
    for (int attempt = 0; attempt < 400 && committed == 0; ++attempt) {
        std::this_thread::sleep_for(25ms);
        if (std::filesystem::exists(site))
            committed = SiteFile(site).value("SELECT count(*) FROM units").toLong();
    }
    ASSERT_GT(committed, 0) << app.stderrText();
    EXPECT_EQ(app.kill(), 128 + SIGKILL);

    const SiteFile file(site);
    EXPECT_EQ(file.value("PRAGMA integrity_check"), QStringLiteral("ok"));
    EXPECT_GE(file.value("SELECT count(*) FROM units").toLong(), committed);
    EXPECT_GE(file.value("SELECT count(*) FROM config_versions").toLong(), committed);
}
