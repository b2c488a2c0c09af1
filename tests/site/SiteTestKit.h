// SPDX-License-Identifier: Apache-2.0
// Helpers of the site store tests: a scratch folder, units to hear, and a
// second, raw connection to look into a file.
#pragma once

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

// A raw connection to `path` for looking at tables; closed on destruction.
class RawFile {
public:
    explicit RawFile(const QString& path);
    ~RawFile();
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;

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

}  // namespace SiteTest
