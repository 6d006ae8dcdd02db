#include "platform/doubles/WindowDouble.hpp"

#include <gtest/gtest.h>

#include <memory>

#include "platform/doubles/ScreenDouble.hpp"

namespace {

using vornix::platform::Rect;
using vornix::platform::WindowOrderingMode;
using vornix::platform::doubles::ScreenDouble;
using vornix::platform::doubles::WindowDouble;
namespace windowStyle = vornix::platform::windowStyle;

// A window that watches its own orderings, as a subclass of NSWindow would.
class OrderWatchingWindow : public WindowDouble {
public:
    using WindowDouble::WindowDouble;
    void orderWindow(WindowOrderingMode mode, long relativeTo) override {
        ++seen;
        WindowDouble::orderWindow(mode, relativeTo);
    }
    int seen = 0;
};

TEST(WindowDouble, MakeKeyAndOrderFrontOrdersThroughTheOverridableOrderWindow) {
    OrderWatchingWindow window(Rect{}, windowStyle::titled);
    window.makeKeyAndOrderFront();
    EXPECT_EQ(window.seen, 1);
    EXPECT_TRUE(window.state.visible);
    EXPECT_TRUE(window.state.key);
}

TEST(WindowDouble, OnlyTitledOrResizableWindowsBecomeKey) {
    WindowDouble borderless(Rect{}, windowStyle::borderless);
    borderless.makeKeyAndOrderFront();
    EXPECT_FALSE(borderless.state.key);
    EXPECT_TRUE(borderless.state.visible);
    EXPECT_TRUE(WindowDouble(Rect{}, windowStyle::resizable).canBecomeKey());
}

TEST(WindowDouble, OrderingOutHidesTheWindow) {
    WindowDouble window;
    window.orderWindow(WindowOrderingMode::above, 0);
    window.orderWindow(WindowOrderingMode::out, 0);
    EXPECT_FALSE(window.state.visible);
    EXPECT_EQ(window.state.orderings.size(), 2u);
}

TEST(WindowDouble, ZoomTogglesBetweenTheVisibleFrameAndTheUsersFrame) {
    WindowDouble window(Rect{100, 100, 400, 300});
    window.state.screen = std::make_shared<ScreenDouble>(Rect{0, 0, 1440, 900}, Rect{0, 0, 1440, 875});
    window.zoom();
    EXPECT_TRUE(window.isZoomed());
    EXPECT_EQ(window.state.frame, (Rect{0, 0, 1440, 875}));
    window.zoom();
    EXPECT_FALSE(window.isZoomed());
    EXPECT_EQ(window.state.frame, (Rect{100, 100, 400, 300}));
}

TEST(WindowDouble, SetFrameTopLeftPointKeepsTheSize) {
    WindowDouble window(Rect{100, 100, 400, 300});
    window.setFrameTopLeftPoint({10, 855});
    EXPECT_EQ(window.state.frame, (Rect{10, 555, 400, 300}));
}

}  // namespace
