// SPDX-License-Identifier: Apache-2.0
// Everything about the store that only SQLite has: the file and its folder
// with their permissions, the header check, WAL, the busy timeout, the
// corruption codes and moving a damaged file aside. All other SQL of the
// store is portable.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

#include <optional>

#include "SiteTypes.h"

namespace Site::Sqlite {

// How long a connection waits for another program's transaction to end.
inline constexpr int kBusyTimeoutMs = 1000;

struct Opened {
    QSqlDatabase db;       // valid and open when `problem` is empty
    QString problem;       // why the file cannot be used ("permission denied on …")
    bool damaged = false;  // the file is not a database or is cut short
};

// Makes the folder (0700) and the file (0600) when missing, checks the file's
// header and length, opens it under `connection` with WAL and the busy timeout.
Opened openFile(const QString& path, const QString& connection, bool readOnly);

// True for the errors of a file that is not, or no longer, a database.
bool isDamage(const QSqlError& error);

// Moves `path` (and its WAL) aside to "<path>.damaged-<UTC time>"; the new
// name, or nullopt when it cannot be moved.
std::optional<QString> moveAside(const QString& path, Time now);

// Starts a transaction that takes the write lock at once (waiting up to the
// busy timeout), so that it never fails later when it first writes after
// another program committed since its first read.
bool beginWrite(QSqlDatabase& db, QSqlError& error);

// PRAGMA integrity_check: "ok" or the first problem it reports.
QString integrityCheck(QSqlDatabase& db);

}  // namespace Site::Sqlite
