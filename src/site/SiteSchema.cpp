// SPDX-License-Identifier: Apache-2.0
#include "SiteSchema.h"

#include "WriteTransaction.h"

#include <QSqlQuery>
#include <QStringList>

#include <vector>

namespace Site::Schema {
namespace {

// Migration N takes a file from version N-1 to N. Append; never edit one
// that has shipped. Times are milliseconds since 1970 UTC.
const std::vector<QStringList>& migrations()
{
    static const std::vector<QStringList> steps{
        // 1: units, their configuration versions and the writes sent to them.
        {
            QStringLiteral("CREATE TABLE site_schema (version INTEGER NOT NULL)"),
            QStringLiteral("INSERT INTO site_schema (version) VALUES (0)"),
            QStringLiteral("CREATE TABLE units (unit_key TEXT PRIMARY KEY, serial TEXT NOT NULL,"
                           " address TEXT NOT NULL, interface TEXT NOT NULL, firmware TEXT NOT NULL,"
                           " first_seen_ms BIGINT NOT NULL, last_seen_ms BIGINT NOT NULL)"),
            QStringLiteral("CREATE TABLE config_versions (unit_key TEXT NOT NULL REFERENCES units (unit_key)"
                           " ON DELETE CASCADE, seen_ms BIGINT NOT NULL, address TEXT NOT NULL, config TEXT NOT NULL)"),
            QStringLiteral("CREATE TABLE writes (unit_key TEXT NOT NULL, sent_ms BIGINT NOT NULL,"
                           " program TEXT NOT NULL, host TEXT NOT NULL, os_user TEXT NOT NULL,"
                           " address TEXT NOT NULL, sent TEXT NOT NULL, verdict TEXT NOT NULL,"
                           " unconfirmed TEXT NOT NULL)"),
        },
        // 2: the activity log, and indexes for a unit's history.
        {
            QStringLiteral("CREATE TABLE activity (at_ms BIGINT NOT NULL, message TEXT NOT NULL)"),
            QStringLiteral("CREATE INDEX activity_by_time ON activity (at_ms)"),
            QStringLiteral("CREATE INDEX versions_by_unit ON config_versions (unit_key, seen_ms)"),
            QStringLiteral("CREATE INDEX writes_by_unit ON writes (unit_key, sent_ms)"),
        },
        // 3: the computer that heard each configuration version ("" before),
        // and the writes by time, for what other workstations did meanwhile.
        {
            QStringLiteral("ALTER TABLE config_versions ADD COLUMN host TEXT NOT NULL DEFAULT ''"),
            QStringLiteral("CREATE INDEX writes_by_time ON writes (sent_ms)"),
        },
    };
    return steps;
}

bool hasSchemaTable(QSqlDatabase& db)
{
    return db.tables().contains(QStringLiteral("site_schema"));
}

}  // namespace

int latestVersion()
{
    return static_cast<int>(migrations().size());
}

std::optional<int> versionOf(QSqlDatabase& db, QSqlError& error)
{
    if (!hasSchemaTable(db))
        return 0;
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("SELECT version FROM site_schema")) || !query.next()) {
        error = query.lastError();
        return std::nullopt;
    }
    return query.value(0).toInt();
}

bool migrate(QSqlDatabase& db, QSqlError& error, int target)
{
    const auto current = versionOf(db, error);
    if (!current)
        return false;
    for (int version = *current + 1; version <= target; ++version) {
        if (!beginWrite(db, error))
            return false;
        // Another program may have run it since the version was read.
        if (versionOf(db, error).value_or(0) >= version) {
            db.commit();
            continue;
        }
        QSqlQuery query(db);
        bool ok = true;
        for (const auto& statement : migrations()[static_cast<std::size_t>(version - 1)]) {
            if (!query.exec(statement)) {
                ok = false;
                break;
            }
        }
        if (ok) {
            query.prepare(QStringLiteral("UPDATE site_schema SET version = ?"));
            query.addBindValue(version);
            ok = query.exec();
        }
        if (!ok || !db.commit()) {
            error = ok ? db.lastError() : query.lastError();
            db.rollback();
            return false;
        }
    }
    return true;
}

}  // namespace Site::Schema
