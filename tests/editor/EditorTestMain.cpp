// SPDX-License-Identifier: Apache-2.0
// gtest entry with a QCoreApplication, so the client's timers and queued calls work.
#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
