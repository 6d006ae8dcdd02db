#pragma once

// The C interface that the engine side calls directly, without a channel: it finds
// `bitsdojo_window_api` by name in the running executable and calls through the tables.
// Every record has plain C layout; the slot order of the tables is the interface.

#include <cstdint>

// The flags a frameless window answers from bitsdojo_window_configure().
// Draw the frame itself: content under a transparent title bar, no title, not movable by the system.
inline constexpr std::uintptr_t BDW_CUSTOM_FRAME = 0x1;
// Stay hidden after every ordering until the engine side allows the window to be shown.
inline constexpr std::uintptr_t BDW_HIDE_ON_STARTUP = 0x2;

extern "C" {

// The window as the engine side holds it: an opaque pointer that it only passes back. It is the
// window port object (vornix::platform::Window*), on every platform; on macOS that object
// stands for one NSWindow.
typedef void* BDWWindow;

// Top-left-origin screen points: y grows downwards from the top of the reference area.
struct _BDWRect {
    double left;
    double top;
    double right;
    double bottom;
};

// A window's top-left corner, in the same top-left-origin points.
struct _BDWOffset {
    double x;
    double y;
};

// Where getScreenInfoForWindow writes: the usable area and the whole screen.
struct _BDWScreenInfo {
    _BDWRect* workingRect;
    _BDWRect* fullRect;
};

struct _BDWPublicAPI {
    BDWWindow (*getAppWindow)();
    void (*setWindowCanBeShown)(bool value);
    void (*setInsideDoWhenWindowReady)(bool value);
    void (*showWindow)(BDWWindow window);
    void (*hideWindow)(BDWWindow window);
    void (*moveWindow)(BDWWindow window);
    void (*setSize)(BDWWindow window, int width, int height);
    void (*setMinSize)(BDWWindow window, int width, int height);
    void (*setMaxSize)(BDWWindow window, int width, int height);
    bool (*getScreenInfoForWindow)(BDWWindow window, _BDWScreenInfo* info);
    bool (*setPositionForWindow)(BDWWindow window, _BDWOffset* offset);
    bool (*setRectForWindow)(BDWWindow window, _BDWRect* rect);
    bool (*getRectForWindow)(BDWWindow window, _BDWRect* rect);
    bool (*isWindowVisible)(BDWWindow window);
    bool (*isWindowMaximized)(BDWWindow window);
    void (*maximizeOrRestoreWindow)(BDWWindow window);
    void (*maximizeWindow)(BDWWindow window);
    void (*minimizeWindow)(BDWWindow window);
    void (*closeWindow)(BDWWindow window);
    void (*setWindowTitle)(BDWWindow window, const char* title);
    double (*getTitleBarHeight)(BDWWindow window);
};

// For the frameless window class only.
struct _BDWPrivateAPI {
    bool (*windowCanBeShown)();
    void (*setAppWindow)(BDWWindow window);
};

struct _BDWAPI {
    const _BDWPublicAPI* publicAPI;
    const _BDWPrivateAPI* privateAPI;
};

// The one static table; its contents never change.
__attribute__((visibility("default"))) const _BDWAPI* bitsdojo_window_api();

}  // extern "C"
