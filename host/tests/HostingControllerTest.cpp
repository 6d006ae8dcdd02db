#include "host/HostingController.hpp"

#include <gtest/gtest.h>

#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace {

using vornix::host::ContentView;
using vornix::host::HostingController;
using vornix::platform::Color;
using vornix::platform::MainQueue;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::FakePopoverView;
using vornix::platform::doubles::ManualMainQueue;

class HostingControllerTest : public testing::Test {
protected:
    vornix::launch_agent::testing::LaunchControlTestHome home;
    ManualMainQueue queue;
    ScopedPort<MainQueue> mainQueue{&queue};
    FakePopoverView view;
};

TEST_F(HostingControllerTest, RendersTheRootViewsBodyAndLayoutAtOnceAndListens) {
    ContentView root;
    HostingController controller(root, view);
    EXPECT_EQ(view.renderCount(), 1);
    EXPECT_EQ(view.rows(), root.body());
    EXPECT_EQ(view.layout(), ContentView::layout());
    EXPECT_TRUE(view.hasEvents());
}

TEST_F(HostingControllerTest, AReportShowsTheEmailAndSignOutAboutOneSecondLaterAndNotBefore) {
    ContentView root;
    HostingController controller(root, view);
    root.updateAuth(true, "ada@example.com", "2.4.1", "47321");
    queue.advance(0.999);
    EXPECT_NO_THROW(view.row("Sign In..."));
    EXPECT_THROW(view.row("ada@example.com"), std::out_of_range);
    queue.advance(0.001);
    EXPECT_NO_THROW(view.row("ada@example.com"));
    EXPECT_NO_THROW(view.button("sign_out"));
    EXPECT_THROW(view.button("sign_in"), std::out_of_range);
    EXPECT_NO_THROW(view.row("Version: 2.4.1"));
    EXPECT_NO_THROW(view.row("Port: 47321"));
}

TEST_F(HostingControllerTest, OneReportRendersOnceAfterAllItsFieldsAreSet) {
    ContentView root;
    HostingController controller(root, view);
    root.updateAuth(true, "ada@example.com", "2.4.1", "47321");
    queue.advance(1.0);
    EXPECT_EQ(view.renderCount(), 2);
}

TEST_F(HostingControllerTest, TheHighlightStaysOnTheNewButtonWhenTheOldButtonsLeaveComesAfterTheNewOnesEnter) {
    ContentView root;
    HostingController controller(root, view);
    view.hover("about", true);
    EXPECT_EQ(view.button("about").background.color, Color::gray);
    view.hover("help", true);
    view.hover("about", false);
    EXPECT_EQ(controller.rootView().lastHoveredId.wrappedValue(), "help");
    EXPECT_EQ(view.button("about").background.color, Color::clear);
    EXPECT_EQ(view.button("help").background.color, Color::gray);
}

TEST_F(HostingControllerTest, TheHoverStateIsTheHostedCopysOwn) {
    ContentView root;
    HostingController controller(root, view);
    view.hover("quit", true);
    EXPECT_EQ(root.lastHoveredId.wrappedValue(), "");
    EXPECT_EQ(controller.rootView().lastHoveredId.wrappedValue(), "quit");
}

TEST_F(HostingControllerTest, AControllerGoneBeforeItsRenderRunsLeavesTheViewAlone) {
    ContentView root;
    {
        HostingController controller(root, view);
        root.model->setPort("1");
    }
    EXPECT_FALSE(view.hasEvents());
    queue.runReady();
    EXPECT_EQ(view.renderCount(), 1);
}

}  // namespace
