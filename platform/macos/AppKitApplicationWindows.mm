#include "platform/macos/AppKitApplicationWindows.hpp"

#import <AppKit/AppKit.h>

#include "platform/macos/AppKitWindow.hpp"

namespace vornix::platform::macos {

std::vector<std::shared_ptr<Window>> AppKitApplicationWindows::windows() const {
    std::vector<std::shared_ptr<Window>> windows;
    for (NSWindow* window in NSApp.windows) {
        windows.push_back([window vx_portObject]);
    }
    return windows;
}

}  // namespace vornix::platform::macos
