#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "bitsdojo_window_macos/macos/Classes/tests/WindowLibraryFixture.hpp"

namespace vornix::bitsdojo_window::testing {
namespace {

using platform::Size;
using platform::doubles::WindowDouble;

using WindowFunctions = WindowLibraryTest;
using WindowFunctionsDeathTest = WindowLibraryTest;

// A record's edges in their order (left, top, right, bottom), to compare at once.
using Edges = std::array<double, 4>;
Edges edges(const _BDWRect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

struct ScreenRects {
    Edges working;
    Edges full;
};

ScreenRects screenInfoOf(const std::shared_ptr<WindowDouble>& window) {
    _BDWRect working{1, 1, 1, 1};
    _BDWRect full{1, 1, 1, 1};
    _BDWScreenInfo info{&working, &full};
    EXPECT_TRUE(getScreenInfoForWindow(handleOf(window.get()), &info));
    return {edges(working), edges(full)};
}

// The window's frame after the engine side reads its rectangle and sets the same one again.
Rect frameAfterGettingAndSettingItsRect(const std::shared_ptr<WindowDouble>& window) {
    _BDWRect rect{};
    getRectForWindow(handleOf(window.get()), &rect);
    setRectForWindow(handleOf(window.get()), &rect);
    return window->state.frame;
}

// --- geometry -------------------------------------------------------------------------------

TEST_F(WindowFunctions, SetSizeKeepsTheBottomLeftOriginAndGrowsAtTheTop) {
    auto window = windowAt({100, 100, 400, 300}, screenWithMenuBarAndLeftDock());
    setSize(handle(window), 800, 600);
    mainQueue.runReady();
    EXPECT_EQ(window->state.frame, (Rect{100, 100, 800, 600}));
    ASSERT_EQ(window->state.frameChanges.size(), 1u);
    EXPECT_TRUE(window->state.frameChanges[0].display);
}

TEST_F(WindowFunctions, SetPositionFlipsYAgainstTheTopOfTheVisibleFrame) {
    auto screen = std::make_shared<ScreenDouble>(Rect{0, 0, 1440, 900}, Rect{0, 0, 1440, 875});
    auto window = windowAt({300, 300, 400, 300}, screen);
    _BDWOffset offset{10, 20};
    EXPECT_TRUE(setPositionForWindow(handle(window), &offset));
    EXPECT_EQ(window->callNames().back(), "setFrameTopLeftPoint");
    EXPECT_DOUBLE_EQ(window->state.frame.x, 10);
    EXPECT_DOUBLE_EQ(window->state.frame.y + window->state.frame.height, 855);
}

TEST_F(WindowFunctions, SetPositionLeavesXAbsoluteWithADockOnTheLeft) {
    auto window = windowAt({300, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    _BDWOffset offset{10, 20};
    setPositionForWindow(handle(window), &offset);
    EXPECT_DOUBLE_EQ(window->state.frame.x, 10);
    EXPECT_DOUBLE_EQ(window->state.frame.y + window->state.frame.height, 855);
}

TEST_F(WindowFunctions, GetRectFlipsAgainstTheVisibleFrameAndLeavesXAbsolute) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    _BDWRect rect{};
    EXPECT_TRUE(getRectForWindow(handle(window), &rect));
    EXPECT_EQ(edges(rect), (Edges{200, 275, 600, 575}));
}

TEST_F(WindowFunctions, SetRectMeasuresAgainstTheWholeScreenFrameIncludingItsXOrigin) {
    auto rightScreen = std::make_shared<ScreenDouble>(Rect{1440, 0, 1920, 1080}, Rect{1440, 0, 1920, 1080});
    auto window = windowAt({1500, 100, 400, 300}, rightScreen);
    _BDWRect rect{10, 20, 810, 620};
    EXPECT_TRUE(setRectForWindow(handle(window), &rect));
    EXPECT_EQ(window->state.frame, (Rect{1450, 460, 800, 600}));
    ASSERT_EQ(window->state.frameChanges.size(), 1u);
    EXPECT_TRUE(window->state.frameChanges[0].display);
}

TEST_F(WindowFunctions, GetRectThenSetRectMovesTheWindowUpByTheMenuBarHeight) {
    auto screen = std::make_shared<ScreenDouble>(Rect{0, 0, 1440, 900}, Rect{0, 0, 1440, 875});
    auto window = windowAt({200, 300, 400, 300}, screen);
    EXPECT_EQ(frameAfterGettingAndSettingItsRect(window), (Rect{200, 325, 400, 300}));
}

// With a dock on the left both directions leave x absolute, so only the menu bar moves the window.
TEST_F(WindowFunctions, GetRectThenSetRectWithAMenuBarAndADockOnTheLeftMovesOnlyVertically) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    EXPECT_EQ(frameAfterGettingAndSettingItsRect(window), (Rect{200, 325, 400, 300}));
}

TEST_F(WindowFunctions, GetRectThenSetRectOnAScreenRightOfTheMainOneMovesTheWindowByItsXOrigin) {
    auto rightScreen = std::make_shared<ScreenDouble>(Rect{1440, 0, 1920, 1080}, Rect{1440, 0, 1920, 1055});
    auto window = windowAt({1600, 300, 400, 300}, rightScreen);
    EXPECT_EQ(frameAfterGettingAndSettingItsRect(window), (Rect{3040, 325, 400, 300}));
}

TEST_F(WindowFunctions, ScreenInfoWithAMenuBarAndADockOnTheLeft) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    const ScreenRects info = screenInfoOf(window);
    EXPECT_EQ(info.working, (Edges{70, 25, 1440, 900}));
    EXPECT_EQ(info.full, (Edges{0, 0, 1440, 900}));
}

TEST_F(WindowFunctions, ScreenInfoWithADockAtTheBottomEndsTheWorkingAreaAboveIt) {
    auto screen = std::make_shared<ScreenDouble>(Rect{0, 0, 1440, 900}, Rect{0, 70, 1440, 805});
    auto window = windowAt({200, 300, 400, 300}, screen);
    EXPECT_EQ(screenInfoOf(window).working, (Edges{0, 25, 1440, 830}));
}

TEST_F(WindowFunctions, ScreenInfoReportsTheWholeScreenUnflipped) {
    auto upperScreen = std::make_shared<ScreenDouble>(Rect{-200, 900, 1920, 1080}, Rect{-200, 900, 1920, 1080});
    auto window = windowAt({0, 1000, 400, 300}, upperScreen);
    EXPECT_EQ(screenInfoOf(window).full, (Edges{-200, 900, 1720, 1980}));
}

TEST_F(WindowFunctions, AWindowOnNoScreenWorksWithZeroRectangles) {
    auto window = windowAt({200, 300, 400, 300}, nullptr);
    const ScreenRects info = screenInfoOf(window);
    EXPECT_EQ(info.working, (Edges{0, 0, 0, 0}));
    EXPECT_EQ(info.full, (Edges{0, 0, 0, 0}));

    _BDWRect rect{};
    getRectForWindow(handle(window), &rect);
    EXPECT_DOUBLE_EQ(rect.top, -600);

    _BDWOffset offset{10, 20};
    setPositionForWindow(handle(window), &offset);
    EXPECT_DOUBLE_EQ(window->state.frame.y + window->state.frame.height, -20);

    maximizeWindow(handle(window));
    mainQueue.runReady();
    EXPECT_EQ(window->state.frame, Rect{});
}

TEST_F(WindowFunctions, MaximizeAnimatesToTheVisibleFrame) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    maximizeWindow(handle(window));
    mainQueue.runReady();
    EXPECT_EQ(window->state.frame, (Rect{70, 0, 1370, 875}));
    ASSERT_EQ(window->state.frameChanges.size(), 1u);
    EXPECT_TRUE(window->state.frameChanges[0].display);
    EXPECT_EQ(window->state.frameChanges[0].animate, true);
    EXPECT_TRUE(isWindowMaximized(handle(window)));
}

TEST_F(WindowFunctions, TitleBarHeightIsTheContentViewHeightLessTheContentLayoutHeight) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    window->state.contentViewFrame = Rect{0, 0, 400, 300};
    window->state.contentLayoutRect = Rect{0, 0, 400, 272};
    EXPECT_DOUBLE_EQ(getTitleBarHeight(handle(window)), 28);
}

