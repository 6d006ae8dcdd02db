#include "platform/doubles/MainQueueWaiting.hpp"

#include <chrono>
#include <thread>

namespace vornix::platform::doubles {

bool runUntil(ManualMainQueue& queue, const std::function<bool()>& done, double seconds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (true) {
        queue.runReady();
        if (done()) {
            return true;
        }
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

}  // namespace vornix::platform::doubles
