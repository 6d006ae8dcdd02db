#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "bitsdojo_window_macos/macos/Classes/tests/WindowLibraryFixture.hpp"

namespace vornix::bitsdojo_window::testing {
namespace {

using platform::doubles::WindowDouble;

using WindowThreadRules = WindowLibraryTest;

// Runs `call` on a second thread and waits for it.
void onSecondThread(const std::function<void()>& call, std::thread::id* thread = nullptr) {
    std::thread worker([&] {
        if (thread != nullptr) {
            *thread = std::this_thread::get_id();
        }
        call();
    });
    worker.join();
}

struct QueuedCall {
    const char* function;
    std::function<void(BDWWindow)> call;
    const char* windowCall;  // what reaches the window once the queue runs
};

const QueuedCall alwaysQueued[] = {
    {"showWindow", [](BDWWindow w) { showWindow(w); }, "makeKeyAndOrderFront"},
    {"hideWindow", [](BDWWindow w) { hideWindow(w); }, "setIsVisible(false)"},
    {"moveWindow", [](BDWWindow w) { moveWindow(w); }, "performWindowDrag"},
    {"setSize", [](BDWWindow w) { setSize(w, 640, 480); }, "setFrame"},
    {"setMinSize", [](BDWWindow w) { setMinSize(w, 10, 10); }, "setMinSize"},
    {"setMaxSize", [](BDWWindow w) { setMaxSize(w, 10, 10); }, "setMaxSize"},
    {"maximizeOrRestoreWindow", [](BDWWindow w) { maximizeOrRestoreWindow(w); }, "zoom"},
    {"maximizeWindow", [](BDWWindow w) { maximizeWindow(w); }, "setFrameAnimate"},
    {"minimizeWindow", [](BDWWindow w) { minimizeWindow(w); }, "miniaturize"},
    {"closeWindow", [](BDWWindow w) { closeWindow(w); }, "close"},
    {"setWindowTitle", [](BDWWindow w) { setWindowTitle(w, "Vornix OS"); }, "setTitle"},
};

bool called(const WindowDouble& window, const std::string& name) { return window.threadOf(name) != std::thread::id{}; }

TEST_F(WindowThreadRules, AlwaysQueuedFunctionsReturnBeforeTheWindowChangesEvenOnTheMainThread) {
    for (const QueuedCall& each : alwaysQueued) {
        SCOPED_TRACE(each.function);
        auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
        each.call(handle(window));
        EXPECT_FALSE(called(*window, each.windowCall));
        EXPECT_EQ(mainQueue.pending(), 1u);
        EXPECT_EQ(mainQueue.runReady(), 1u);
        EXPECT_EQ(window->threadOf(each.windowCall), std::this_thread::get_id());
    }
}

TEST_F(WindowThreadRules, ShowWindowCalledOnTheMainThreadReturnsBeforeTheWindowIsShown) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    ASSERT_TRUE(mainQueue.isMainThread());
    showWindow(handle(window));
    EXPECT_FALSE(window->state.visible);
    mainQueue.runReady();
    EXPECT_TRUE(window->state.visible);
}

TEST_F(WindowThreadRules, AlwaysQueuedWorkFromASecondThreadRunsOnTheMainThread) {
    for (const QueuedCall& each : alwaysQueued) {
        SCOPED_TRACE(each.function);
        auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
        onSecondThread([&] { each.call(handle(window)); });
        EXPECT_FALSE(called(*window, each.windowCall));
        mainQueue.runReady();
        EXPECT_EQ(window->threadOf(each.windowCall), std::this_thread::get_id());
    }
}

TEST_F(WindowThreadRules, QueuedWorkKeepsTheWindowAliveUntilItHasRun) {
    for (const QueuedCall& each : alwaysQueued) {
        SCOPED_TRACE(each.function);
        auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
        std::weak_ptr<WindowDouble> watch = window;
        each.call(handle(window));
        window.reset();
        ASSERT_FALSE(watch.expired());
        EXPECT_FALSE(called(*watch.lock(), each.windowCall));
        mainQueue.runReady();
        EXPECT_TRUE(watch.expired());
    }
}

TEST_F(WindowThreadRules, SettingPositionOrRectOnTheMainThreadHappensAtOnce) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    _BDWOffset offset{10, 20};
    setPositionForWindow(handle(window), &offset);
    EXPECT_TRUE(called(*window, "setFrameTopLeftPoint"));
    _BDWRect rect{10, 20, 410, 320};
    setRectForWindow(handle(window), &rect);
    EXPECT_TRUE(called(*window, "setFrame"));
    EXPECT_EQ(mainQueue.pending(), 0u);
}

