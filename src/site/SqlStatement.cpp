// SPDX-License-Identifier: Apache-2.0
#include "SqlStatement.h"

#include <QSqlQuery>

namespace Site {

bool runStatement(QSqlDatabase& db, const QString& statement, QSqlError& error)
{
    QSqlQuery query(db);
    if (query.exec(statement))
        return true;
    error = query.lastError();
    return false;
}

}  // namespace Site
