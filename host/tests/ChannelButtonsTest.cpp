#include <gtest/gtest.h>

#include "engine/doubles/InMemoryRegistry.hpp"
#include "host/ContentView.hpp"
#include "host/HostingController.hpp"
#include "host/UIInteractions.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace {

using vornix::engine::EncodableValue;
using vornix::engine::MethodCall;
using vornix::engine::doubles::InMemoryRegistry;
using vornix::host::ContentView;
using vornix::host::HostingController;
using vornix::host::UIInteractions;
using vornix::platform::MainQueue;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::FakePopoverView;
using vornix::platform::doubles::ManualMainQueue;
using Calls = std::vector<MethodCall>;

const std::string channelName(UIInteractions::channelName);

class ChannelButtonsTest : public testing::Test {
protected:
    void SetUp() override { UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions")); }
    void TearDown() override { UIInteractions::channel().reset(); }

    Calls sent() { return registry.messenger().sentCalls(channelName); }

    vornix::launch_agent::testing::LaunchControlTestHome home;
    ManualMainQueue queue;
    ScopedPort<MainQueue> mainQueue{&queue};
    InMemoryRegistry registry;
    FakePopoverView view;
};

TEST_F(ChannelButtonsTest, EveryChannelButtonSendsItsMethodNameWithNoArgumentsAndDoesNotWaitForAnAnswer) {
    ContentView root;
    HostingController controller(root, view);
    // The engine never answers here: each click returns all the same, and the next one goes out.
    for (const char* button : {"sign_in", "integrations", "about", "help", "feedback", "quit"}) {
        view.click(button);
    }
    root.model->setSignedIn(true);
    queue.runReady();
    view.click("sign_out");
    EXPECT_EQ(sent(), (Calls{{"sign_in", EncodableValue()},
                             {"add_integrations", EncodableValue()},
                             {"about", EncodableValue()},
                             {"get_help", EncodableValue()},
                             {"feedback", EncodableValue()},
                             {"quit", EncodableValue()},
                             {"sign_out", EncodableValue()}}));
    EXPECT_TRUE(registry.messenger().replies().empty());
}

TEST_F(ChannelButtonsTest, SigningInOnlyAsksTheEngineTheViewChangesWhenItReports) {
    ContentView root;
    HostingController controller(root, view);
    view.click("sign_in");
    queue.advance(5.0);
    EXPECT_FALSE(root.model->signedIn());
    EXPECT_NO_THROW(view.button("sign_in"));
}

TEST_F(ChannelButtonsTest, AClickOnAButtonNoLongerShownDoesNothing) {
    ContentView root;
    HostingController controller(root, view);
    view.click("sign_out");
    root.model->setSignedIn(true);
    view.click("sign_in");
    EXPECT_TRUE(sent().empty());
}

using ChannelButtonsDeathTest = ChannelButtonsTest;

TEST_F(ChannelButtonsDeathTest, AChannelButtonWithoutTheChannelStopsTheProcess) {
    UIInteractions::channel().reset();
    ContentView root;
    HostingController controller(root, view);
    EXPECT_DEATH(view.click("quit"), "^Fatal error: the UI interactions channel is not set\n$");
}

}  // namespace
