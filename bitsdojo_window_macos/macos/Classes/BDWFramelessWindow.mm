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

// Until NSWindow's initialiser has returned there is no port object yet; whatever AppKit asks of
// the window in the meantime gets NSWindow's own answer, as for any window.
- (void)orderWindow:(NSWindowOrderingMode)place relativeTo:(NSInteger)otherWin {
    if (_portObject == nullptr) {
        [super orderWindow:place relativeTo:otherWin];
        return;
    }
    _portObject->orderWindow(static_cast<vornix::platform::WindowOrderingMode>(place), otherWin);
}

- (void)vx_orderWindowItself:(NSWindowOrderingMode)place relativeTo:(NSInteger)otherWin {
    [super orderWindow:place relativeTo:otherWin];
}

- (BOOL)canBecomeKeyWindow {
    return _portObject != nullptr ? _portObject->canBecomeKey() : super.canBecomeKeyWindow;
}

- (BOOL)vx_canBecomeKeyWindowItself {
    return super.canBecomeKeyWindow;
}

@end
