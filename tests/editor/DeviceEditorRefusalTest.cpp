// SPDX-License-Identifier: Apache-2.0
// A field holding a line feed, carriage return or NUL can never be sent: Save
// and the network apply become unavailable and `refusal` says why. (The
// client's own refusal on the wire is checked over loopback.)
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "EditorTestKit.h"

using namespace EditorTest;

namespace {

class DeviceEditorRefusal : public EditorFixture {
protected:
    void SetUp() override
    {
        report(cleanUnit({{"CallMagic", "1234"}, {"IPAddress", "127.0.0.2"}, {"Netmask", "255.0.0.0"},
                          {"Gateway", "127.0.0.1"}}));
        open();
    }
};

}  // namespace

TEST_F(DeviceEditorRefusal, PasswordWithLineFeedMakesSaveUnavailableWithAReason)
{
    QSignalSpy refusalSpy(&editor, &DeviceEditor::refusalChanged);
    QSignalSpy canSaveSpy(&editor, &DeviceEditor::canSaveChanged);

    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("x\nIPAddress:10.9.9.9"));

    EXPECT_TRUE(editor.dirty());
    EXPECT_FALSE(editor.canSave());
    EXPECT_EQ(editor.refusal(), QStringLiteral("Cannot send: the value of CallMagic holds a line feed (LF)"));
    EXPECT_EQ(refusalSpy.count(), 1);
    EXPECT_EQ(canSaveSpy.count(), 0);  // it was not available before either: nothing had changed
}

TEST_F(DeviceEditorRefusal, SaveWithARefusedFieldSendsNothing)
{
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("x\nIPAddress:10.9.9.9"));
    editor.save();

    EXPECT_TRUE(link.writes.empty());
}

TEST_F(DeviceEditorRefusal, CarriageReturnOrNulInAnyTextFieldIsRefused)
{
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5\r"));
    EXPECT_EQ(editor.refusal(), QStringLiteral("Cannot send: the value of Channel holds a carriage return (CR)"));
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
    tally().fieldAs<TextField>("AtemPort")->setText(QString(QChar(u'\0')));
    EXPECT_EQ(editor.refusal(), QStringLiteral("Cannot send: the value of AtemPort holds a NUL character"));
    tally().fieldAs<TextField>("AtemPort")->setText(QString());
    EXPECT_EQ(editor.refusal(), QString());
    EXPECT_TRUE(editor.canSave());
}

TEST_F(DeviceEditorRefusal, NetworkFieldWithLineFeedBlocksTheApplyToo)
{
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.9\n"));

    EXPECT_FALSE(editor.canApplyNetwork());
    EXPECT_EQ(editor.refusal(), QStringLiteral("Cannot send: the value of Gateway holds a line feed (LF)"));
    editor.applyNetwork();
    EXPECT_TRUE(link.writes.empty());
}

TEST_F(DeviceEditorRefusal, RefusedTextElsewhereKeepsTheOtherChangeUnsendable)
{
    // One write carries every field, so one bad field stops the network apply as well.
    communication().fieldAs<TextField>("CallMagic")->setText(QStringLiteral("a\rb"));
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.9"));

    EXPECT_TRUE(network().dirty());
    EXPECT_TRUE(network().valid());
    EXPECT_FALSE(editor.canApplyNetwork());
}

namespace {

// A unit whose reply ends "Serial:KT400ABC\0" without a line feed reports the NUL
// as part of its serial; a write would carry it back.
class DeviceEditorReportedRefusal : public EditorFixture {};

}  // namespace

TEST_F(DeviceEditorReportedRefusal, ReportedNulInAWriteKeyBlocksSaveWithAReason)
{
    report(cleanUnit({{"Serial", std::string("KT400ABC\0", 9)}}));
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));

    EXPECT_TRUE(editor.dirty());
    EXPECT_FALSE(editor.canSave());
    EXPECT_EQ(editor.refusal(), QStringLiteral("Cannot send: the value of Serial holds a NUL character"));
    editor.save();
    EXPECT_TRUE(link.writes.empty());
}

TEST_F(DeviceEditorReportedRefusal, ReportedNulOutsideTheWriteKeysIsNoObstacle)
{
    report(cleanUnit({{"Version", std::string("2.1\0", 4)}}));
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));

    EXPECT_EQ(editor.refusal(), QString());
    EXPECT_TRUE(editor.canSave());
}

TEST_F(DeviceEditorReportedRefusal, RetypingAReportedValueWithNulMakesSaveAvailable)
{
    report(cleanUnit({{"Channel", std::string("3\0", 2)}}));
    open();
    EXPECT_EQ(editor.refusal(), QStringLiteral("Cannot send: the value of Channel holds a NUL character"));

    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("3"));

    EXPECT_EQ(editor.refusal(), QString());
    EXPECT_TRUE(editor.canSave());
    editor.save();
    EXPECT_EQ(lastWrite(), (std::optional<Vorn::Config>{{{"Channel", "3"}}}));
}
