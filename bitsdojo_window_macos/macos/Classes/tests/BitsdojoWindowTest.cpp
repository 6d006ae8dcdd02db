#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindow.hpp"
#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window_api.hpp"
#include "bitsdojo_window_macos/macos/Classes/tests/WindowLibraryFixture.hpp"

namespace vornix::bitsdojo_window::testing {
namespace {

using platform::TitleVisibility;
using platform::WindowOrderingMode;
namespace windowStyle = platform::windowStyle;

using FramelessWindow = BitsdojoWindow<WindowDouble>;

// An application's window answering the configuration query with `flags`.
class ConfiguredWindow : public FramelessWindow {
public:
    ConfiguredWindow(std::uintptr_t flags, Rect frame, platform::StyleMask styleMask)
        : FramelessWindow(frame, styleMask), flags_(flags) {}

    std::uintptr_t bitsdojo_window_configure() const override { return flags_; }

private:
    std::uintptr_t flags_;
};

std::shared_ptr<ConfiguredWindow> configuredWindow(std::uintptr_t flags,
                                                   platform::StyleMask styleMask = windowStyle::titled) {
    return std::make_shared<ConfiguredWindow>(flags, Rect{100, 100, 800, 600}, styleMask);
}

void orderFront(platform::Window& window) { window.orderWindow(WindowOrderingMode::above, 0); }

std::size_t positionOf(const std::vector<std::string>& calls, const std::string& name) {
    return static_cast<std::size_t>(std::find(calls.begin(), calls.end(), name) - calls.begin());
}

using FramelessWindowTest = WindowLibraryTest;
using FramelessWindowDeathTest = WindowLibraryTest;

TEST_F(FramelessWindowTest, TheBaseWindowAsksForNoFlags) {
    FramelessWindow window(Rect{}, windowStyle::titled);
    EXPECT_EQ(window.bitsdojo_window_configure(), 0u);
}

TEST_F(FramelessWindowTest, TheFlagsAreUnsignedMachineWordsOneAndTwo) {
    EXPECT_TRUE((std::is_same_v<decltype(BDW_CUSTOM_FRAME), const std::uintptr_t>));
    EXPECT_TRUE((std::is_same_v<decltype(BDW_HIDE_ON_STARTUP), const std::uintptr_t>));
    EXPECT_EQ(sizeof(BDW_CUSTOM_FRAME), sizeof(void*));
    EXPECT_EQ(BDW_CUSTOM_FRAME, 1u);
    EXPECT_EQ(BDW_HIDE_ON_STARTUP, 2u);
}

TEST_F(FramelessWindowTest, TheInitialiserPassesItsValuesOnWithoutForcingAStyle) {
    FramelessWindow window(Rect{10, 20, 300, 200}, windowStyle::borderless);
    EXPECT_EQ(window.state.frame, (Rect{10, 20, 300, 200}));
    EXPECT_EQ(window.state.styleMask, windowStyle::borderless);
}

TEST_F(FramelessWindowTest, ItCanAlwaysBecomeKeyEvenWithoutATitleBar) {
    auto plain = std::make_shared<WindowDouble>(Rect{}, windowStyle::borderless);
    auto frameless = configuredWindow(0, windowStyle::borderless);
    EXPECT_FALSE(plain->canBecomeKey());
    EXPECT_TRUE(frameless->canBecomeKey());
    frameless->makeKeyAndOrderFront();
    EXPECT_TRUE(frameless->state.key);
}

TEST_F(FramelessWindowTest, AnsweringZeroBehavesLikeAPlainWindowButBecomesTheAppWindow) {
    auto window = configuredWindow(0, windowStyle::titled | windowStyle::resizable);
    orderFront(*window);
    EXPECT_TRUE(window->state.visible);
    EXPECT_EQ(window->state.styleMask, windowStyle::titled | windowStyle::resizable);
    EXPECT_FALSE(window->state.titlebarAppearsTransparent);
    EXPECT_EQ(window->state.titleVisibility, TitleVisibility::visible);
    EXPECT_TRUE(window->state.opaque);
    EXPECT_TRUE(window->state.movable);
    EXPECT_EQ(window->callNames(), (std::vector<std::string>{"orderWindow"}));
    EXPECT_EQ(_appWindow.get(), static_cast<platform::Window*>(window.get()));
}

TEST_F(FramelessWindowTest, AnsweringThreeWhileItCannotBeShownOrdersItHiddenWithACustomFrame) {
    auto window = configuredWindow(BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP);
    orderFront(*window);
    EXPECT_FALSE(window->state.visible);
    EXPECT_NE(window->state.styleMask & 0x8000, 0u);
    EXPECT_EQ(window->state.titleVisibility, TitleVisibility::hidden);
    EXPECT_TRUE(window->state.titlebarAppearsTransparent);
    EXPECT_FALSE(window->state.opaque);
    EXPECT_FALSE(window->state.movable);
    EXPECT_EQ(_appWindow.get(), static_cast<platform::Window*>(window.get()));
}

TEST_F(FramelessWindowTest, TheCustomFrameAddsOnlyTheFullSizeContentBit) {
    auto window = configuredWindow(BDW_CUSTOM_FRAME, windowStyle::titled | windowStyle::resizable);
    orderFront(*window);
    EXPECT_EQ(window->state.styleMask,
              windowStyle::titled | windowStyle::resizable | windowStyle::fullSizeContentView);
    EXPECT_TRUE(window->state.visible);
}

TEST_F(FramelessWindowTest, TheCustomFrameIsAppliedBeforeOrderingAndAgainOnEveryOrdering) {
    auto window = configuredWindow(BDW_CUSTOM_FRAME);
    orderFront(*window);
    const auto calls = window->callNames();
    for (const char* setting :
         {"setStyleMask", "setTitlebarAppearsTransparent", "setTitleVisibility", "setOpaque", "setMovable"}) {
        EXPECT_LT(positionOf(calls, setting), positionOf(calls, "orderWindow")) << setting;
    }
    window->state.styleMask = windowStyle::titled;
    window->state.titleVisibility = TitleVisibility::visible;
    window->state.movable = true;
    orderFront(*window);
    EXPECT_EQ(window->state.styleMask, windowStyle::titled | windowStyle::fullSizeContentView);
    EXPECT_EQ(window->state.titleVisibility, TitleVisibility::hidden);
    EXPECT_FALSE(window->state.movable);
}

TEST_F(FramelessWindowTest, AHiddenOnStartupWindowIsOrderedFirstAndHiddenAfterwards) {
    auto window = configuredWindow(BDW_HIDE_ON_STARTUP);
    window->orderWindow(WindowOrderingMode::below, 42);
    EXPECT_EQ(window->callNames(), (std::vector<std::string>{"orderWindow", "setIsVisible(false)"}));
    ASSERT_EQ(window->state.orderings.size(), 1u);
    EXPECT_EQ(window->state.orderings[0].mode, WindowOrderingMode::below);
    EXPECT_EQ(window->state.orderings[0].relativeTo, 42);
}

TEST_F(FramelessWindowTest, ItStaysHiddenThroughAnyNumberOfOrderingsUntilItMayBeShown) {
    auto window = configuredWindow(BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP);
    for (int i = 0; i < 5; ++i) {
        orderFront(*window);
        EXPECT_FALSE(window->state.visible);
    }
    showWindow(getAppWindow());
    mainQueue.runReady();
    EXPECT_FALSE(window->state.visible);
}

TEST_F(FramelessWindowTest, AfterSetWindowCanBeShownOrderingLeavesItVisible) {
    auto window = configuredWindow(BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP);
    orderFront(*window);
    setWindowCanBeShown(true);
    orderFront(*window);
    EXPECT_TRUE(window->state.visible);
    EXPECT_EQ(window->callNames().back(), "orderWindow");
}

TEST_F(FramelessWindowTest, TheEngineShowsTheWindowOnceItMayBeShown) {
    auto window = configuredWindow(BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP, windowStyle::borderless);
    orderFront(*window);
    setWindowCanBeShown(true);
    showWindow(getAppWindow());
    mainQueue.runReady();
    EXPECT_TRUE(window->state.visible);
    EXPECT_TRUE(window->state.key);
}

TEST_F(FramelessWindowTest, TheAppWindowIsTheWindowOrderedLast) {
    auto first = configuredWindow(0);
    auto second = configuredWindow(BDW_CUSTOM_FRAME);
    orderFront(*first);
    orderFront(*second);
    EXPECT_EQ(getAppWindow(), handleOf(second.get()));
    orderFront(*first);
    EXPECT_EQ(getAppWindow(), handleOf(first.get()));
}

TEST_F(FramelessWindowTest, TheLibrarySideCopiesHoldTheTablesFunctions) {
    const _BDWAPI* api = bitsdojo_window_api();
    EXPECT_EQ(bdwAPI().publicAPI, api->publicAPI);
    EXPECT_EQ(bdwAPI().privateAPI, api->privateAPI);
    EXPECT_EQ(bdwPrivateAPI().windowCanBeShown, api->privateAPI->windowCanBeShown);
    EXPECT_EQ(bdwPrivateAPI().setAppWindow, api->privateAPI->setAppWindow);
    EXPECT_EQ(&bdwPrivateAPI(), &bdwPrivateAPI());
}

TEST_F(FramelessWindowDeathTest, AMissingFunctionTableIsFatal) {
    EXPECT_DEATH(copyOfTable<_BDWAPI>(nullptr, "the window function table"),
                 "Fatal error: the window function table is missing");
    EXPECT_DEATH(copyOfTable<_BDWPrivateAPI>(nullptr, "the private window function table"),
                 "Fatal error: the private window function table is missing");
}

}  // namespace
}  // namespace vornix::bitsdojo_window::testing
