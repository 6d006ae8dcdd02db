#include "platform/macos/DispatchMainQueue.hpp"

#import <Foundation/Foundation.h>
#include <dispatch/dispatch.h>

#include <cmath>
#include <cstdint>

namespace vornix::platform::macos {

void DispatchMainQueue::async(Work work) {
    dispatch_async(dispatch_get_main_queue(), ^{
      work();
    });
}

// Rounded up to whole nanoseconds, so that the work never runs before the time asked for.
void DispatchMainQueue::asyncAfter(double seconds, Work work) {
    const auto delay = static_cast<std::int64_t>(std::ceil(seconds * static_cast<double>(NSEC_PER_SEC)));
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, delay), dispatch_get_main_queue(), ^{
      work();
    });
}

bool DispatchMainQueue::isMainThread() const { return NSThread.isMainThread; }

}  // namespace vornix::platform::macos
