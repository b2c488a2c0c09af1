// The editor's header: the title, the switcher, channel and firmware chips,
// and the tab titles.
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
    EXPECT_EQ(editor.title(), QStringLiteral("KT400 \u00B7ABC123"));
    EXPECT_EQ(editor.switcherLabel(), QStringLiteral("Panasonic KAIROS"));
    EXPECT_EQ(editor.channelChip(), QStringLiteral("Ch 3"));
    EXPECT_EQ(editor.firmwareChip(), QStringLiteral("fw 1.4.2"));
}

TEST_F(DeviceEditorHeader, TitleIsTheAddressWhenTheSerialIsMissing)
{
    report({{"Channel", "3"}});
    open();
    EXPECT_EQ(editor.title(), QString::fromLatin1(kUnitIp));
}

TEST_F(DeviceEditorHeader, ChannelChipShowsAnEnDashWhenChannelIsMissing)
{
    report({{"SwitcherBand", "7"}});
    open();
    EXPECT_EQ(editor.channelChip(), QStringLiteral("Ch \u2013"));
}

TEST_F(DeviceEditorHeader, ChannelChipFollowsTheUnitNotTheEditedField)
{
    report(kReported);
    open();
    editor.setChannel(QStringLiteral("12"));
    EXPECT_EQ(editor.channelChip(), QStringLiteral("Ch 3"));
}

TEST_F(DeviceEditorHeader, FirmwareChipIsEmptyOnlyWhenVersionIsNotReported)
{
    report({{"SwitcherBand", "7"}});
    open();
    EXPECT_EQ(editor.firmwareChip(), QString());
    report({{"SwitcherBand", "7"}, {"Version", ""}});
    EXPECT_EQ(editor.firmwareChip(), QStringLiteral("fw "));
}

TEST_F(DeviceEditorHeader, SwitcherChipFollowsThePickerBeforeSaving)
{
    report(kReported);
    open();
    QSignalSpy labelSpy(&editor, &DeviceEditor::switcherLabelChanged);
    editor.setSwitcherSelection(QStringLiteral("5.1"));
    EXPECT_EQ(editor.switcherLabel(), QStringLiteral("Roland V-60HD"));
    editor.setModel(77);
    EXPECT_EQ(editor.switcherLabel(), QStringLiteral("Band 5 / Model 77"));
    EXPECT_EQ(labelSpy.count(), 2);
}

TEST_F(DeviceEditorHeader, TabsHaveTheirTitlesInCaseOrder)
{
    EXPECT_EQ(editor.tabTitles(), (QStringList{QStringLiteral("Tally"), QStringLiteral("Communication"),
                                               QStringLiteral("Network"), QStringLiteral("Details")}));
    EXPECT_EQ(DeviceEditor::tabTitle(DeviceEditor::DetailTab::Intercom), QStringLiteral("Communication"));
    QSignalSpy tabSpy(&editor, &DeviceEditor::tabChanged);
    editor.setTab(DeviceEditor::DetailTab::Network);
    editor.setTab(DeviceEditor::DetailTab::Network);
    EXPECT_EQ(editor.tab(), DeviceEditor::DetailTab::Network);
    EXPECT_EQ(tabSpy.count(), 1);
}
