// SPDX-License-Identifier: Apache-2.0
// The verdict after "Save changes" and "Apply": the unit's first reply that
// left after the re-query against the keys written, a silent unit after four
// seconds, a move to a new address, and the edits, saves and reloads that end
// a verdict. Replies come through the fake link and time moves by hand.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "EditorTestKit.h"

using namespace EditorTest;
using namespace std::chrono_literals;

namespace {

const Vorn::Config kReported = cleanUnit({{"AtemIp", "10.0.0.5"},
                                          {"AtemPort", "9910"},
                                          {"Channel", "3"},
                                          {"IPAddress", "127.0.0.2"},
                                          {"Netmask", "255.0.0.0"},
                                          {"Gateway", "127.0.0.1"}});


class DeviceEditorVerdict : public EditorFixture {
protected:
    SaveVerdict& verdict() { return *editor.verdict(); }

    // The unit opened, Channel edited to 5 and saved.
    void saveChannel5()
    {
        report(kReported);
        open();
        communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
        editor.save();
    }
    // The unit opened and its address changed to `address` by Apply, two
    // seconds ago, its old address answering since.
    void applyAddressAndHearTheOldOne(const char* address)
    {
        report(kReported);
        open();
        network().fieldAs<TextField>("IPAddress")->setText(QString::fromUtf8(address));
        editor.applyNetwork();
        link.advance(2s);
        report(kReported);
    }
    void tick() { link.tick(); }
};

}  // namespace

TEST_F(DeviceEditorVerdict, NothingToSayBeforeASave)
{
    report(kReported);
    open();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::None);
    EXPECT_EQ(verdict().text(), QString());
}

TEST_F(DeviceEditorVerdict, WaitsSilentlyUntilTheReplyCounts)
{
    saveChannel5();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Waiting);
    EXPECT_EQ(verdict().text(), QString());
}

TEST_F(DeviceEditorVerdict, ReplyWithTheWrittenValuesIsConfirmed)
{
    saveChannel5();
    link.advance(1600ms);
    report(overlaid(kReported, {{"Channel", "5"}}));
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Confirmed);
    EXPECT_EQ(verdict().text(), QStringLiteral("Saved · confirmed"));
    EXPECT_TRUE(verdict().details().isEmpty());
}

TEST_F(DeviceEditorVerdict, ReplyWithOtherValuesNamesTheKeysNotConfirmed)
{
    report(kReported);
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
    tally().fieldAs<TextField>("AtemIp")->setText(QStringLiteral("10.0.0.6"));
    tally().fieldAs<TextField>("AtemPort")->setText(QStringLiteral("9911"));
    editor.save();
    link.advance(2s);
    report(overlaid(kReported, {{"AtemPort", "9911"}}));
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::NotConfirmed);
    EXPECT_EQ(verdict().text(), QStringLiteral("Not confirmed: AtemIp, Channel"));
    EXPECT_EQ(verdict().details(), (QStringList{QStringLiteral("AtemIp: wrote 10.0.0.6, unit reports 10.0.0.5"),
                                                QStringLiteral("Channel: wrote 5, unit reports 3")}));
}

TEST_F(DeviceEditorVerdict, ReplyWithoutAWrittenKeyIsNotConfirmed)
{
    saveChannel5();
    link.advance(2s);
    Vorn::Config withoutChannel = kReported;
    withoutChannel.erase("Channel");
    report(withoutChannel);
    EXPECT_EQ(verdict().text(), QStringLiteral("Not confirmed: Channel"));
    EXPECT_EQ(verdict().details(), QStringList{QStringLiteral("Channel: wrote 5, unit reports no value")});
}

TEST_F(DeviceEditorVerdict, NoAnswerFourSecondsAfterTheWrite)
{
    saveChannel5();
    link.advance(3900ms);
    tick();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Waiting);
    link.advance(100ms);
    tick();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::NoAnswer);
    EXPECT_EQ(verdict().text(), QStringLiteral("No answer after saving"));
    EXPECT_EQ(verdict().details(), QStringList{QStringLiteral("Channel: wrote 5, no reply")});
}

