#include "host/MainFlutterWindow.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"
#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "host/CustomURLSchemes.hpp"
#include "host/UIInteractions.hpp"
#include "host/tests/MainWindowFixture.hpp"
#include "host/tests/StandInPlugins.hpp"

// These tests run in a build that links all ten plug-ins (tests/FullBuildLinkedPlugins.cpp).
namespace vornix::host::testing {
namespace {

using Entries = std::vector<std::string>;

const std::string customURLSchemeChannel(CustomURLSchemeHandler::channelName);
const std::string uiInteractionsChannel(UIInteractions::channelName);
const std::string windowChannel(bitsdojo_window::BitsdojoWindowPlugin::channelName);

bool contains(const std::vector<std::string>& keys, const std::string& key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

class MainFlutterWindowTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        standInRegistrations().clear();
    }
};

TEST_F(MainFlutterWindowTest, ConfigureReturnsExactlyThree) {
    const auto window = load();
    EXPECT_EQ(window->bitsdojo_window_configure(), std::uintptr_t{3});
    EXPECT_EQ(window->bitsdojo_window_configure(), BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP);
    // The frameless window asks through its own class, so the main window's answer is the one it gets.
    const bitsdojo_window::BitsdojoWindow<MainWindowDouble>& frameless = *window;
    EXPECT_EQ(frameless.bitsdojo_window_configure(), std::uintptr_t{3});
}

TEST_F(MainFlutterWindowTest, AwakeFromNibRunsItsStepsInTheirExactOrder) {
    load();
    EXPECT_EQ(log.entries(), (Entries{
                                 "embedding.makeViewController",
                                 "window.frame",
                                 "window.setContentViewController",
                                 "window.setFrame 335 390 800x600 display",
                                 "viewController.registrarForPlugin BitsdojoWindowPlugin",
                                 "viewController.registrarForPlugin DeviceInfoPlusMacosPlugin",
                                 "viewController.registrarForPlugin FlutterLocalNotificationsPlugin",
                                 "viewController.registrarForPlugin MenubarPlugin",
                                 "viewController.registrarForPlugin FLTPackageInfoPlusPlugin",
                                 "viewController.registrarForPlugin PathProviderPlugin",
                                 "viewController.registrarForPlugin SentryFlutterPlugin",
                                 "viewController.registrarForPlugin SharedPreferencesPlugin",
                                 "viewController.registrarForPlugin SystemTrayPlugin",
                                 "viewController.registrarForPlugin UrlLauncherPlugin",
                                 "viewController.registrarForPlugin CustomURLSchemeHandler",
                                 "stdout: PLUGIN REGISTERED",
                                 "viewController.registrarForPlugin UIInteractions",
                                 "window.awakeFromNib",
                             }));
}

TEST_F(MainFlutterWindowTest, EachPluginRegistersRightAfterItsRegistrarIsAskedFor) {
    load();
    std::vector<int> registered;
    for (const StandInRegistration& registration : standInRegistrations()) {
        registered.push_back(registration.plugin);
    }
    EXPECT_EQ(registered, (std::vector<int>{2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_TRUE(controller().messenger().hasHandler(windowChannel));
}

TEST_F(MainFlutterWindowTest, TheFrameAfterAwakeFromNibEqualsTheFrameBeforeTheControllerWasInstalled) {
    const auto window = load();
    EXPECT_EQ(window->state.frame, designedFrame);
    ASSERT_EQ(window->state.frameChanges.size(), 1u);
    EXPECT_EQ(window->state.frameChanges[0].frame, designedFrame);
    EXPECT_TRUE(window->state.frameChanges[0].display);
    EXPECT_FALSE(window->state.frameChanges[0].animate.has_value());
}

TEST_F(MainFlutterWindowTest, TheWindowDoubleTakesTheSizeOfItsContentAsAppKitDoes) {
    // What the main window guards against: installing the controller alone changes the frame.
    MainWindowDouble window(log, designedFrame);
    window.setContentViewController(embedding.makeViewController());
    EXPECT_EQ(window.state.frame, (platform::Rect{335, 390, 1280, 720}));
}

TEST_F(MainFlutterWindowTest, OnMacOS1014TheCustomURLSchemeChannelIsRegisteredAndTheUIInteractionsChannelIsNot) {
    const auto window = load({10, 14, 6});
    EXPECT_TRUE(CustomURLSchemeHandler::channel().has_value());
    EXPECT_TRUE(controller().messenger().hasHandler(customURLSchemeChannel));
    EXPECT_FALSE(UIInteractions::channel().has_value());
    EXPECT_FALSE(controller().messenger().hasHandler(uiInteractionsChannel));
    EXPECT_FALSE(contains(controller().registry().requestedKeys(), "UIInteractions"));
    EXPECT_EQ(log.entries().back(), "window.awakeFromNib");
}

TEST_F(MainFlutterWindowTest, FromMacOS10150OnBothHostChannelsAreRegisteredOnTheEnginesMessenger) {
    load({10, 15, 0});
    ASSERT_TRUE(CustomURLSchemeHandler::channel().has_value());
    ASSERT_TRUE(UIInteractions::channel().has_value());
    EXPECT_EQ(&CustomURLSchemeHandler::channel()->messenger(), &controller().messenger());
    EXPECT_EQ(&UIInteractions::channel()->messenger(), &controller().messenger());
    EXPECT_TRUE(controller().messenger().hasHandler(customURLSchemeChannel));
    EXPECT_TRUE(controller().messenger().hasHandler(uiInteractionsChannel));
}

TEST_F(MainFlutterWindowTest, OneViewControllerIsMadeAndBecomesTheWindowsContent) {
    const auto window = load();
    ASSERT_EQ(embedding.made().size(), 1u);
    EXPECT_EQ(window->contentViewController(), embedding.made()[0]);
}

TEST_F(MainFlutterWindowTest, RegistrarsTheControllerDoesNotGiveArePassedOnAsTheyAre) {
    embedding.withhold("SentryFlutterPlugin");
    embedding.withhold("CustomURLSchemeHandler");
    embedding.withhold("UIInteractions");
    load();
    const auto sentry = std::find_if(standInRegistrations().begin(), standInRegistrations().end(),
                                     [](const StandInRegistration& registration) { return registration.plugin == 7; });
    ASSERT_NE(sentry, standInRegistrations().end());
    EXPECT_EQ(sentry->registrar, nullptr);
    EXPECT_FALSE(CustomURLSchemeHandler::channel().has_value());
    EXPECT_FALSE(UIInteractions::channel().has_value());
    const Entries entries = log.entries();
    const Entries tail(entries.end() - 5, entries.end());
    EXPECT_EQ(tail, (Entries{
                        "viewController.registrarForPlugin CustomURLSchemeHandler",
                        "stdout: Channel FUCKED",
                        "viewController.registrarForPlugin UIInteractions",
                        "stdout: macOS UI Interactions channel unable to register",
                        "window.awakeFromNib",
                    }));
}

TEST_F(MainFlutterWindowTest, OrderedOnScreenItStaysHiddenWithItsOwnFrameUntilTheEngineShowsIt) {
    const auto window = load();
    window->makeKeyAndOrderFront();
    EXPECT_FALSE(window->state.visible);
    EXPECT_NE(window->state.styleMask & platform::windowStyle::fullSizeContentView, 0u);
    EXPECT_EQ(window->state.titleVisibility, platform::TitleVisibility::hidden);
    EXPECT_EQ(bitsdojo_window::getAppWindow(), bitsdojo_window::handleOf(window.get()));

    bitsdojo_window::setWindowCanBeShown(true);
    bitsdojo_window::showWindow(bitsdojo_window::getAppWindow());
    queue.runReady();
    EXPECT_TRUE(window->state.visible);
    EXPECT_EQ(window->state.frame, designedFrame);
}

}  // namespace
}  // namespace vornix::host::testing
