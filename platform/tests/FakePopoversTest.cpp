#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/FakeStatusBar.hpp"

#include <gtest/gtest.h>

namespace {

using namespace vornix::platform;
using namespace vornix::platform::doubles;

TEST(FakePopover, GetsAWindowOnlyWhileShown) {
    FakePopovers popovers;
    auto popover = popovers.makePopover();
    FakeStatusBarButton button(nullptr);
    EXPECT_EQ(popover->contentWindow(), nullptr);
    popover->show({0, 0, 24, 22}, button, RectEdge::minY);
    ASSERT_NE(popover->contentWindow(), nullptr);
    popover->performClose();
    EXPECT_EQ(popover->contentWindow(), nullptr);
    EXPECT_EQ(popovers.made().size(), 1u);
}

TEST(FakePopover, ATransientPopoverClosesOnAClickOutside) {
    FakePopover transient(nullptr);
    FakePopover applicationDefined(nullptr);
    FakeStatusBarButton button(nullptr);
    transient.setBehavior(PopoverBehavior::transient);
    applicationDefined.setBehavior(PopoverBehavior::applicationDefined);
    transient.show({}, button, RectEdge::minY);
    applicationDefined.show({}, button, RectEdge::minY);
    transient.clickOutside();
    applicationDefined.clickOutside();
    EXPECT_FALSE(transient.isShown());
    EXPECT_TRUE(applicationDefined.isShown());
}

TEST(FakePopoverView, EventsNeedSomeoneListening) {
    FakePopoverView view;
    EXPECT_THROW(view.click("quit"), std::logic_error);
}

TEST(FakeStatusBar, CanGiveItemsWithoutAButtonOrNoItemAtAll) {
    FakeStatusBar bar;
    bar.setItemsHaveButtons(false);
    EXPECT_EQ(bar.statusItem(StatusBar::variableLength)->button(), nullptr);
    bar.setGivesItems(false);
    EXPECT_EQ(bar.statusItem(StatusBar::variableLength), nullptr);
}

}  // namespace