TEST_F(WindowFunctions, TitleBarHeightWithoutAContentViewIsNegativeAndNotClamped) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    window->state.contentLayoutRect = Rect{0, 0, 400, 272};
    EXPECT_DOUBLE_EQ(getTitleBarHeight(handle(window)), -272);
}

// --- simple functions -----------------------------------------------------------------------

TEST_F(WindowFunctions, ShowWindowMakesTheWindowKeyAndOrdersItFront) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    showWindow(handle(window));
    mainQueue.runReady();
    EXPECT_TRUE(window->state.visible);
    EXPECT_TRUE(window->state.key);
    ASSERT_EQ(window->state.orderings.size(), 1u);
    EXPECT_EQ(window->state.orderings[0].mode, platform::WindowOrderingMode::above);
}

TEST_F(WindowFunctions, HideWindowMakesTheWindowInvisible) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    window->state.visible = true;
    hideWindow(handle(window));
    mainQueue.runReady();
    EXPECT_FALSE(window->state.visible);
    EXPECT_EQ(window->callNames().back(), "setIsVisible(false)");
}

TEST_F(WindowFunctions, MoveWindowDragsWithTheCurrentEvent) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    window->state.currentEvent = std::make_shared<platform::Event>();
    moveWindow(handle(window));
    mainQueue.runReady();
    ASSERT_EQ(window->state.drags.size(), 1u);
    EXPECT_EQ(window->state.drags[0], window->state.currentEvent);
}

