#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/FatalError.hpp"
#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window_api.hpp"
#include "platform/Window.hpp"

namespace vornix::bitsdojo_window {

// A copy of a function table, taken by the frameless window instead of calling the library
// directly, as any other client of the table would; a missing table is a fatal error.
template <class Table>
Table copyOfTable(const Table* table, std::string_view name) {
    if (table == nullptr) {
        base::fatalError(std::string(name) + " is missing");
    }
    return *table;
}

// The library-side copies of the tables, each taken once, on first use.
const _BDWAPI& bdwAPI();
const _BDWPrivateAPI& bdwPrivateAPI();

// The steps of an ordering that do not depend on the window's platform class.
void applyCustomFrame(platform::Window& window);
// Registers the window as the application window and tells whether it may be shown, both read
// through the private table.
bool registerOrderedWindow(platform::Window& window);

// The window an application's main window derives from to draw its own frame and to stay hidden
// until the engine side allows it to be shown. It subclasses the platform's window class
// (`PlatformWindow`, a platform::Window), as its AppKit form subclasses NSWindow: every ordering
// of the window, also those AppKit starts itself, passes through orderWindow below.
template <std::derived_from<platform::Window> PlatformWindow>
class BitsdojoWindow : public PlatformWindow {
public:
    // The platform class's initialisers, with the values passed on unchanged (no style is forced).
    using PlatformWindow::PlatformWindow;

    // A frameless window has no title bar, which would otherwise keep it from becoming key.
    bool canBecomeKey() const override { return true; }

    // The flags (BDW_CUSTOM_FRAME, BDW_HIDE_ON_STARTUP) a derived window asks for; none here.
    virtual std::uintptr_t bitsdojo_window_configure() const { return 0; }

    // The custom frame is applied on every ordering, not once; the window is ordered first and
    // hidden afterwards, so that it exists on screen for the engine while it stays invisible.
    void orderWindow(platform::WindowOrderingMode mode, long relativeTo) override {
        const std::uintptr_t flags = bitsdojo_window_configure();
        if ((flags & BDW_CUSTOM_FRAME) != 0) {
            applyCustomFrame(*this);
        }
        PlatformWindow::orderWindow(mode, relativeTo);
        const bool canBeShown = registerOrderedWindow(*this);
        if ((flags & BDW_HIDE_ON_STARTUP) != 0 && !canBeShown) {
            this->setIsVisible(false);
        }
    }
};

}  // namespace vornix::bitsdojo_window
