#include "host/MenuModel.hpp"

#include <gtest/gtest.h>

#include "engine/doubles/EmbeddingDouble.hpp"
#include "engine/doubles/InMemoryRegistry.hpp"
#include "host/ContentView.hpp"
#include "host/HostingController.hpp"
#include "host/UIInteractions.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/FakeApplication.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/FakeStatusBar.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace {

using vornix::engine::Embedding;
using vornix::engine::EncodableValue;
using vornix::engine::MethodCall;
using vornix::engine::doubles::EmbeddingDouble;
using vornix::engine::doubles::InMemoryRegistry;
using vornix::host::ContentView;
using vornix::host::HostingController;
using vornix::host::MenuModel;
using vornix::host::UIInteractions;
using vornix::platform::Application;
using vornix::platform::MainQueue;
using vornix::platform::MenuItem;
using vornix::platform::MenuItemKind;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::FakeApplication;
using vornix::platform::doubles::FakeMenuView;
using vornix::platform::doubles::FakePopoverView;
using vornix::platform::doubles::ManualMainQueue;
using Calls = std::vector<MethodCall>;

const std::string channelName(UIInteractions::channelName);

MenuItem disabledText(std::string label) { return {MenuItemKind::standard, "", std::move(label), false, false}; }
MenuItem command(std::string id, std::string label, bool enabled = true) {
    return {MenuItemKind::standard, std::move(id), std::move(label), enabled, false};
}
const MenuItem separator{MenuItemKind::separator, "", "", true, false};

class MenuModelTest : public testing::Test {
protected:
    void SetUp() override { UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions")); }
    void TearDown() override { UIInteractions::channel().reset(); }

    Calls sent() { return registry.messenger().sentCalls(channelName); }

    vornix::launch_agent::testing::LaunchControlTestHome home;
    ManualMainQueue queue;
    ScopedPort<MainQueue> mainQueue{&queue};
    FakeApplication application;
    ScopedPort<Application> applicationPort{&application};
    EmbeddingDouble embedding;
    ScopedPort<Embedding> embeddingPort{&embedding};
    InMemoryRegistry registry;
    FakePopoverView view;
    FakeMenuView menu;
};

TEST_F(MenuModelTest, TheMenuHoldsThePopoversRowsInTheirOrder) {
    ContentView root;
    HostingController controller(root, view);
    controller.showAlsoIn(menu);
    const std::vector<MenuItem> expected{
        disabledText("Vornix OS"),
        {MenuItemKind::checkmark, "launch_on_login", "Launch on Login", true, false},
        separator,
        disabledText("Account"),
        command("sign_in", "Sign In..."),
        separator,
        disabledText("Version: 0.0.0"),
        disabledText("Port: "),
        separator,
        command("launch", "Launch Vornix for Developers"),
        command("integrations", "Discover Integrations"),
        command("about", "About"),
        command("help", "Get Help"),
        command("feedback", "Submit Feedback or Issues"),
        command("updates", "Check for Updates..."),
        command("quit", "Quit"),
    };
    EXPECT_EQ(menu.items(), expected);
    EXPECT_TRUE(menu.hasEvents());
}

TEST_F(MenuModelTest, SigningInShowsTheEmailAsADisabledItemAndSignOut) {
    ContentView root;
    HostingController controller(root, view);
    controller.showAlsoIn(menu);
    root.updateAuth(true, "ada_l@example.com", "2.4.1", "47321");
    queue.advance(1.0);
    EXPECT_EQ(menu.items().at(4), disabledText("ada_l@example.com"));
    EXPECT_EQ(menu.items().at(5), command("sign_out", "Sign Out..."));
    EXPECT_THROW(menu.item("Sign In..."), std::out_of_range);
    EXPECT_EQ(menu.item("Version: 2.4.1"), disabledText("Version: 2.4.1"));
    EXPECT_EQ(menu.item("Port: 47321"), disabledText("Port: 47321"));
}

TEST_F(MenuModelTest, WithoutAnEngineTheEnginesCommandsAreDisabledAsInThePopover) {
    embedding.setHasEngine(false);
    ContentView root;
    HostingController controller(root, view);
    controller.showAlsoIn(menu);
    for (const char* label : {"Sign In...", "Discover Integrations", "About", "Get Help", "Submit Feedback or Issues"}) {
        EXPECT_FALSE(menu.item(label).isEnabled) << label;
    }
    for (const char* label : {"Launch Vornix for Developers", "Check for Updates...", "Quit", "Launch on Login"}) {
        EXPECT_TRUE(menu.item(label).isEnabled) << label;
    }
}

TEST_F(MenuModelTest, ChoosingACommandDoesWhatItsButtonDoes) {
    ContentView root;
    HostingController controller(root, view);
    controller.showAlsoIn(menu);
    for (const char* id : {"sign_in", "integrations", "about", "help", "feedback", "quit"}) {
        menu.choose(id);
    }
    EXPECT_EQ(sent(), (Calls{{"sign_in", EncodableValue()},
                             {"add_integrations", EncodableValue()},
                             {"about", EncodableValue()},
                             {"get_help", EncodableValue()},
                             {"feedback", EncodableValue()},
                             {"quit", EncodableValue()}}));
}

TEST_F(MenuModelTest, WithoutAnEngineQuitEndsTheHostAndADisabledItemDoesNothing) {
    embedding.setHasEngine(false);
    ContentView root;
    HostingController controller(root, view);
    controller.showAlsoIn(menu);
    menu.choose("about");
    EXPECT_EQ(application.terminateCount(), 0);
    menu.choose("quit");
    EXPECT_EQ(application.terminateCount(), 1);
    EXPECT_TRUE(sent().empty());
}

TEST_F(MenuModelTest, ChoosingTheSwitchTurnsItOverInTheMenuAndThePopover) {
    ContentView root;
    HostingController controller(root, view);
    controller.showAlsoIn(menu);
    ASSERT_FALSE(menu.item("Launch on Login").isChecked);
    testing::internal::CaptureStdout();
    menu.choose("launch_on_login");
    testing::internal::GetCapturedStdout();
    EXPECT_TRUE(controller.rootView().runAtLoad.wrappedValue());
    EXPECT_TRUE(menu.item("Launch on Login").isChecked);
    EXPECT_TRUE(view.row("Launch on Login").isOn);
    testing::internal::CaptureStdout();
    menu.choose("launch_on_login");
    testing::internal::GetCapturedStdout();
    EXPECT_FALSE(menu.item("Launch on Login").isChecked);
    EXPECT_FALSE(view.row("Launch on Login").isOn);
}

TEST_F(MenuModelTest, AnItemNotShownOrWithoutIdentifierDoesNothing) {
    ContentView root;
    HostingController controller(root, view);
    controller.showAlsoIn(menu);
    menu.choose("sign_out");
    menu.choose("");
    menu.choose("no_such_item");
    EXPECT_TRUE(sent().empty());
}

TEST_F(MenuModelTest, AControllerGoneStopsTheMenusReports) {
    {
        ContentView root;
        HostingController controller(root, view);
        controller.showAlsoIn(menu);
    }
    EXPECT_FALSE(menu.hasEvents());
}

}  // namespace