TEST_F(WindowFunctions, SizeLimitsAreSetAsFloatingPointSizes) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    setMinSize(handle(window), 320, 240);
    setMaxSize(handle(window), 2560, 1600);
    mainQueue.runReady();
    EXPECT_EQ(window->state.minSize, (Size{320, 240}));
    EXPECT_EQ(window->state.maxSize, (Size{2560, 1600}));
}

TEST_F(WindowFunctions, VisibleAndMaximizedAreReadFromTheWindow) {
    auto screen = screenWithMenuBarAndLeftDock();
    auto window = windowAt({200, 300, 400, 300}, screen);
    window->state.visible = true;
    EXPECT_TRUE(isWindowVisible(handle(window)));
    EXPECT_FALSE(isWindowMaximized(handle(window)));
    window->state.visible = false;
    window->state.frame = screen->visibleFrame();
    EXPECT_FALSE(isWindowVisible(handle(window)));
    EXPECT_TRUE(isWindowMaximized(handle(window)));
}

TEST_F(WindowFunctions, MaximizeOrRestoreTogglesTheZoom) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    maximizeOrRestoreWindow(handle(window));
    mainQueue.runReady();
    EXPECT_TRUE(isWindowMaximized(handle(window)));
    maximizeOrRestoreWindow(handle(window));
    mainQueue.runReady();
    EXPECT_FALSE(isWindowMaximized(handle(window)));
    EXPECT_EQ(window->state.frame, (Rect{200, 300, 400, 300}));
}

TEST_F(WindowFunctions, MinimizeMiniaturizesTheWindow) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    minimizeWindow(handle(window));
    mainQueue.runReady();
    EXPECT_TRUE(window->state.miniaturized);
}

TEST_F(WindowFunctions, CloseClosesTheWindowWithoutAskingAnyone) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    window->state.visible = true;
    closeWindow(handle(window));
    mainQueue.runReady();
    EXPECT_TRUE(window->state.closed);
    EXPECT_EQ(window->callNames(), (std::vector<std::string>{"close"}));
}

TEST_F(WindowFunctions, SetWindowTitleTakesUtf8Text) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    setWindowTitle(handle(window), "Vornix OS \xE2\x80\x94 \xC3\x9C" "bersicht \xF0\x9F\x9A\x80");
    mainQueue.runReady();
    EXPECT_EQ(window->state.title, "Vornix OS \xE2\x80\x94 \xC3\x9C" "bersicht \xF0\x9F\x9A\x80");
}

