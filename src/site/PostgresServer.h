// SPDX-License-Identifier: Apache-2.0
// Everything about the store that only a PostgreSQL server has: the
// connection URI (read by libpq itself, the password from ~/.pgpass or
// PGPASSWORD only), telling an unreachable server from one that refuses us,
// a lost connection, and the advisory lock that lets one program write at a
// time. All other SQL of the store is portable.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

namespace Site::Postgres {

// Waited for a server that does not answer, unless the URI names its own connect_timeout.
inline constexpr int kConnectTimeoutSeconds = 5;

// True for "postgresql://…" and "postgres://…".
bool isServerUri(const QString& location);

struct Opened {
    QSqlDatabase db;           // valid and open when `problem` is empty
    QString problem;           // why the server cannot be used
    bool unreachable = false;  // nothing answers (as against a refusal, e.g. of the credentials)
};

// Connects to the server `uri` names under `connection`. A password in the
// URI is refused: it belongs in ~/.pgpass or PGPASSWORD.
Opened openServer(const QString& uri, const QString& connection);

// True when the connection to the server is gone (the server stopped, the
// network broke); asks the server when the connection still looks whole.
// Not inside a failed transaction: roll it back first.
bool connectionLost(const QSqlDatabase& db);

// Starts a transaction that holds the store's write lock until it ends, so
// that the programs of a site write one after another, as on a file.
bool beginWrite(QSqlDatabase& db, QSqlError& error);

// Asks the server to tell this connection of every other connection's
// announced change (LISTEN).
bool listen(QSqlDatabase& db, QSqlError& error);

// Inside a write transaction: at its commit, every listening connection is told (NOTIFY).
bool announceChange(QSqlDatabase& db, QSqlError& error);

// Reads, without waiting, what the server told since the last call; true when
// another connection announced a change (this connection's own are left out).
bool changedElsewhere(const QSqlDatabase& db);

}  // namespace Site::Postgres
