// SPDX-License-Identifier: Apache-2.0
#include "SqliteFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>

#include <array>
#include <cerrno>
#include <cstring>

#include "SqlStatement.h"

namespace Site::Sqlite {
namespace {

constexpr std::array<char, 16> kMagic{'S', 'Q', 'L', 'i', 't', 'e', ' ', 'f', 'o', 'r', 'm', 'a', 't', ' ', '3', '\0'};
constexpr int kHeaderLength = 100;

QString systemError(const QString& what, const QString& path)
{
    return what + " " + path + ": " + QString::fromLocal8Bit(std::strerror(errno));
}

// The folder, private to the user, made with its parents when missing.
QString makeFolder(const QString& folder)
{
    if (QFileInfo(folder).isDir())
        return {};
    if (!QDir().mkpath(folder))
        return QStringLiteral("cannot make the folder ") + folder;
    if (::chmod(QFile::encodeName(folder).constData(), 0700) != 0)
        return systemError(QStringLiteral("cannot make private"), folder);
    return {};
}

// An empty file is a new database; create it with the user's rights only.
QString makeFile(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    if (fd < 0)
        return systemError(QStringLiteral("cannot write"), path);
    ::close(fd);
    return {};
}

std::uint32_t bigEndian(const unsigned char* bytes, int count)
{
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value = (value << 8) | bytes[i];
    return value;
}

// A non-empty file must start with SQLite's header and be as long as the
// header says (a file cut short fails this before any query reads it).
bool looksWhole(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return true;  // unreadable is not damaged; opening says why
    const qint64 size = file.size();
    if (size == 0)
        return true;
    const QByteArray header = file.read(kHeaderLength);
    if (header.size() < kHeaderLength || std::memcmp(header.constData(), kMagic.data(), kMagic.size()) != 0)
        return false;
    const auto* bytes = reinterpret_cast<const unsigned char*>(header.constData());
    std::uint32_t pageSize = bigEndian(bytes + 16, 2);
    if (pageSize == 1)
        pageSize = 65536;
    const std::uint32_t pages = bigEndian(bytes + 28, 4);
    // The page count is valid only while the two change counters agree.
    const bool countValid = bigEndian(bytes + 24, 4) == bigEndian(bytes + 92, 4) && pages != 0;
    return !countValid || static_cast<qint64>(pageSize) * pages <= size;
}

}  // namespace

Opened openFile(const QString& path, const QString& connection, bool readOnly)
{
    Opened opened;
    if (!readOnly) {
        if (auto problem = makeFolder(QFileInfo(path).absolutePath()); !problem.isEmpty()) {
            opened.problem = problem;
            return opened;
        }
        if (!QFileInfo::exists(path)) {
            if (auto problem = makeFile(path); !problem.isEmpty()) {
                opened.problem = problem;
                return opened;
            }
        }
    }
    if (!looksWhole(path)) {
        opened.damaged = true;
        return opened;
    }
    opened.db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
    opened.db.setDatabaseName(path);
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(kBusyTimeoutMs);
    if (readOnly)
        options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    opened.db.setConnectOptions(options);
    if (!opened.db.open()) {
        opened.problem = opened.db.lastError().text();
        return opened;
    }
    QSqlError error;
    // Readers never wait for the writer; a killed writer loses nothing it committed.
    const bool ready = (readOnly || runStatement(opened.db, QStringLiteral("PRAGMA journal_mode=WAL"), error))
        && runStatement(opened.db, QStringLiteral("PRAGMA synchronous=NORMAL"), error)
        && runStatement(opened.db, QStringLiteral("PRAGMA foreign_keys=ON"), error)
        // Reading the catalogue is what fails on a file that is no database.
        && runStatement(opened.db, QStringLiteral("SELECT count(*) FROM sqlite_master"), error);
    if (!ready) {
        opened.damaged = isDamage(error);
        opened.problem = error.text();
        opened.db.close();
    }
    return opened;
}

bool isDamage(const QSqlError& error)
{
    // SQLITE_CORRUPT and SQLITE_NOTADB, with or without an extended code.
    bool ok = false;
    const int code = error.nativeErrorCode().toInt(&ok) & 0xff;
    return ok && (code == 11 || code == 26);
}

std::optional<QString> moveAside(const QString& path, Time now)
{
    const auto stamp = QDateTime::fromMSecsSinceEpoch(
                           std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count(),
                           Qt::UTC)
                           .toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
    const QString aside = path + QStringLiteral(".damaged-") + stamp;
    if (!QFile::rename(path, aside))
        return std::nullopt;
    QFile::rename(path + QStringLiteral("-wal"), aside + QStringLiteral("-wal"));
    QFile::remove(path + QStringLiteral("-shm"));
    return aside;
}

bool beginWrite(QSqlDatabase& db, QSqlError& error)
{
    return runStatement(db, QStringLiteral("BEGIN IMMEDIATE"), error);
}

QString integrityCheck(QSqlDatabase& db)
{
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("PRAGMA integrity_check")))
        return query.lastError().text();
    return query.next() ? query.value(0).toString() : QStringLiteral("no answer");
}

}  // namespace Site::Sqlite