TEST_F(WindowThreadRules, SettingPositionFromASecondThreadIsQueuedToMainWithTheOffsetAsGiven) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    onSecondThread([&] {
        _BDWOffset offset{10, 20};
        setPositionForWindow(handle(window), &offset);
        offset = {500, 500};
    });
    EXPECT_FALSE(called(*window, "setFrameTopLeftPoint"));
    EXPECT_EQ(mainQueue.runReady(), 1u);
    EXPECT_EQ(window->threadOf("setFrameTopLeftPoint"), std::this_thread::get_id());
    EXPECT_DOUBLE_EQ(window->state.frame.x, 10);
    EXPECT_DOUBLE_EQ(window->state.frame.y + window->state.frame.height, 855);
}

TEST_F(WindowThreadRules, SettingRectFromASecondThreadIsQueuedToMainWithTheRectAsGiven) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    onSecondThread([&] {
        _BDWRect rect{10, 20, 410, 320};
        setRectForWindow(handle(window), &rect);
        rect = {};
    });
    EXPECT_FALSE(called(*window, "setFrame"));
    mainQueue.runReady();
    EXPECT_EQ(window->threadOf("setFrame"), std::this_thread::get_id());
    EXPECT_EQ(window->state.frame, (Rect{10, 580, 400, 300}));
}

TEST_F(WindowThreadRules, SetSizeReadsTheFrameOnTheCallersThreadAndChangesItOnMain) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    std::thread::id caller;
    onSecondThread([&] { setSize(handle(window), 800, 600); }, &caller);
    EXPECT_EQ(window->threadOf("frame"), caller);
    window->state.frame = {700, 700, 100, 100};
    mainQueue.runReady();
    EXPECT_EQ(window->threadOf("setFrame"), std::this_thread::get_id());
    EXPECT_EQ(window->state.frame, (Rect{100, 100, 800, 600}));
}

TEST_F(WindowThreadRules, SetWindowTitleCopiesTheTextBeforeReturning) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    char text[] = "Vornix OS";
    onSecondThread([&] { setWindowTitle(handle(window), text); });
    std::strcpy(text, "changed");
    mainQueue.runReady();
    EXPECT_EQ(window->state.title, "Vornix OS");
}

TEST_F(WindowThreadRules, ReadingFunctionsReadOnTheCallersThreadAndQueueNothing) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    window->state.visible = true;
    window->state.contentViewFrame = Rect{0, 0, 400, 300};
    window->state.contentLayoutRect = Rect{0, 0, 400, 272};
    std::thread::id caller;
    _BDWRect rect{};
    _BDWRect working{};
    _BDWRect full{};
    _BDWScreenInfo info{&working, &full};
    bool visible = false;
    bool maximized = true;
    double titleBar = 0;
    onSecondThread(
        [&] {
            getRectForWindow(handle(window), &rect);
            getScreenInfoForWindow(handle(window), &info);
            visible = isWindowVisible(handle(window));
            maximized = isWindowMaximized(handle(window));
            titleBar = getTitleBarHeight(handle(window));
        },
        &caller);
    EXPECT_EQ(mainQueue.pending(), 0u);
    for (const char* read : {"frame", "screen", "isVisible", "isZoomed", "contentViewFrame", "contentLayoutRect"}) {
        EXPECT_EQ(window->threadOf(read), caller) << read;
    }
    EXPECT_DOUBLE_EQ(rect.top, 475);
    EXPECT_DOUBLE_EQ(working.top, 25);
    EXPECT_TRUE(visible);
    EXPECT_FALSE(maximized);
    EXPECT_DOUBLE_EQ(titleBar, 28);
}

}  // namespace
}  // namespace vornix::bitsdojo_window::testing
