#pragma once

#import <AppKit/AppKit.h>

#include <memory>

#include "platform/macos/AppKitWindow.hpp"

// The window library's frameless window on macOS: an NSWindow whose port object is the core's
// BitsdojoWindow over the AppKit window port, so that every ordering (also those AppKit starts
// itself, such as makeKeyAndOrderFront:) passes through the core, which gives the window its
// full-size content view and its transparent, hidden title bar, and keeps it hidden until the
// engine allows it to be shown. Its standard buttons stay as AppKit makes them for its style: with
// a custom frame they sit in the transparent title bar over the content, as in any window with a
// full-size content view; a window that asks for no flags is a plain window.
@interface BDWFramelessWindow : NSWindow

// The port object for this window, made once when the window is made. A subclass that needs the
// core's window of another kind (derived from BitsdojoWindow) makes that one.
- (std::shared_ptr<vornix::platform::macos::AppKitWindow>)makePortObject;

// The port object, which lives as long as the window does.
@property(nonatomic, readonly) vornix::platform::macos::AppKitWindow* portWindow;

@end
