// SPDX-License-Identifier: Apache-2.0
// The Online chip: fewer than 15.0 s since the unit's last reply, judged by
// the link's clock, whose tick also makes it lapse without any traffic.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "EditorTestKit.h"

using namespace EditorTest;
using namespace std::chrono_literals;

namespace {

class DeviceEditorPresence : public EditorFixture {
protected:
    void SetUp() override
    {
        report({{"SwitcherBand", "7"}});
        open();
    }
};

}  // namespace

TEST_F(DeviceEditorPresence, UnitThatJustAnsweredIsOnline)
{
    EXPECT_TRUE(header().online());
    EXPECT_EQ(header().onlineText(), QStringLiteral("Online"));
}

TEST_F(DeviceEditorPresence, UnitLastSeen14Point9SecondsAgoIsOnline)
{
    link.advance(14900ms);
    link.tick();
    EXPECT_TRUE(header().online());
}

TEST_F(DeviceEditorPresence, UnitLastSeenExactly15SecondsAgoIsOffline)
{
    link.advance(15s);
    link.tick();
    EXPECT_FALSE(header().online());
    EXPECT_EQ(header().onlineText(), QStringLiteral("Offline"));
}

TEST_F(DeviceEditorPresence, UnknownUnitIsOffline)
{
    editor.setIp(QStringLiteral("127.0.0.9"));
    EXPECT_FALSE(header().online());
    EXPECT_EQ(header().onlineText(), QStringLiteral("Offline"));
}

TEST_F(DeviceEditorPresence, ClockTickAloneTurnsTheUnitOfflineOnce)
{
    QSignalSpy onlineSpy(&header(), &EditorHeader::changed);
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    link.advance(14s);
    link.tick();
    EXPECT_EQ(onlineSpy.count(), 0);
    link.advance(1s);
    link.tick();
    link.tick();
    EXPECT_FALSE(header().online());
    EXPECT_EQ(onlineSpy.count(), 1);
    EXPECT_EQ(header().onlineText(), QStringLiteral("Offline"));
    EXPECT_EQ(dirtySpy.count(), 0);
}

TEST_F(DeviceEditorPresence, NewReplyBringsTheUnitBackOnline)
{
    link.advance(20s);
    link.tick();
    ASSERT_FALSE(header().online());
    QSignalSpy onlineSpy(&header(), &EditorHeader::changed);
    report({{"SwitcherBand", "7"}});
    EXPECT_TRUE(header().online());
    EXPECT_EQ(onlineSpy.count(), 1);
}

TEST_F(DeviceEditorPresence, EditorWithoutClientIsOffline)
{
    DeviceEditor detached;
    detached.setIp(QString::fromLatin1(kUnitIp));
    EXPECT_FALSE(detached.header()->online());
}
