// SPDX-License-Identifier: Apache-2.0
#include "WriteTransaction.h"

#include "PostgresServer.h"
#include "SqliteFile.h"

namespace Site {

bool isServer(const QSqlDatabase& db)
{
    return db.driverName() == QLatin1String("QPSQL");
}

bool beginWrite(QSqlDatabase& db, QSqlError& error)
{
    return isServer(db) ? Postgres::beginWrite(db, error) : Sqlite::beginWrite(db, error);
}

}  // namespace Site
