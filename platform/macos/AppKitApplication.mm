#include "platform/macos/AppKitApplication.hpp"

#import <AppKit/AppKit.h>

namespace vornix::platform::macos {

OperatingSystemVersion AppKitApplication::systemVersion() const {
    const NSOperatingSystemVersion version = NSProcessInfo.processInfo.operatingSystemVersion;
    return {static_cast<int>(version.majorVersion), static_cast<int>(version.minorVersion),
            static_cast<int>(version.patchVersion)};
}

std::size_t AppKitApplication::windowCount() const { return NSApp.windows.count; }

void AppKitApplication::terminate() { [NSApp terminate:nil]; }

// macOS 14 replaced activating while ignoring other applications with a cooperative request.
void activateApplication() {
    if (@available(macOS 14, *)) {
        [NSApp activate];
    } else {
        [NSApp activateIgnoringOtherApps:YES];
    }
}

}  // namespace vornix::platform::macos
