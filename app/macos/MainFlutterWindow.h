#pragma once

#import "bitsdojo_window_macos/macos/Classes/BDWFramelessWindow.h"

// The application's main window: the window library's frameless window whose port object is the
// core's MainFlutterWindow, which hosts the engine's view and registers the plug-ins and channels
// when the window wakes.
@interface MainFlutterWindow : BDWFramelessWindow

// Made as the interface file would make it: titled and resizable, 1024 x 720 points in the middle
// of the main screen, then woken once.
+ (instancetype)loadMainFlutterWindow;

@end
