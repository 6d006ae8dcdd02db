#pragma once

#include <sys/types.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <vector>

namespace vornix::platform {

// Collects the exit status of the children the host starts and does not wait for, so that none
// of them lingers as a zombie, without ever blocking the thread that started them.
//
// How: one background thread, started on the first adoption, polls exactly the adopted process
// ids with waitpid(pid, WNOHANG). It never waits for "any child", so children that other code
// starts and waits for are left alone, and it installs no SIGCHLD handler and does not ignore
// SIGCHLD (either would change how the rest of the process sees its children). Polling starts a
// millisecond after each adoption and backs off to a few times a second while a child runs on;
// with no child outstanding the thread sleeps until the next adoption. The reaper lives as long
// as the process.
class ChildReaper {
public:
    static ChildReaper& shared();

    // Takes over the waiting for `child`, a child of this process that nobody else waits for.
    void adopt(pid_t child);

    // Whether `child`, once adopted, still runs: not yet reaped and not ended waiting to be.
    // False for a process id that was never adopted or whose child has been reaped.
    bool isRunning(pid_t child);

    ChildReaper(const ChildReaper&) = delete;
    ChildReaper& operator=(const ChildReaper&) = delete;

private:
    ChildReaper() = default;
    ~ChildReaper() = default;

    void run();
    void reapFinished();

    std::mutex mutex_;
    std::condition_variable adopted_;
    std::vector<pid_t> children_;
    std::uint64_t adoptions_ = 0;
    bool running_ = false;
};

}  // namespace vornix::platform
