// SPDX-License-Identifier: Apache-2.0
// The one owner of the window's selection on the sidebar's real list model:
// the selected units and the current unit follow clicks, keys and shown
// addresses, including an address that is listed only later.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "ClientTestKit.h"
#include "DeviceListModel.h"
#include "UnitSelection.h"

namespace {

const QString kFirst = QStringLiteral("10.232.1.1");
const QString kSecond = QStringLiteral("10.232.1.2");
const QString kQueried = QStringLiteral("10.232.1.9");

class UnitSelectionTest : public testing::Test {
protected:
    std::unique_ptr<VornClient> client = ClientTest::loopbackClient();
    DeviceListModel model;
    UnitSelection selection;

    void SetUp() override
    {
        model.setClient(client.get());
        list(kFirst);
        list(kSecond);
        selection.setModel(&model);
    }

    void list(const QString& ip) { client->ingest(Vorn::Reply{ip.toStdString(), Vorn::kCmdReport, {}}); }
};

}  // namespace

TEST_F(UnitSelectionTest, NothingIsCurrentAtFirst)
{
    EXPECT_EQ(selection.current(), QString());
    EXPECT_EQ(selection.count(), 0);
}

TEST_F(UnitSelectionTest, AClickMakesItsUnitCurrentAndCtrlClickKeepsTheLastClickedCurrent)
{
    QSignalSpy currentChanged(&selection, &UnitSelection::currentChanged);
    selection.click(0, Qt::NoModifier);
    EXPECT_EQ(selection.current(), kFirst);
    selection.click(1, Qt::ControlModifier);
    EXPECT_EQ(selection.addresses(), (QStringList{kFirst, kSecond}));
    EXPECT_EQ(selection.current(), kSecond);
    EXPECT_EQ(currentChanged.count(), 2);
}

TEST_F(UnitSelectionTest, ShowingAListedUnitSelectsItAlone)
{
    selection.selectAll();
    ASSERT_EQ(selection.count(), 2);
    selection.show(kSecond);
    EXPECT_EQ(selection.addresses(), QStringList{kSecond});
    EXPECT_EQ(selection.current(), kSecond);
    // A Shift+click ranges from the shown unit.
    selection.click(0, Qt::ShiftModifier);
    EXPECT_EQ(selection.addresses(), (QStringList{kFirst, kSecond}));
}

TEST_F(UnitSelectionTest, AnAddressNotListedYetIsCurrentWithNothingSelectedUntilItsRowComes)
{
    selection.click(0, Qt::NoModifier);
    QSignalSpy currentChanged(&selection, &UnitSelection::currentChanged);
    selection.show(kQueried);
    EXPECT_EQ(selection.count(), 0);
    EXPECT_EQ(selection.current(), kQueried);
    EXPECT_EQ(currentChanged.count(), 1);

    // Another unit arriving changes nothing.
    list(QStringLiteral("10.232.1.5"));
    EXPECT_EQ(selection.count(), 0);
    EXPECT_EQ(selection.current(), kQueried);

    // The queried unit answers: its row is the one selected, and it stays current.
    list(kQueried);
    EXPECT_EQ(selection.addresses(), QStringList{kQueried});
    EXPECT_EQ(selection.current(), kQueried);
    EXPECT_EQ(currentChanged.count(), 1);
}

TEST_F(UnitSelectionTest, AClickAfterAShownAddressTakesOver)
{
    selection.show(kQueried);
    selection.click(1, Qt::NoModifier);
    EXPECT_EQ(selection.current(), kSecond);
    // The queried address is forgotten: its answer selects nothing.
    list(kQueried);
    EXPECT_EQ(selection.addresses(), QStringList{kSecond});
}

TEST_F(UnitSelectionTest, ClearAndAnEmptyAddressLeaveNothingCurrent)
{
    selection.show(kQueried);
    selection.clear();
    EXPECT_EQ(selection.current(), QString());
    selection.click(0, Qt::NoModifier);
    selection.show(QString());
    EXPECT_EQ(selection.current(), QString());
    EXPECT_EQ(selection.count(), 0);
}

TEST_F(UnitSelectionTest, AnAddressShownBeforeTheListExistsIsSelectedOnceListed)
{
    UnitSelection early;
    early.show(kSecond);
    EXPECT_EQ(early.current(), kSecond);
    early.setModel(&model);
    EXPECT_EQ(early.addresses(), QStringList{kSecond});
    EXPECT_EQ(early.current(), kSecond);
}
