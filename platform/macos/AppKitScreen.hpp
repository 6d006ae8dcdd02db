#pragma once

#import <AppKit/AppKit.h>

#include "platform/Screen.hpp"

namespace vornix::platform::macos {

// One display on macOS: an NSScreen, whose frames are in the core's coordinates already.
class AppKitScreen final : public Screen {
public:
    explicit AppKitScreen(NSScreen* screen) : screen_(screen) {}

    Rect frame() const override;
    Rect visibleFrame() const override;

private:
    NSScreen* screen_;
};

}  // namespace vornix::platform::macos
