// SPDX-License-Identifier: Apache-2.0
// The editor's header: the title, the switcher, channel and firmware chips,
// the tab titles and the network confirmation.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "EditorTestKit.h"

using namespace EditorTest;

namespace {

const Vorn::Config kReported = cleanUnit({{"Channel", "3"},
                                          {"SwitcherBand", "2"},
                                          {"SwitcherModel", "10"},
                                          {"Serial", "KT400ABC123"},
                                          {"Version", "1.4.2"}});

class DeviceEditorHeader : public EditorFixture {};

}  // namespace

TEST_F(DeviceEditorHeader, HeaderShowsTitleSwitcherChannelAndFirmware)
{
    report(kReported);
    open();
    EXPECT_EQ(header().title(), QStringLiteral("KT400 \u00B7ABC123"));
    EXPECT_EQ(tally().switcherLabel(), QStringLiteral("Panasonic KAIROS"));
    EXPECT_EQ(header().channelChip(), QStringLiteral("Ch 3"));
    EXPECT_EQ(header().firmwareChip(), QStringLiteral("fw 1.4.2"));
}

TEST_F(DeviceEditorHeader, TitleIsTheAddressWhenTheSerialIsMissing)
{
    report({{"Channel", "3"}});
    open();
    EXPECT_EQ(header().title(), QString::fromLatin1(kUnitIp));
}

TEST_F(DeviceEditorHeader, ChannelChipShowsAnEnDashWhenChannelIsMissing)
{
    report({{"SwitcherBand", "7"}});
    open();
    EXPECT_EQ(header().channelChip(), QStringLiteral("Ch \u2013"));
}

TEST_F(DeviceEditorHeader, ChannelChipFollowsTheUnitNotTheEditedField)
{
    report(kReported);
    open();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("12"));
    EXPECT_EQ(header().channelChip(), QStringLiteral("Ch 3"));
}

TEST_F(DeviceEditorHeader, FirmwareChipIsEmptyOnlyWhenVersionIsNotReported)
{
    report({{"SwitcherBand", "7"}});
    open();
    EXPECT_EQ(header().firmwareChip(), QString());
    report({{"SwitcherBand", "7"}, {"Version", ""}});
    EXPECT_EQ(header().firmwareChip(), QStringLiteral("fw "));
}

TEST_F(DeviceEditorHeader, SwitcherChipFollowsThePickerBeforeSaving)
{
    report(kReported);
    open();
    QSignalSpy labelSpy(&tally(), &EditorSection::changed);
    tally().setSwitcherSelection(QStringLiteral("5.1"));
    EXPECT_EQ(tally().switcherLabel(), QStringLiteral("Roland V-60HD"));
    tally().fieldAs<NumberField>("SwitcherModel")->setValue(77);
    EXPECT_EQ(tally().switcherLabel(), QStringLiteral("Band 5 / Model 77"));
    EXPECT_EQ(labelSpy.count(), 2);
}

TEST_F(DeviceEditorHeader, TabsHaveTheirTitlesInCaseOrder)
{
    EXPECT_EQ(header().tabTitles(), (QStringList{QStringLiteral("Tally"), QStringLiteral("Communication"),
                                                 QStringLiteral("Network"), QStringLiteral("Details"),
                                                 QStringLiteral("History")}));
}

TEST_F(DeviceEditorHeader, ChipsShowPercentSignsOfTheUnitAsTheyAre)
{
    report({{"Channel", "%1%2"}, {"Version", "%1"}});
    open();
    EXPECT_EQ(header().channelChip(), QStringLiteral("Ch %1%2"));
    EXPECT_EQ(header().firmwareChip(), QStringLiteral("fw %1"));
}