TEST_F(WindowFunctions, SetWindowTitleTakesAnEmptyTitle) {
    auto window = windowAt({200, 300, 400, 300}, screenWithMenuBarAndLeftDock());
    window->state.title = "before";
    setWindowTitle(handle(window), "");
    mainQueue.runReady();
    EXPECT_EQ(window->state.title, "");
}

// --- library state --------------------------------------------------------------------------

TEST_F(WindowFunctions, TheFlagsAreStoredAsGiven) {
    setWindowCanBeShown(true);
    setInsideDoWhenWindowReady(true);
    EXPECT_TRUE(_windowCanBeShown);
    EXPECT_TRUE(windowCanBeShown());
    EXPECT_TRUE(_insideDoWhenWindowReady);
    setWindowCanBeShown(false);
    setInsideDoWhenWindowReady(false);
    EXPECT_FALSE(windowCanBeShown());
    EXPECT_FALSE(_insideDoWhenWindowReady);
}

TEST_F(WindowFunctions, GetAppWindowTakesTheApplicationsFirstWindowOnceAndKeepsIt) {
    auto first = windowAt({}, nullptr);
    auto second = windowAt({}, nullptr);
    application.list = {first, second};
    EXPECT_EQ(getAppWindow(), handle(first));
    application.list = {second};
    EXPECT_EQ(getAppWindow(), handle(first));
}

TEST_F(WindowFunctions, GetAppWindowAnswersTheWindowLastSetWithoutAskingTheApplication) {
    auto ordered = windowAt({}, nullptr);
    application.list = {windowAt({}, nullptr)};
    setAppWindow(handle(ordered));
    EXPECT_EQ(getAppWindow(), handle(ordered));
}

TEST_F(WindowFunctions, SetAppWindowReplacesTheEarlierWindowAndKeepsTheNewOneAlive) {
    auto first = windowAt({}, nullptr);
    auto second = windowAt({}, nullptr);
    setAppWindow(handle(first));
    setAppWindow(handle(second));
    std::weak_ptr<WindowDouble> kept = second;
    std::weak_ptr<WindowDouble> released = first;
    first.reset();
    second.reset();
    EXPECT_TRUE(released.expired());
    ASSERT_FALSE(kept.expired());
    EXPECT_EQ(_appWindow, kept.lock());
}

// --- defects of the engine side stop the process --------------------------------------------

TEST_F(WindowFunctionsDeathTest, GetAppWindowWithNoWindowAtAllIsFatal) {
    EXPECT_DEATH(getAppWindow(), "Fatal error: getAppWindow: the application has no window");
}

TEST_F(WindowFunctionsDeathTest, ANullWindowIsFatal) {
    EXPECT_DEATH(showWindow(nullptr), "Fatal error: showWindow was given no window");
    EXPECT_DEATH(getTitleBarHeight(nullptr), "Fatal error: getTitleBarHeight was given no window");
}

TEST_F(WindowFunctionsDeathTest, ANullRecordIsFatal) {
    auto window = windowAt({}, nullptr);
    EXPECT_DEATH(getRectForWindow(handle(window), nullptr), "Fatal error: getRectForWindow was given no record");
    _BDWRect working{};
    _BDWScreenInfo info{&working, nullptr};
    EXPECT_DEATH(getScreenInfoForWindow(handle(window), &info),
                 "Fatal error: getScreenInfoForWindow was given no record");
}

TEST_F(WindowFunctionsDeathTest, ATitleThatIsNotUtf8IsFatal) {
    auto window = windowAt({}, nullptr);
    EXPECT_DEATH(setWindowTitle(handle(window), "caf\xE9"), "Fatal error: setWindowTitle was given a title that is not UTF-8");
    EXPECT_DEATH(setWindowTitle(handle(window), "\xED\xA0\x80"), "not UTF-8");
    EXPECT_DEATH(setWindowTitle(handle(window), "\xC0\xAF"), "not UTF-8");
    EXPECT_DEATH(setWindowTitle(handle(window), nullptr), "Fatal error: setWindowTitle was given no title");
}

}  // namespace
}  // namespace vornix::bitsdojo_window::testing
