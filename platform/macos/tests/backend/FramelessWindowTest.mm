// The window library's frameless window as a real NSWindow: every ordering goes through the core,
// which applies the flags the window asks for.
#import "bitsdojo_window_macos/macos/Classes/BDWFramelessWindow.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindow.hpp"
#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"

namespace {

using vornix::platform::macos::AppKitWindow;

// The flags the next window made asks for; its port object is made during its initialiser.
std::uintptr_t flagsOfNextWindow = 0;

class FlaggedWindow final : public vornix::bitsdojo_window::BitsdojoWindow<AppKitWindow> {
public:
    FlaggedWindow(NSWindow* window, std::uintptr_t flags) : BitsdojoWindow(window), flags_(flags) {}
    std::uintptr_t bitsdojo_window_configure() const override { return flags_; }

private:
    std::uintptr_t flags_;
};

}  // namespace

// A frameless window whose port object asks for the flags given when it was made.
@interface VXFlaggedWindow : BDWFramelessWindow
@end

@implementation VXFlaggedWindow
- (std::shared_ptr<AppKitWindow>)makePortObject {
    return std::make_shared<FlaggedWindow>(self, flagsOfNextWindow);
}
@end

namespace {

constexpr NSWindowStyleMask standardStyle = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable |
                                            NSWindowStyleMaskMiniaturizable | NSWindowStyleMaskResizable;

class FramelessWindowTest : public testing::Test {
protected:
    void SetUp() override { vornix::bitsdojo_window::_windowCanBeShown = false; }

    void TearDown() override {
        [window orderOut:nil];
        vornix::bitsdojo_window::_appWindow.reset();
        vornix::bitsdojo_window::_windowCanBeShown = false;
    }

    void make(std::uintptr_t flags, NSWindowStyleMask style = standardStyle) {
        flagsOfNextWindow = flags;
        window = [[VXFlaggedWindow alloc] initWithContentRect:NSMakeRect(200, 200, 480, 320)
                                                    styleMask:style
                                                      backing:NSBackingStoreBuffered
                                                        defer:NO];
        window.releasedWhenClosed = NO;
    }

    void expectTrafficLights() {
        for (NSWindowButton kind : {NSWindowCloseButton, NSWindowMiniaturizeButton, NSWindowZoomButton}) {
            NSButton* button = [window standardWindowButton:kind];
            ASSERT_TRUE(button != nil) << "standard button " << kind;
            EXPECT_FALSE(button.hidden) << "standard button " << kind;
        }
    }

    VXFlaggedWindow* window = nil;
};

TEST_F(FramelessWindowTest, WithoutFlagsIsAPlainWindowThatBecomesTheApplicationWindow) {
    make(0);
    [window makeKeyAndOrderFront:nil];
    EXPECT_TRUE(window.visible);
    EXPECT_EQ(window.styleMask, standardStyle);
    EXPECT_EQ(window.titleVisibility, NSWindowTitleVisible);
    EXPECT_FALSE(window.titlebarAppearsTransparent);
    EXPECT_TRUE(window.opaque);
    EXPECT_TRUE(window.movable);
    expectTrafficLights();
    EXPECT_EQ(vornix::bitsdojo_window::_appWindow.get(), window.portWindow);
}

TEST_F(FramelessWindowTest, ACustomFrameIsAFullSizeContentViewUnderATransparentTitlelessTitleBar) {
    make(BDW_CUSTOM_FRAME);
    [window makeKeyAndOrderFront:nil];
    EXPECT_TRUE(window.visible);
    EXPECT_EQ(window.styleMask, standardStyle | NSWindowStyleMaskFullSizeContentView);
    EXPECT_EQ(window.titleVisibility, NSWindowTitleHidden);
    EXPECT_TRUE(window.titlebarAppearsTransparent);
    EXPECT_FALSE(window.opaque);
    EXPECT_FALSE(window.movable);
    expectTrafficLights();
}

TEST_F(FramelessWindowTest, HiddenOnStartupStaysHiddenUntilItMayBeShown) {
    make(BDW_HIDE_ON_STARTUP);
    [window makeKeyAndOrderFront:nil];
    EXPECT_FALSE(window.visible);
    [window orderFront:nil];
    EXPECT_FALSE(window.visible);
    EXPECT_EQ(window.styleMask, standardStyle);

    vornix::bitsdojo_window::setWindowCanBeShown(true);
    [window makeKeyAndOrderFront:nil];
    EXPECT_TRUE(window.visible);
}

TEST_F(FramelessWindowTest, BothFlagsHideTheWindowWithItsCustomFrameApplied) {
    make(BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP);
    [window makeKeyAndOrderFront:nil];
    EXPECT_FALSE(window.visible);
    EXPECT_NE(window.styleMask & NSWindowStyleMaskFullSizeContentView, 0U);
    EXPECT_EQ(window.titleVisibility, NSWindowTitleHidden);
    expectTrafficLights();
}

// NSWindow answers no for a window without a title bar; the frameless window always can be key.
TEST_F(FramelessWindowTest, CanBecomeKeyWithoutATitleBar) {
    make(0, NSWindowStyleMaskBorderless);
    EXPECT_TRUE(window.canBecomeKeyWindow);
}

}  // namespace
