#pragma once

#include <memory>

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window_api.hpp"
#include "platform/Window.hpp"

// The window functions behind the tables of bitsdojo_window_api(). The engine side speaks in
// top-left-origin screen points; the window port in AppKit's bottom-left-origin points. Each
// function keeps one thread rule:
//   caller's thread             - reads the window on whatever thread calls;
//   always queued to main       - queues its work on the main queue and returns at once, even on main;
//   immediate on main, else queued;
// queued work holds a shared ownership of the window until it has run.
// A null window or record pointer is a defect of the engine side and stops the process.
namespace vornix::bitsdojo_window {

// The library's state, process-wide; not locked: written and read on the main thread.
// The window the functions treat as the application window; empty until a frameless window is
// ordered or getAppWindow looks it up.
extern std::shared_ptr<platform::Window> _appWindow;
// Whether a frameless window hidden on start-up may become visible.
extern bool _windowCanBeShown;
// Set by the engine side while it runs its window-ready callback; only stored here.
extern bool _insideDoWhenWindowReady;

// Public table, in slot order.
BDWWindow getAppWindow();
void setWindowCanBeShown(bool value);
void setInsideDoWhenWindowReady(bool value);
void showWindow(BDWWindow window);
void hideWindow(BDWWindow window);
void moveWindow(BDWWindow window);
void setSize(BDWWindow window, int width, int height);
void setMinSize(BDWWindow window, int width, int height);
void setMaxSize(BDWWindow window, int width, int height);
bool getScreenInfoForWindow(BDWWindow window, _BDWScreenInfo* info);
bool setPositionForWindow(BDWWindow window, _BDWOffset* offset);
bool setRectForWindow(BDWWindow window, _BDWRect* rect);
bool getRectForWindow(BDWWindow window, _BDWRect* rect);
bool isWindowVisible(BDWWindow window);
bool isWindowMaximized(BDWWindow window);
void maximizeOrRestoreWindow(BDWWindow window);
void maximizeWindow(BDWWindow window);
void minimizeWindow(BDWWindow window);
void closeWindow(BDWWindow window);
void setWindowTitle(BDWWindow window, const char* title);
double getTitleBarHeight(BDWWindow window);

// Private table.
bool windowCanBeShown();
void setAppWindow(BDWWindow window);

// The engine side's handle for a window port object: always taken from the port's own type, so
// that the library can turn it back into that type whatever the window derives from.
BDWWindow handleOf(platform::Window* window);

}  // namespace vornix::bitsdojo_window
