#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdbool.h>

#include <memory>

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "bitsdojo_window_macos/macos/Classes/tests/WindowLibraryFixture.hpp"

// The engine side's own declarations, kept apart from the library's records of the same names.
namespace engine {
#include "bitsdojo_window_macos/macos/Classes/tests/engine_side/bitsdojo_window_engine.h"
}

namespace vornix::bitsdojo_window::testing {
namespace {

using platform::Size;
using platform::doubles::WindowDouble;

// Calls a function of the library through the engine side's declaration of it. The two agree in
// C, which is all the engine side needs, but are different types to C++ (the engine's records
// are not the library's), which Clang's function sanitizer would report.
template <class Result, class... Parameters, class... Arguments>
#if defined(__clang__)
__attribute__((no_sanitize("function")))
#endif
Result callEngine(Result (*function)(Parameters...), Arguments... arguments) {
    return function(arguments...);
}

// Finds the table the way the engine side does: by name, in the running executable.
engine::_BDWAPI* engineTable() {
    void* executable = dlopen(nullptr, RTLD_NOW);
    if (executable == nullptr) {
        return nullptr;
    }
    auto function = reinterpret_cast<engine::BDWEngineAPIFunction>(dlsym(executable, BDW_ENGINE_API_SYMBOL));
    dlclose(executable);
    return function == nullptr ? nullptr : callEngine(function);
}

class WindowApiTable : public WindowLibraryTest {
protected:
    void SetUp() override {
        api = engineTable();
        ASSERT_NE(api, nullptr);
        window->state.contentViewFrame = Rect{0, 0, 400, 300};
        window->state.contentLayoutRect = Rect{0, 0, 400, 272};
        window->state.currentEvent = std::make_shared<platform::Event>();
        callEngine(api->privateAPI->setAppWindow, handle(window));
        appWindow = callEngine(api->publicAPI->getAppWindow);
    }

