#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "platform/ApplicationWindows.hpp"
#include "platform/MainQueue.hpp"
#include "platform/doubles/ApplicationWindowsDouble.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/doubles/ScreenDouble.hpp"
#include "platform/doubles/WindowDouble.hpp"

namespace vornix::bitsdojo_window::testing {

using platform::Rect;
using platform::doubles::ScreenDouble;
using platform::doubles::WindowDouble;

// A 1440 x 900 main screen with a 25-point menu bar and a 70-point dock on the left.
inline std::shared_ptr<ScreenDouble> screenWithMenuBarAndLeftDock() {
    return std::make_shared<ScreenDouble>(Rect{0, 0, 1440, 900}, Rect{70, 0, 1370, 875});
}

// A main queue turned by hand and an application with no window yet; the library starts over
// with no application window and both flags false.
class WindowLibraryTest : public ::testing::Test {
protected:
    WindowLibraryTest() { resetLibrary(); }
    ~WindowLibraryTest() override { resetLibrary(); }

    static void resetLibrary() {
        _appWindow.reset();
        _windowCanBeShown = false;
        _insideDoWhenWindowReady = false;
    }

    // A window at `frame` on `screen` (none when null).
    static std::shared_ptr<WindowDouble> windowAt(Rect frame, std::shared_ptr<ScreenDouble> screen) {
        auto window = std::make_shared<WindowDouble>(frame);
        window->state.screen = std::move(screen);
        return window;
    }

    static BDWWindow handle(const std::shared_ptr<WindowDouble>& window) { return handleOf(window.get()); }

    platform::doubles::ManualMainQueue mainQueue;
    platform::ScopedPort<platform::MainQueue> mainQueuePort{&mainQueue};
    platform::doubles::ApplicationWindowsDouble application;
    platform::ScopedPort<platform::ApplicationWindows> applicationPort{&application};
};

}  // namespace vornix::bitsdojo_window::testing
