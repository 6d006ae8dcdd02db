#pragma once

#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/MainQueue.hpp"

namespace vornix::platform::doubles {

// A main queue driven by hand with a manual clock, so that "one second later and not before"
// is an assertion rather than a sleep. The thread that makes it is its main thread. Work may be
// queued from any thread; it runs only inside runReady() / advance() on the calling thread.
class ManualMainQueue : public MainQueue {
public:
    ManualMainQueue();

    void async(Work work) override;
    void asyncAfter(double seconds, Work work) override;
    bool isMainThread() const override;

    // Runs every task that is due, in deadline order and, for equal deadlines, in the order queued;
    // tasks queued meanwhile run too when they are due. Returns how many ran.
    std::size_t runReady();
    // Moves the clock forward by `seconds`, running due work at each deadline passed on the way.
    std::size_t advance(double seconds);

    double now() const;
    std::size_t pending() const;

private:
    struct Task {
        double deadline;
        std::uint64_t sequence;
        Work work;
    };

    void enqueue(double deadline, Work work);
    bool takeDue(double limit, Task& task);

    mutable std::mutex mutex_;
    std::thread::id mainThread_;
    double now_ = 0.0;
    std::uint64_t nextSequence_ = 0;
    std::vector<Task> tasks_;
};

}  // namespace vornix::platform::doubles
