#import "app/macos/MainFlutterWindow.h"

#include "host/MainFlutterWindow.hpp"

namespace {

using PortWindow = vornix::platform::macos::AppKitWindow;

}  // namespace

@implementation MainFlutterWindow

+ (instancetype)loadMainFlutterWindow {
    MainFlutterWindow* window =
        [[MainFlutterWindow alloc] initWithContentRect:NSMakeRect(0, 0, 1024, 720)
                                             styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskResizable
                                               backing:NSBackingStoreBuffered
                                                 defer:NO];
    window.releasedWhenClosed = NO;
    window.title = @"Vornix OS";
    [window center];
    window.portWindow->awakeFromNib();
    return window;
}

- (std::shared_ptr<PortWindow>)makePortObject {
    return std::make_shared<vornix::host::MainFlutterWindow<PortWindow>>(self);
}

@end
