#include "platform/ChildReaper.hpp"

#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

namespace vornix::platform {

namespace {

constexpr std::chrono::milliseconds firstPause{1};
constexpr std::chrono::milliseconds longestPause{200};

// True when `child` is gone: reaped now, or no longer ours to wait for.
bool reaped(pid_t child) {
    for (;;) {
        int status = 0;
        const pid_t answer = ::waitpid(child, &status, WNOHANG);
        if (answer == child) {
            return true;
        }
        if (answer == 0) {
            return false;
        }
        if (errno != EINTR) {
            return true;  // ECHILD: someone else waited for it already
        }
    }
}

}  // namespace

ChildReaper& ChildReaper::shared() {
    // Never destroyed: its thread may still be polling while the process exits.
    static ChildReaper* const reaper = new ChildReaper;
    return *reaper;
}

void ChildReaper::adopt(pid_t child) {
    {
        std::lock_guard lock(mutex_);
        children_.push_back(child);
        ++adoptions_;
        if (!running_) {
            running_ = true;
            std::thread([this] { run(); }).detach();
        }
    }
    adopted_.notify_one();
}

bool ChildReaper::isRunning(pid_t child) {
    std::lock_guard lock(mutex_);
    if (std::find(children_.begin(), children_.end(), child) == children_.end()) {
        return false;
    }
    // Looks without collecting: the reaper thread still reaps it, and the id stays ours until then.
    siginfo_t info{};
    if (::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) != 0) {
        return false;
    }
    return info.si_pid == 0;
}

void ChildReaper::reapFinished() { std::erase_if(children_, reaped); }

void ChildReaper::run() {
    std::unique_lock lock(mutex_);
    auto pause = firstPause;
    for (;;) {
        adopted_.wait(lock, [this] { return !children_.empty(); });
        const std::uint64_t seen = adoptions_;
        if (adopted_.wait_for(lock, pause, [&] { return adoptions_ != seen; })) {
            pause = firstPause;
        } else {
            pause = std::min(pause * 2, longestPause);
        }
        reapFinished();
        if (children_.empty()) {
            pause = firstPause;
        }
    }
}

}  // namespace vornix::platform
