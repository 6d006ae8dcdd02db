#pragma once

#import <AppKit/AppKit.h>

#include <chrono>
#include <functional>

namespace vornix::platform::macos::tests {

// Hands AppKit's pending events to the application until `done` says so or `seconds` have passed;
// whether `done` said so.
inline bool runEventsUntil(const std::function<bool()>& done, double seconds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        NSEvent* event = [NSApp nextEventMatchingMask:NSEventMaskAny
                                            untilDate:[NSDate dateWithTimeIntervalSinceNow:0.05]
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
        if (event != nil) {
            [NSApp sendEvent:event];
        }
    }
    return true;
}

}  // namespace vornix::platform::macos::tests
