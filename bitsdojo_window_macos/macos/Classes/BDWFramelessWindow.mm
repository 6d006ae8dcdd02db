#import "bitsdojo_window_macos/macos/Classes/BDWFramelessWindow.h"

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindow.hpp"

namespace {

using PortWindow = vornix::platform::macos::AppKitWindow;

}  // namespace

@implementation BDWFramelessWindow {
    std::shared_ptr<PortWindow> _portObject;
}

- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag {
    if ((self = [super initWithContentRect:contentRect styleMask:style backing:backingStoreType defer:flag])) {
        _portObject = [self makePortObject];
        [self standardWindowButton:NSWindowCloseButton].hidden = YES;
        [self standardWindowButton:NSWindowMiniaturizeButton].hidden = YES;
        [self standardWindowButton:NSWindowZoomButton].hidden = YES;
    }
    return self;
}

- (std::shared_ptr<PortWindow>)makePortObject {
    return std::make_shared<vornix::bitsdojo_window::BitsdojoWindow<PortWindow>>(self);
}

- (PortWindow*)portWindow {
    return _portObject.get();
}

- (std::shared_ptr<vornix::platform::Window>)vx_portObject {
    return _portObject;
}

- (void)orderWindow:(NSWindowOrderingMode)place relativeTo:(NSInteger)otherWin {
    _portObject->orderWindow(static_cast<vornix::platform::WindowOrderingMode>(place), otherWin);
}

- (void)vx_orderWindowItself:(NSWindowOrderingMode)place relativeTo:(NSInteger)otherWin {
    [super orderWindow:place relativeTo:otherWin];
}

- (BOOL)canBecomeKeyWindow {
    return _portObject->canBecomeKey();
}

- (BOOL)vx_canBecomeKeyWindowItself {
    return super.canBecomeKeyWindow;
}

@end
