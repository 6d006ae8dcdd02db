#pragma once

#include "platform/Updater.hpp"

namespace vornix::platform::doubles {

// An updater for tests: counts the checks asked of it and plays a relaunch to its delegate.
class CountingUpdater : public Updater {
public:
    UpdaterDelegate* delegate() const override { return delegate_; }
    void setDelegate(UpdaterDelegate* delegate) override { delegate_ = delegate; }
    void checkForUpdates() override { ++checks_; }
    void checkForUpdatesInBackground() override { ++backgroundChecks_; }

    int checks() const { return checks_; }
    int backgroundChecks() const { return backgroundChecks_; }

    // What the updater does after it has installed an update and started the new version.
    void relaunch() {
        if (delegate_ != nullptr) {
            delegate_->updaterDidRelaunchApplication(*this);
        }
    }

private:
    UpdaterDelegate* delegate_ = nullptr;
    int checks_ = 0;
    int backgroundChecks_ = 0;
};

}  // namespace vornix::platform::doubles
