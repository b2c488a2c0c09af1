// SPDX-License-Identifier: Apache-2.0
// The store's tables, versioned in a table of their own (portable SQL) and
// brought up to date by ordered migrations, each one transaction.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>

#include <optional>

namespace Site::Schema {

// The version this program writes; a file at a higher one is opened read-only.
int latestVersion();

// The file's version: 0 for a new file, nullopt (with `error`) when it cannot be read.
std::optional<int> versionOf(QSqlDatabase& db, QSqlError& error);

// Runs the migrations after the file's version up to `target` (default: the
// latest). False, with `error`, when one fails; that one is rolled back.
bool migrate(QSqlDatabase& db, QSqlError& error, int target = latestVersion());

}  // namespace Site::Schema
