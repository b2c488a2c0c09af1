// SPDX-License-Identifier: Apache-2.0
// The footer's site line: the reason while the site server does not answer,
// nothing on a file. The server here is a socket folder where none listens.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QScopeGuard>
#include <QTemporaryDir>

#include "SiteNotice.h"
#include "SiteRecorder.h"
#include "UnitHistory.h"

TEST(SiteNotice, SaysTheSiteServerIsUnreachableWithTheReason)
{
    QTemporaryDir dir;
    Site::SiteRecorder recorder(QStringLiteral("postgresql://desk@/site?host=") + dir.path(),
                                dir.filePath(QStringLiteral("journal.sqlite")));
    recorder.runAndWait([](Site::SiteStore&) {});
    UnitHistory::useRecorder(&recorder);
    const auto forget = qScopeGuard([] { UnitHistory::useRecorder(nullptr); });

    SiteNotice notice;

    EXPECT_TRUE(notice.text().startsWith(QStringLiteral("Site server unreachable: connection to server on socket \"")
                                         + dir.path()))
        << notice.text().toStdString();
}

TEST(SiteNotice, SaysNothingOnAFileAndWithoutAStore)
{
    QTemporaryDir dir;
    {
        SiteNotice notice;
        EXPECT_EQ(notice.text(), QString());
    }
    Site::SiteRecorder recorder(dir.filePath(QStringLiteral("site.sqlite")));
    UnitHistory::useRecorder(&recorder);
    const auto forget = qScopeGuard([] { UnitHistory::useRecorder(nullptr); });
    SiteNotice notice;
    EXPECT_EQ(notice.text(), QString());
}

int main(int argc, char** argv)
{
    // Qt SQL loads its drivers through the application object.
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
