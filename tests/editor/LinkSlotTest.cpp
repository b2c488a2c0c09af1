// SPDX-License-Identifier: Apache-2.0
// The one holder of an editor's link: it announces a switch around the
// replacement and passes on the changes of the current link only.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "EditorTestKit.h"
#include "LinkSlot.h"

using EditorTest::FakeLink;

TEST(LinkSlot, AnnouncesASwitchBeforeAndAfterTheLinkIsReplaced)
{
    FakeLink first;
    FakeLink second;
    LinkSlot slot;
    slot.useLink(&first);
    std::vector<EditorLink*> seen;
    QObject::connect(&slot, &LinkSlot::aboutToSwitch, [&] { seen.push_back(slot.link()); });
    QObject::connect(&slot, &LinkSlot::switched, [&] { seen.push_back(slot.link()); });
    slot.useLink(&second);
    EXPECT_EQ(seen, (std::vector<EditorLink*>{&first, &second}));
}

TEST(LinkSlot, PassesOnTheChangesOfTheCurrentLinkOnly)
{
    FakeLink first;
    FakeLink second;
    LinkSlot slot;
    QSignalSpy changes(&slot, &LinkSlot::changed);
    slot.useLink(&first);
    first.tick();
    EXPECT_EQ(changes.count(), 1);
    slot.useLink(&second);
    first.tick();
    EXPECT_EQ(changes.count(), 1);
    second.tick();
    EXPECT_EQ(changes.count(), 2);
    slot.useLink(nullptr);
    second.tick();
    EXPECT_EQ(changes.count(), 2);
}

TEST(LinkSlot, ALinkThatGoesAwayLeavesNoLink)
{
    LinkSlot slot;
    {
        FakeLink gone;
        slot.useLink(&gone);
        EXPECT_EQ(slot.link(), &gone);
    }
    EXPECT_EQ(slot.link(), nullptr);
}