TEST_F(DeviceEditorVerdict, ReplyAfterTheDeadlineButBeforeTheTickIsNoAnswer)
{
    saveChannel5();
    link.advance(4500ms);
    report(overlaid(kReported, {{"Channel", "5"}}));
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::NoAnswer);
}

TEST_F(DeviceEditorVerdict, ReplyBeforeTheRequeryIsIgnored)
{
    saveChannel5();
    link.advance(1400ms);
    report(kReported);
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Waiting);
    link.advance(200ms);
    report(overlaid(kReported, {{"Channel", "5"}}));
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Confirmed);
}

TEST_F(DeviceEditorVerdict, TheVerdictStaysOverLaterReplies)
{
    saveChannel5();
    link.advance(2s);
    report(overlaid(kReported, {{"Channel", "5"}}));
    link.advance(3s);
    report(kReported);
    tick();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Confirmed);
}

TEST_F(DeviceEditorVerdict, ANewAddressIsJudgedOnTheFirstReplyFromIt)
{
    // The old address still answering says nothing about the move.
    applyAddressAndHearTheOldOne("127.0.0.3");
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Waiting);
    report(overlaid(kReported, {{"IPAddress", "127.0.0.3"}}), "127.0.0.3");
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Moved);
    EXPECT_EQ(verdict().text(), QStringLiteral("Moved to 127.0.0.3"));
    EXPECT_EQ(verdict().movedTo(), QStringLiteral("127.0.0.3"));
    EXPECT_EQ(editor.ip(), QStringLiteral("127.0.0.2"));
}

TEST_F(DeviceEditorVerdict, AMoveWithoutAReplyFromTheNewAddressIsNoAnswer)
{
    applyAddressAndHearTheOldOne("127.0.0.3");
    link.advance(2s);
    tick();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::NoAnswer);
    EXPECT_EQ(verdict().movedTo(), QString());
}

TEST_F(DeviceEditorVerdict, NetworkApplyWithoutAMoveIsCheckedLikeASave)
{
    report(kReported);
    open();
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.9"));
    editor.applyNetwork();
    link.advance(2s);
    report(kReported);
    EXPECT_EQ(verdict().text(), QStringLiteral("Not confirmed: Gateway"));
}

TEST_F(DeviceEditorVerdict, AnEditEndsTheVerdict)
{
    saveChannel5();
    link.advance(2s);
    report(overlaid(kReported, {{"Channel", "5"}}));
    QSignalSpy changed(&verdict(), &SaveVerdict::changed);
    // Setting a field to the value it holds is no edit.
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("5"));
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Confirmed);
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("6"));
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::None);
    EXPECT_EQ(verdict().text(), QString());
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(DeviceEditorVerdict, ANewSaveEndsTheVerdict)
{
    saveChannel5();
    link.advance(2s);
    report(kReported);
    ASSERT_EQ(verdict().kind(), SaveVerdict::Kind::NotConfirmed);
    editor.save();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::Waiting);
    EXPECT_EQ(verdict().text(), QString());
    EXPECT_TRUE(verdict().details().isEmpty());
}

TEST_F(DeviceEditorVerdict, AReloadEndsTheVerdict)
{
    saveChannel5();
    link.advance(2s);
    report(kReported);
    ASSERT_EQ(verdict().kind(), SaveVerdict::Kind::NotConfirmed);
    editor.load();
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::None);
}

TEST_F(DeviceEditorVerdict, AnotherUnitEndsTheVerdict)
{
    report(kReported, "127.0.0.4");
    saveChannel5();
    link.advance(5s);
    tick();
    ASSERT_EQ(verdict().kind(), SaveVerdict::Kind::NoAnswer);
    editor.setIp(QStringLiteral("127.0.0.4"));
    EXPECT_EQ(verdict().kind(), SaveVerdict::Kind::None);
}
