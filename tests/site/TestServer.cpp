// SPDX-License-Identifier: Apache-2.0
#include "TestServer.h"

#include <pwd.h>
#include <signal.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "PostgresServer.h"
#include "Spawn.h"

namespace SiteTest {
namespace {

constexpr auto kSuperuser = "vorn_admin";

// The newest server programs Debian installed, or empty.
QString serverPrograms()
{
    const QDir versions(QStringLiteral("/usr/lib/postgresql"));
    auto found = versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    std::sort(found.begin(), found.end(), [](const QString& a, const QString& b) { return a.toInt() < b.toInt(); });
    for (auto it = found.crbegin(); it != found.crend(); ++it) {
        const QString bin = versions.filePath(*it + QStringLiteral("/bin"));
        if (QFile::exists(bin + QStringLiteral("/initdb")) && QFile::exists(bin + QStringLiteral("/pg_ctl")))
            return bin;
    }
    return {};
}

}  // namespace

TestServer& TestServer::shared()
{
    static TestServer server;
    return server;
}

TestServer::TestServer() : dir_(QStringLiteral("/tmp/vorn-pg-XXXXXX"))
{
    bin_ = serverPrograms();
    if (bin_.isEmpty()) {
        whyNot_ = QStringLiteral("no initdb and pg_ctl under /usr/lib/postgresql (Debian package postgresql)");
        return;
    }
    if (!dir_.isValid()) {
        whyNot_ = QStringLiteral("cannot make a temporary folder for the server");
        return;
    }
    socketDir_ = dir_.path();
    dataDir_ = dir_.filePath(QStringLiteral("data"));
    if (::geteuid() == 0) {
        // The server refuses to run as root: its folder goes to "nobody".
        const passwd* nobody = ::getpwnam("nobody");
        if (!nobody || QStandardPaths::findExecutable(QStringLiteral("runuser")).isEmpty()) {
            whyNot_ = QStringLiteral("running as root without the user nobody or runuser to start the server as");
            return;
        }
        if (::chown(QFile::encodeName(socketDir_).constData(), nobody->pw_uid, nobody->pw_gid) != 0) {
            whyNot_ = QStringLiteral("cannot hand the server's folder to nobody");
            return;
        }
    }
    if (auto failure = tool(QStringLiteral("initdb"), {QStringLiteral("-D"), dataDir_, QStringLiteral("-U"),
                                                       QLatin1String(kSuperuser), QStringLiteral("--auth=trust"),
                                                       QStringLiteral("--no-locale"), QStringLiteral("-E"),
                                                       QStringLiteral("UTF8"), QStringLiteral("--no-sync")})) {
        whyNot_ = QStringLiteral("initdb failed: ") + *failure;
        return;
    }
    // A password for the role "desk", so that wrong credentials can be tried; no password for the others.
    QFile access(dataDir_ + QStringLiteral("/pg_hba.conf"));
    if (!access.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || access.write("local all desk scram-sha-256\nlocal all all trust\n") < 0) {
        whyNot_ = QStringLiteral("cannot write pg_hba.conf");
        return;
    }
    access.close();
    running_ = start();
}

TestServer::~TestServer()
{
    if (running_)
        stop();
}

std::optional<QString> TestServer::tool(const QString& name, const QStringList& arguments)
{
    std::vector<std::string> command;
    if (::geteuid() == 0)
        command = {"runuser", "-u", "nobody", "--"};
    command.push_back(QFile::encodeName(bin_ + QLatin1Char('/') + name).toStdString());
    for (const auto& argument : arguments)
        command.push_back(QFile::encodeName(argument).toStdString());
    const QString output = dir_.filePath(name + QStringLiteral(".out"));
    QFile::remove(output);
    const std::filesystem::path outputPath = QFile::encodeName(output).toStdString();
    try {
        const pid_t child = LanTest::detail::spawn(command, outputPath, outputPath,
                                                   QFile::encodeName(dir_.path()).toStdString());
        const auto status = LanTest::detail::waitForExit(child, std::chrono::seconds(60));
        if (!status) {
            ::kill(child, SIGKILL);
            LanTest::detail::waitForExit(child);
            return name + QStringLiteral(" did not finish");
        }
        if (*status == 0)
            return std::nullopt;
    } catch (const std::runtime_error& error) {
        return QString::fromLocal8Bit(error.what());
    }
    QFile said(output);
    said.open(QIODevice::ReadOnly);
    return QString::fromLocal8Bit(said.readAll()).trimmed();
}

bool TestServer::start()
{
    // Only the socket in the folder; no fsync, the data is thrown away.
    const auto failure = tool(QStringLiteral("pg_ctl"),
                              {QStringLiteral("-D"), dataDir_, QStringLiteral("-l"), dir_.filePath(QStringLiteral("server.log")),
                               QStringLiteral("-w"), QStringLiteral("-t"), QStringLiteral("60"), QStringLiteral("-o"),
                               QStringLiteral("-k %1 -c listen_addresses='' -F").arg(socketDir_), QStringLiteral("start")});
    if (failure) {
        QFile log(dir_.filePath(QStringLiteral("server.log")));
        log.open(QIODevice::ReadOnly);
        whyNot_ = QStringLiteral("pg_ctl start failed: ") + *failure + QLatin1Char(' ')
            + QString::fromLocal8Bit(log.readAll()).simplified();
        running_ = false;
        return false;
    }
    running_ = true;
    return true;
}

bool TestServer::stop()
{
    const auto failure = tool(QStringLiteral("pg_ctl"), {QStringLiteral("-D"), dataDir_, QStringLiteral("-m"),
                                                         QStringLiteral("fast"), QStringLiteral("-w"), QStringLiteral("stop")});
    if (!failure)
        running_ = false;
    return !failure;
}

QString TestServer::uri(const QString& database, const QString& user) const
{
    return QStringLiteral("postgresql://%1@/%2?host=%3").arg(user, database, socketDir_);
}

bool TestServer::admin(const QString& sql)
{
    static std::atomic<int> counter{0};
    const QString connection = QStringLiteral("test-server-admin-%1").arg(++counter);
    bool done = false;
    {
        auto opened = Site::Postgres::openServer(uri(QStringLiteral("postgres")), connection);
        if (opened.problem.isEmpty()) {
            QSqlQuery query(opened.db);
            done = query.exec(sql);
            if (!done)
                qWarning("%s: %s", qPrintable(sql), qPrintable(query.lastError().text()));
        } else {
            qWarning("cannot reach the test server: %s", qPrintable(opened.problem));
        }
        opened.db.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return done;
}

QString TestServer::newDatabase()
{
    const QString name = QStringLiteral("site_%1").arg(++databases_);
    if (!admin(QStringLiteral("CREATE DATABASE %1").arg(name)))
        return {};
    return uri(name);
}

}  // namespace SiteTest
