// Runs on a display (CTest starts it under xvfb-run): real GTK windows and monitors.
#include "platform/linux/GtkNativeWindow.hpp"

#include <chrono>

#include <gtest/gtest.h>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindow.hpp"
#include "platform/linux/GdkMonitorScreen.hpp"
#include "platform/linux/GlibMainQueue.hpp"

namespace vornix::platform::linux {
namespace {

class GtkNativeWindowTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(gtk_init_check(nullptr, nullptr)) << "no display"; }

    // Turns the main loop until `done` holds; the bound only keeps a broken window from hanging.
    template <class Condition>
    bool until(Condition done) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!done()) {
            if (std::chrono::steady_clock::now() > deadline) {
                return false;
            }
            g_main_context_iteration(nullptr, FALSE);
        }
        return true;
    }

    void settle() {
        while (g_main_context_iteration(nullptr, FALSE)) {
        }
        gdk_display_sync(gdk_display_get_default());
        while (g_main_context_iteration(nullptr, FALSE)) {
        }
    }

    GlibMainQueue mainQueue;
    ScopedPort<MainQueue> mainQueuePort{&mainQueue};
};

// A frameless window that waits for the engine, as the host's main window does.
class WaitingWindow : public bitsdojo_window::BitsdojoWindow<GtkNativeWindow> {
public:
    using BitsdojoWindow::BitsdojoWindow;
    std::uintptr_t bitsdojo_window_configure() const override { return BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP; }
};

TEST_F(GtkNativeWindowTest, TheScreenIsTheMonitorWithItsWorkAreaAsTheVisibleFrame) {
    GdkMonitor* monitor = gdk_display_get_primary_monitor(gdk_display_get_default());
    if (!monitor) {
        monitor = gdk_display_get_monitor(gdk_display_get_default(), 0);
    }
    GdkRectangle geometry{};
    gdk_monitor_get_geometry(monitor, &geometry);
    GdkMonitorScreen screen(monitor);
    EXPECT_EQ(screen.frame(), (Rect{0, 0, double(geometry.width), double(geometry.height)}));
    const Rect visible = screen.visibleFrame();
    EXPECT_LE(visible.width, geometry.width);
    EXPECT_LE(visible.height, geometry.height);
}

TEST_F(GtkNativeWindowTest, AWindowOrderedFrontIsMappedAtItsAppKitFrame) {
    auto window = std::make_shared<GtkNativeWindow>(Rect{100, 200, 320, 240}, windowStyle::borderless);
    gtk_container_add(GTK_CONTAINER(window->gtkWindow()), gtk_drawing_area_new());
    window->makeKeyAndOrderFront();
    EXPECT_FALSE(window->mapped()) << "ordering front is applied from the main loop";
    ASSERT_TRUE(until([&] { return window->mapped(); }));
    settle();
    const Rect primary = GdkMonitorScreen::primaryGeometry(gdk_display_get_default());
    gint x = 0;
    gint y = 0;
    gdk_window_get_origin(gtk_widget_get_window(GTK_WIDGET(window->gtkWindow())), &x, &y);
    EXPECT_EQ(x, 100);
    EXPECT_EQ(y, int(primary.height) - 200 - 240);
    EXPECT_EQ(window->frame(), (Rect{100, 200, 320, 240}));
}

TEST_F(GtkNativeWindowTest, AFramelessWindowWaitingForTheEngineIsNeverMapped) {
    auto window = std::make_shared<WaitingWindow>(Rect{50, 50, 300, 200}, windowStyle::titled | windowStyle::resizable);
    window->makeKeyAndOrderFront();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->mapped());
    EXPECT_TRUE((window->styleMask() & windowStyle::fullSizeContentView) != 0);
    EXPECT_FALSE(gtk_window_get_decorated(window->gtkWindow())) << "a custom frame has no system title bar";
}

TEST_F(GtkNativeWindowTest, HidingAWindowUnmapsIt) {
    auto window = std::make_shared<GtkNativeWindow>(Rect{10, 10, 200, 100}, windowStyle::titled);
    window->orderWindow(WindowOrderingMode::above, 0);
    ASSERT_TRUE(until([&] { return window->mapped(); }));
    window->setIsVisible(false);
    ASSERT_TRUE(until([&] { return !window->mapped(); }));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(GtkNativeWindowTest, SettingTheTopLeftPointKeepsTheSize) {
    auto window = std::make_shared<GtkNativeWindow>(Rect{0, 0, 400, 300}, windowStyle::titled);
    window->setFrameTopLeftPoint({10, 855});
    EXPECT_EQ(window->frame(), (Rect{10, 555, 400, 300}));
}

TEST_F(GtkNativeWindowTest, OnlyTitledOrResizableWindowsBecomeKeyByThemselves) {
    EXPECT_FALSE(GtkNativeWindow(Rect{0, 0, 10, 10}, windowStyle::borderless).canBecomeKey());
    EXPECT_TRUE(GtkNativeWindow(Rect{0, 0, 10, 10}, windowStyle::titled).canBecomeKey());
}

}  // namespace
}  // namespace vornix::platform::linux
