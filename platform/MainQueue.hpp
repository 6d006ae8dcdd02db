#pragma once

#include <functional>
#include <string_view>

#include "platform/Port.hpp"

namespace vornix::platform {

// The platform's main thread and its queue of work: the one thread the host works on.
// `async` and `asyncAfter` may be called from any thread.
class MainQueue : public Port<MainQueue> {
public:
    static constexpr std::string_view portName = "main queue";

    using Work = std::function<void()>;

    virtual ~MainQueue() = default;

    // Runs `work` on the main thread later, never before returning (also when called on it).
    virtual void async(Work work) = 0;
    // Runs `work` on the main thread `seconds` from now, not before.
    virtual void asyncAfter(double seconds, Work work) = 0;
    virtual bool isMainThread() const = 0;
};

}  // namespace vornix::platform
