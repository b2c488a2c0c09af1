// SPDX-License-Identifier: Apache-2.0
#include "PostgresServer.h"

#include <QSqlDriver>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <string>

#include "LibPq.h"
#include "SqlStatement.h"

namespace Site::Postgres {
namespace {

// The store's write lock: one key for every program of every site on the server ("VornLink" in ASCII).
constexpr long long kWriteLockKey = 0x566f726e4c696e6bLL;
// The channel on which writers announce their changes.
constexpr auto kChannel = "vornlink_site";

struct ConninfoFree {
    void operator()(PQconninfoOption* options) const { libPq()->conninfoFree(options); }
};

// 'value' with quotes and backslashes escaped, as a connection string wants it.
QString quoted(const QString& value)
{
    QString escaped = value;
    escaped.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('\''), QStringLiteral("\\'"));
    return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

// libpq's words for why nothing answers, on one line: its lines become
// sentences ("… failed: No such file or directory; Is the server running …").
QString oneLine(const QString& text)
{
    QStringList lines;
    for (const auto& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (const QString said = line.simplified(); !said.isEmpty())
            lines << said;
    }
    return lines.join(QStringLiteral("; "));
}

// libpq's connection under Qt's, or nullptr.
PGconn* connectionOf(const QSqlDatabase& db)
{
    if (!db.isOpen())
        return nullptr;
    const QVariant handle = db.driver()->handle();
    // Qt names the type by the struct PGconn stands for.
    if (!handle.isValid() || (qstrcmp(handle.typeName(), "pg_conn*") != 0 && qstrcmp(handle.typeName(), "PGconn*") != 0))
        return nullptr;
    return *static_cast<PGconn* const*>(handle.constData());
}

}  // namespace

bool isServerUri(const QString& location)
{
    return location.startsWith(QStringLiteral("postgresql://")) || location.startsWith(QStringLiteral("postgres://"));
}

Opened openServer(const QString& uri, const QString& connection)
{
    Opened opened;
    // Qt SQL's driver depends on libpq: without one, neither is there.
    const LibPq* const pq = libPq();
    const QString noDriver = QStringLiteral("the PostgreSQL driver of Qt SQL is not installed (Debian: libqt6sql6-psql)");
    if (!pq) {
        opened.problem = noDriver;
        return opened;
    }
    const QByteArray text = uri.toUtf8();
    char* parseError = nullptr;
    std::unique_ptr<PQconninfoOption, ConninfoFree> options(pq->conninfoParse(text.constData(), &parseError));
    if (!options) {
        opened.problem = QStringLiteral("the site server address %1 cannot be read: %2")
                             .arg(uri, parseError ? oneLine(QString::fromUtf8(parseError)) : QStringLiteral("out of memory"));
        pq->freemem(parseError);
        return opened;
    }
    opened.db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connection);
    if (!opened.db.isValid()) {
        opened.problem = noDriver;
        return opened;
    }
    QStringList rest;
    bool timeoutGiven = false;
    for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
        if (!option->val)
            continue;
        const QString keyword = QString::fromUtf8(option->keyword);
        const QString value = QString::fromUtf8(option->val);
        if (keyword == QLatin1String("password")) {
            opened.problem = QStringLiteral("the site server address holds a password; put it in ~/.pgpass or PGPASSWORD instead");
            return opened;
        }
        if (value.contains(QLatin1Char(';'))) {
            opened.problem = QStringLiteral("the site server address has a ';' in %1, which cannot be passed on").arg(keyword);
            return opened;
        }
        if (keyword == QLatin1String("host"))
            opened.db.setHostName(value);
        else if (keyword == QLatin1String("dbname"))
            opened.db.setDatabaseName(value);
        else if (keyword == QLatin1String("user"))
            opened.db.setUserName(value);
        else if (keyword == QLatin1String("port") && value.toInt() > 0)
            opened.db.setPort(value.toInt());
        else
            rest << keyword + QLatin1Char('=') + quoted(value);
        timeoutGiven = timeoutGiven || keyword == QLatin1String("connect_timeout");
    }
    if (!timeoutGiven)
        rest << QStringLiteral("connect_timeout=%1").arg(kConnectTimeoutSeconds);
    opened.db.setConnectOptions(rest.join(QLatin1Char(';')));
    if (opened.db.open())
        return opened;
    // The driver's text starts with its own "Unable to connect"; libpq's reason is what tells.
    const QString reason = oneLine(opened.db.lastError().databaseText());
    const QByteArray timeout = QByteArray::number(kConnectTimeoutSeconds);
    const char* keywords[] = {"connect_timeout", "dbname", nullptr};
    const char* values[] = {timeout.constData(), text.constData(), nullptr};
    opened.unreachable = pq->pingParams(keywords, values, 1) == PQPING_NO_RESPONSE;
    opened.problem = reason.isEmpty() ? oneLine(opened.db.lastError().text()) : reason;
    opened.db.close();
    return opened;
}

bool connectionLost(const QSqlDatabase& db)
{
    PGconn* const connection = connectionOf(db);
    if (!connection || libPq()->status(connection) == CONNECTION_BAD)
        return true;
    // A server that shut down may have said so in the failed statement's
    // answer before libpq saw the connection close: asking again tells.
    QSqlQuery probe(db);
    return !probe.exec(QStringLiteral("SELECT 1")) && libPq()->status(connection) == CONNECTION_BAD;
}

bool beginWrite(QSqlDatabase& db, QSqlError& error)
{
    if (!db.transaction()) {
        error = db.lastError();
        return false;
    }
    if (runStatement(db, QStringLiteral("SELECT pg_advisory_xact_lock(%1)").arg(kWriteLockKey), error))
        return true;
    db.rollback();
    return false;
}

bool listen(QSqlDatabase& db, QSqlError& error)
{
    return runStatement(db, QStringLiteral("LISTEN %1").arg(QLatin1String(kChannel)), error);
}

bool announceChange(QSqlDatabase& db, QSqlError& error)
{
    return runStatement(db, QStringLiteral("NOTIFY %1").arg(QLatin1String(kChannel)), error);
}

bool changedElsewhere(const QSqlDatabase& db)
{
    PGconn* const connection = connectionOf(db);
    const LibPq* const pq = libPq();
    if (!connection || pq->consumeInput(connection) == 0)
        return false;
    const int own = pq->backendPID(connection);
    bool elsewhere = false;
    while (PGnotify* notice = pq->notifies(connection)) {
        elsewhere = elsewhere || notice->be_pid != own;
        pq->freemem(notice);
    }
    return elsewhere;
}

}  // namespace Site::Postgres
