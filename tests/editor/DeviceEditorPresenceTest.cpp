// The Online chip: fewer than 15.0 s since the unit's last reply, judged by
// the client's shared clock, which also makes it lapse without any traffic.
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
    EXPECT_TRUE(editor.online());
    EXPECT_EQ(editor.onlineText(), QStringLiteral("Online"));
}

TEST_F(DeviceEditorPresence, UnitLastSeen14Point9SecondsAgoIsOnline)
{
    time.advance(14900ms);
    client->clock()->tick();
    EXPECT_TRUE(editor.online());
}

TEST_F(DeviceEditorPresence, UnitLastSeenExactly15SecondsAgoIsOffline)
{
    time.advance(15s);
    client->clock()->tick();
    EXPECT_FALSE(editor.online());
    EXPECT_EQ(editor.onlineText(), QStringLiteral("Offline"));
}

TEST_F(DeviceEditorPresence, UnknownUnitIsOffline)
{
    editor.setIp(QStringLiteral("127.0.0.9"));
    EXPECT_FALSE(editor.online());
    EXPECT_EQ(editor.onlineText(), QStringLiteral("Offline"));
}

TEST_F(DeviceEditorPresence, ClockTickAloneTurnsTheUnitOfflineOnce)
{
    QSignalSpy onlineSpy(&editor, &DeviceEditor::onlineChanged);
    QSignalSpy textSpy(&editor, &DeviceEditor::onlineTextChanged);
    QSignalSpy dirtySpy(&editor, &DeviceEditor::dirtyChanged);
    time.advance(14s);
    client->clock()->tick();
    EXPECT_EQ(onlineSpy.count(), 0);
    time.advance(1s);
    client->clock()->tick();
    client->clock()->tick();
    EXPECT_FALSE(editor.online());
    EXPECT_EQ(onlineSpy.count(), 1);
    EXPECT_EQ(textSpy.count(), 1);
    EXPECT_EQ(dirtySpy.count(), 0);
}

TEST_F(DeviceEditorPresence, NewReplyBringsTheUnitBackOnline)
{
    time.advance(20s);
    client->clock()->tick();
    ASSERT_FALSE(editor.online());
    QSignalSpy onlineSpy(&editor, &DeviceEditor::onlineChanged);
    report({{"SwitcherBand", "7"}});
    EXPECT_TRUE(editor.online());
    EXPECT_EQ(onlineSpy.count(), 1);
}

TEST_F(DeviceEditorPresence, EditorWithoutClientIsOffline)
{
    DeviceEditor detached;
    detached.setIp(QString::fromLatin1(kUnitIp));
    EXPECT_FALSE(detached.online());
}
