// SPDX-License-Identifier: Apache-2.0
#include "SiteTestKit.h"

#include <QSqlQuery>
#include <QVariant>

#include <atomic>

#include "PostgresServer.h"
#include "TestServer.h"

namespace SiteTest {

Site::Time at(int seconds)
{
    // 2026-11-20 00:00:00 UTC
    return Site::Time(std::chrono::seconds(1795132800 + seconds));
}

Site::Sighting sighting(const std::string& serial, const std::string& address, int seconds, Vorn::Config extra)
{
    Vorn::Config config{{"IPAddress", address}, {"Channel", "3"}, {"Version", "2.1.4"}};
    if (!serial.empty())
        config.insert_or_assign("Serial", serial);
    for (const auto& [key, value] : extra)
        config.insert_or_assign(key, value);
    return {address, "studio0 \u00B7 10.77.1.1/24", config, at(seconds)};
}

RawStore::RawStore(const QString& location)
{
    static std::atomic<int> counter{0};
    connection_ = QStringLiteral("raw-%1").arg(++counter);
    if (Site::Postgres::isServerUri(location)) {
        const auto opened = Site::Postgres::openServer(location, connection_);
        if (!opened.problem.isEmpty())
            ADD_FAILURE() << "cannot look into " << location.toStdString() << ": " << opened.problem.toStdString();
        return;
    }
    auto db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection_);
    db.setDatabaseName(location);
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
    db.open();
}

RawStore::~RawStore()
{
    QSqlDatabase::database(connection_, false).close();
    QSqlDatabase::removeDatabase(connection_);
}

QString RawStore::value(const QString& sql)
{
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    if (!query.exec(sql) || !query.next())
        return {};
    return query.value(0).toString();
}

bool RawStore::exec(const QString& sql)
{
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    return query.exec(sql);
}

}  // namespace SiteTest

namespace SiteTest {

void OnEachStore::SetUp()
{
    if (GetParam() == Backend::File) {
        location_ = scratch.path();
        return;
    }
    auto& server = TestServer::shared();
    if (!server.running())
        GTEST_SKIP() << "no PostgreSQL server for the test: " << server.whyNot().toStdString();
    location_ = server.newDatabase();
    ASSERT_FALSE(location_.isEmpty()) << "the test server made no database";
}

std::string backendName(const ::testing::TestParamInfo<Backend>& info)
{
    return info.param == Backend::File ? "File" : "Server";
}

}  // namespace SiteTest