    engine::_BDWAPI* api = nullptr;
    std::shared_ptr<WindowDouble> window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    void* appWindow = nullptr;
};

TEST_F(WindowApiTable, TheTableIsFoundByNameInTheRunningExecutableAndIsAlwaysTheSame) {
    EXPECT_EQ(engineTable(), api);
    EXPECT_EQ(static_cast<const void*>(api), static_cast<const void*>(bitsdojo_window_api()));
    EXPECT_NE(api->publicAPI, nullptr);
    EXPECT_NE(api->privateAPI, nullptr);
}

TEST_F(WindowApiTable, PrivateSlotsStoreTheAppWindowAndTellWhetherItMayBeShown) {
    EXPECT_EQ(_appWindow.get(), static_cast<platform::Window*>(window.get()));
    EXPECT_FALSE(callEngine(api->privateAPI->windowCanBeShown));
    _windowCanBeShown = true;
    EXPECT_TRUE(callEngine(api->privateAPI->windowCanBeShown));
}

TEST_F(WindowApiTable, Slots0To2AreTheAppWindowAndTheTwoFlags) {
    EXPECT_EQ(appWindow, handle(window));
    callEngine(api->publicAPI->setWindowCanBeShown, true);
    EXPECT_TRUE(_windowCanBeShown);
    EXPECT_FALSE(_insideDoWhenWindowReady);
    callEngine(api->publicAPI->setInsideDoWhenWindowReady, true);
    EXPECT_TRUE(_insideDoWhenWindowReady);
}

TEST_F(WindowApiTable, Slots3To5ShowHideAndMove) {
    callEngine(api->publicAPI->showWindow, appWindow);
    mainQueue.runReady();
    EXPECT_TRUE(window->state.visible);
    callEngine(api->publicAPI->hideWindow, appWindow);
    mainQueue.runReady();
    EXPECT_FALSE(window->state.visible);
    callEngine(api->publicAPI->moveWindow, appWindow);
    mainQueue.runReady();
    EXPECT_EQ(window->state.drags.size(), 1u);
}

TEST_F(WindowApiTable, Slots6To8SetTheSizeAndItsLimits) {
    callEngine(api->publicAPI->setSize, appWindow, 800, 600);
    callEngine(api->publicAPI->setMinSize, appWindow, 320, 240);
    callEngine(api->publicAPI->setMaxSize, appWindow, 2560, 1600);
    mainQueue.runReady();
    EXPECT_EQ(window->state.frame, (Rect{100, 100, 800, 600}));
    EXPECT_EQ(window->state.minSize, (Size{320, 240}));
    EXPECT_EQ(window->state.maxSize, (Size{2560, 1600}));
}

TEST_F(WindowApiTable, Slots9To12AreScreenInfoSetPositionSetRectAndGetRect) {
    engine::_BDWRect working{};
    engine::_BDWRect full{};
    engine::_BDWScreenInfo info{&working, &full};
    EXPECT_TRUE(callEngine(api->publicAPI->getScreenInfoForWindow, appWindow, &info));
    EXPECT_DOUBLE_EQ(working.left, 70);
    EXPECT_DOUBLE_EQ(working.top, 25);
    EXPECT_DOUBLE_EQ(full.bottom, 900);

    engine::_BDWOffset offset{10, 20};
    EXPECT_TRUE(callEngine(api->publicAPI->setPositionForWindow, appWindow, &offset));
    EXPECT_EQ(window->state.frame, (Rect{10, 555, 400, 300}));

    engine::_BDWRect wanted{10, 20, 410, 320};
    EXPECT_TRUE(callEngine(api->publicAPI->setRectForWindow, appWindow, &wanted));
    EXPECT_EQ(window->state.frame, (Rect{10, 580, 400, 300}));

    engine::_BDWRect rect{};
    EXPECT_TRUE(callEngine(api->publicAPI->getRectForWindow, appWindow, &rect));
    EXPECT_DOUBLE_EQ(rect.left, 10);
    EXPECT_DOUBLE_EQ(rect.top, -5);
    EXPECT_DOUBLE_EQ(rect.right, 410);
    EXPECT_DOUBLE_EQ(rect.bottom, 295);
}

TEST_F(WindowApiTable, Slot13IsWindowVisibleAndSlot14IsWindowMaximized) {
    window->state.visible = true;
    EXPECT_TRUE(callEngine(api->publicAPI->isWindowVisible, appWindow));
    EXPECT_FALSE(callEngine(api->publicAPI->isWindowMaximized, appWindow));
    window->state.visible = false;
    window->state.frame = window->state.screen->visibleFrame();
    EXPECT_FALSE(callEngine(api->publicAPI->isWindowVisible, appWindow));
    EXPECT_TRUE(callEngine(api->publicAPI->isWindowMaximized, appWindow));
}

TEST_F(WindowApiTable, Slots15To18MaximizeOrRestoreMaximizeMinimizeAndClose) {
    callEngine(api->publicAPI->maximizeOrRestoreWindow, appWindow);
    mainQueue.runReady();
    EXPECT_EQ(window->callNames().back(), "zoom");
    callEngine(api->publicAPI->maximizeWindow, appWindow);
    mainQueue.runReady();
    EXPECT_EQ(window->callNames().back(), "setFrameAnimate");
    callEngine(api->publicAPI->minimizeWindow, appWindow);
    mainQueue.runReady();
    EXPECT_TRUE(window->state.miniaturized);
    callEngine(api->publicAPI->closeWindow, appWindow);
    mainQueue.runReady();
    EXPECT_TRUE(window->state.closed);
}

TEST_F(WindowApiTable, Slot19SetsTheTitleAndSlot20ReadsTheTitleBarHeight) {
    callEngine(api->publicAPI->setWindowTitle, appWindow, "Vornix OS");
    mainQueue.runReady();
    EXPECT_EQ(window->state.title, "Vornix OS");
    EXPECT_DOUBLE_EQ(callEngine(api->publicAPI->getTitleBarHeight, appWindow), 28);
}

}  // namespace
}  // namespace vornix::bitsdojo_window::testing
