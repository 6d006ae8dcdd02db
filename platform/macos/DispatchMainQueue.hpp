#pragma once

#include "platform/MainQueue.hpp"

namespace vornix::platform::macos {

// The main queue on macOS: the main dispatch queue, which AppKit's run loop drains.
class DispatchMainQueue final : public MainQueue {
public:
    void async(Work work) override;
    void asyncAfter(double seconds, Work work) override;
    bool isMainThread() const override;
};

}  // namespace vornix::platform::macos
