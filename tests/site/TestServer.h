// SPDX-License-Identifier: Apache-2.0
// A real PostgreSQL server for the tests: Debian's initdb and pg_ctl make it in
// a temporary folder and run it as an unprivileged user ("nobody" when the
// tests run as root), listening on a Unix socket in that folder only. One
// server per test program, started on first use and stopped at its end; a
// fresh database per test.
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace SiteTest {

class TestServer {
public:
    // The program's server, started on first use; see running() and whyNot().
    static TestServer& shared();
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    bool running() const { return running_; }
    // Why the server could not be started ("no initdb under /usr/lib/postgresql").
    const QString& whyNot() const { return whyNot_; }

    // A new, empty database; its URI for the server's own superuser.
    QString newDatabase();
    // The URI of `database` for `user`.
    QString uri(const QString& database, const QString& user = QStringLiteral("vorn_admin")) const;
    // Runs `sql` on the maintenance database as the superuser; false with a warning when it fails.
    bool admin(const QString& sql);

    // Stops and starts the server again (its data stays); false when it does not come up.
    bool stop();
    bool start();

private:
    TestServer();
    // Runs one of the server's programs as the server's user; its output when it fails.
    std::optional<QString> tool(const QString& name, const QStringList& arguments);

    QTemporaryDir dir_;
    QString bin_;
    QString socketDir_;
    QString dataDir_;
    bool running_ = false;
    QString whyNot_;
    int databases_ = 0;
};

}  // namespace SiteTest
