// SPDX-License-Identifier: Apache-2.0
// Helpers of the site store tests: a scratch folder, units to hear, a
// second, raw connection to look into a store, and the fixture that runs a
// test on an SQLite file and on a PostgreSQL server.
#pragma once

#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>

#include <string>

#include "SiteTypes.h"

namespace SiteTest {

// A fixed instant, so that times in assertions are exact.
Site::Time at(int seconds);

Site::Sighting sighting(const std::string& serial, const std::string& address, int seconds,
                        Vorn::Config extra = {});

// A raw connection to the file or server at `location` for looking at
// tables; closed on destruction.
class RawStore {
public:
    explicit RawStore(const QString& location);
    ~RawStore();
    RawStore(const RawStore&) = delete;
    RawStore& operator=(const RawStore&) = delete;

    // The first column of the first row of `sql`, as text ("" when none).
    QString value(const QString& sql);
    bool exec(const QString& sql);

private:
    QString connection_;
};

// A folder of its own with "site.sqlite" inside it.
struct Scratch {
    QTemporaryDir dir;
    QString path() const { return dir.filePath(QStringLiteral("site.sqlite")); }
};

enum class Backend { File, Server };

// A test on each store: location() is a new SQLite file or a new database on
// the test server; the server's tests skip, saying why, when it cannot start.
class OnEachStore : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override;
    const QString& location() const { return location_; }

    Scratch scratch;

private:
    QString location_;
};

std::string backendName(const ::testing::TestParamInfo<Backend>& info);

}  // namespace SiteTest
