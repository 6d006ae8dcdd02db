// The backend's own tests run in an application of their own: AppKit's shared application, made
// an accessory (a menu-bar application, as the host is) and finished launching, so that windows,
// status items and Apple Events behave as they do in the host.
#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    @autoreleasepool {
        [NSApplication sharedApplication];
        [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
        [NSApp finishLaunching];
        testing::InitGoogleTest(&argc, argv);
        return RUN_ALL_TESTS();
    }
}
