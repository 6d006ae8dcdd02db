#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/AppKitStatusBar.hpp"

// The application's delegate on macOS. It installs the platform's ports, makes the main window and
// hands every application event to the core's AppDelegate. The status item's action, sent with no
// target, travels up the responder chain to it (the application's delegate is the last responder).
@interface VornixAppDelegate : NSObject <NSApplicationDelegate, VXStatusItemActions>

// Installs the ports, then makes, wakes and orders front the main window; once, as launching starts.
- (void)loadMainWindow;
@end
