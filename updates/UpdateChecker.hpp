#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include "updates/CheckOutcome.hpp"
#include "updates/UpdateSettings.hpp"
#include "updates/Version.hpp"

namespace vornix::updates {

// Whether the user asked (and waits for an answer) or the host checks on its own.
enum class CheckMode {
    background,
    interactive,
};

// Runs update checks: fetches the feed on a worker thread through the HTTP fetcher port, reads it
// there, and reports what it found on the main queue. Called on the main thread.
class UpdateChecker {
public:
    using Completion = std::function<void(const CheckOutcome& outcome, CheckMode mode)>;

    UpdateChecker(UpdateSettings settings, Version running, Version system, Completion completion);
    // Stops a fetch in flight and waits for its thread; its report is dropped.
    ~UpdateChecker();
    UpdateChecker(const UpdateChecker&) = delete;
    UpdateChecker& operator=(const UpdateChecker&) = delete;

    // Starts a check unless one is running. Asking interactively while a background check runs
    // makes that check report interactively, so the user still gets an answer.
    void start(CheckMode mode);
    bool isChecking() const { return checking_; }

    const Version& runningVersion() const { return running_; }

private:
    void report(const CheckOutcome& outcome);

    const UpdateSettings settings_;
    const Version running_;
    const Version system_;
    Completion completion_;
    bool checking_ = false;
    CheckMode mode_ = CheckMode::background;
    std::thread worker_;
    std::shared_ptr<std::atomic<bool>> stopping_ = std::make_shared<std::atomic<bool>>(false);
    // Reports queued to the main queue carry a weak reference, so none arrives after destruction.
    std::shared_ptr<UpdateChecker*> self_;
};

}  // namespace vornix::updates
