// SPDX-License-Identifier: Apache-2.0
// One statement whose rows, if any, nobody reads, on either database.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

namespace Site {

// Runs `statement`; false, with `error`, when it fails.
bool runStatement(QSqlDatabase& db, const QString& statement, QSqlError& error);

}  // namespace Site
