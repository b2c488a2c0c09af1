// SPDX-License-Identifier: Apache-2.0
// A transaction that writes the store, on either database: it holds the
// store's write lock from its start, so that programs writing at once go one
// after another and each sees what the one before it committed.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>

namespace Site {

// True for a connection to a PostgreSQL server, false for an SQLite file.
bool isServer(const QSqlDatabase& db);

bool beginWrite(QSqlDatabase& db, QSqlError& error);

}  // namespace Site
