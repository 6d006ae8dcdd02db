#include <gtest/gtest.h>

#include "engine/doubles/EmbeddingDouble.hpp"
#include "engine/doubles/InMemoryRegistry.hpp"
#include "host/ContentView.hpp"
#include "host/HostingController.hpp"
#include "host/UIInteractions.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/FakeApplication.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace {

using vornix::engine::Embedding;
using vornix::engine::EncodableValue;
using vornix::engine::MethodCall;
using vornix::engine::doubles::EmbeddingDouble;
using vornix::engine::doubles::InMemoryRegistry;
using vornix::host::ContentView;
using vornix::host::HostingController;
using vornix::host::UIInteractions;
using vornix::platform::Application;
using vornix::platform::MainQueue;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::FakeApplication;
using vornix::platform::doubles::FakePopoverView;
using vornix::platform::doubles::ManualMainQueue;
using Action = ContentView::Action;
using Kind = ContentView::Action::Kind;
using Calls = std::vector<MethodCall>;

const std::string channelName(UIInteractions::channelName);

TEST(WithoutEngineRule, QuitBecomesTheHostsOwnTermination) {
    EXPECT_EQ(ContentView::withoutEngine(Action::method("quit")), Action::local(Kind::terminate));
}

TEST(WithoutEngineRule, TheEnginesOtherCommandsDoNothing) {
    for (const char* method : {"sign_in", "sign_out", "add_integrations", "about", "get_help", "feedback"}) {
        EXPECT_EQ(ContentView::withoutEngine(Action::method(method)), Action::none()) << method;
    }
}

TEST(WithoutEngineRule, TheHostsOwnActionsStay) {
    for (const Kind kind : {Kind::launchVFD, Kind::checkForUpdates, Kind::launchOnLogin}) {
        EXPECT_EQ(ContentView::withoutEngine(Action::local(kind)), Action::local(kind));
    }
    EXPECT_EQ(ContentView::withoutEngine(Action::none()), Action::none());
}

TEST(WithoutEngineRule, WithNoEmbeddingInstalledTheEngineIsThere) {
    ASSERT_EQ(Embedding::installed(), nullptr);
    EXPECT_TRUE(ContentView::engineRuns());
}

class WithoutEngineTest : public testing::Test {
protected:
    void SetUp() override { UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions")); }
    void TearDown() override { UIInteractions::channel().reset(); }

    Calls sent() { return registry.messenger().sentCalls(channelName); }
    std::vector<std::string> disabledButtons() const {
        std::vector<std::string> disabled;
        for (const auto& row : view.rows()) {
            if (row.kind == vornix::platform::RowKind::button && !row.isEnabled) {
                disabled.push_back(row.hoverId);
            }
        }
        return disabled;
    }

    vornix::launch_agent::testing::LaunchControlTestHome home;
    ManualMainQueue queue;
    ScopedPort<MainQueue> mainQueue{&queue};
    FakeApplication application;
    ScopedPort<Application> applicationPort{&application};
    EmbeddingDouble embedding;
    ScopedPort<Embedding> embeddingPort{&embedding};
    InMemoryRegistry registry;
    FakePopoverView view;
};

TEST_F(WithoutEngineTest, OnlyTheEnginesCommandsAreDisabled) {
    embedding.setHasEngine(false);
    ContentView root;
    HostingController controller(root, view);
    EXPECT_EQ(disabledButtons(), (std::vector<std::string>{"sign_in", "integrations", "about", "help", "feedback"}));
    root.model->setSignedIn(true);
    queue.runReady();
    EXPECT_EQ(disabledButtons(), (std::vector<std::string>{"sign_out", "integrations", "about", "help", "feedback"}));
    EXPECT_TRUE(view.button("launch").isEnabled);
    EXPECT_TRUE(view.button("updates").isEnabled);
    EXPECT_TRUE(view.button("quit").isEnabled);
}

TEST_F(WithoutEngineTest, QuitEndsTheHostAndSendsNothing) {
    embedding.setHasEngine(false);
    ContentView root;
    HostingController controller(root, view);
    view.click("quit");
    EXPECT_EQ(application.terminateCount(), 1);
    EXPECT_TRUE(sent().empty());
}

TEST_F(WithoutEngineTest, ADisabledButtonDoesNothing) {
    embedding.setHasEngine(false);
    ContentView root;
    HostingController controller(root, view);
    for (const char* button : {"sign_in", "integrations", "about", "help", "feedback"}) {
        view.click(button);
    }
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(application.terminateCount(), 0);
}

TEST_F(WithoutEngineTest, WithAnEngineEveryButtonIsEnabledAndQuitGoesToTheEngine) {
    ContentView root;
    HostingController controller(root, view);
    EXPECT_TRUE(disabledButtons().empty());
    view.click("quit");
    EXPECT_EQ(sent(), (Calls{{"quit", EncodableValue()}}));
    EXPECT_EQ(application.terminateCount(), 0);
}

}  // namespace
