// SPDX-License-Identifier: Apache-2.0
// gtest entry with a QCoreApplication, so queued calls and timers work.
#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
