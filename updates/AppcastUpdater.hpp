#pragma once

#include <string>

#include "platform/Updater.hpp"
#include "updates/UpdateChecker.hpp"

namespace vornix::updates {

// The updater where the platform has none of its own: it reads the same appcast as the macOS
// updater and answers with the alerts, notifications and workspace ports. "Check for Updates..."
// shows an alert (the newest version is installed, a release is available with its download and
// release notes, or the check failed and why); a background check stays quiet apart from one
// diagnostics line, unless a release is available, which a desktop notification offers. It
// downloads nothing itself, so it never relaunches the application and never calls its delegate.
class AppcastUpdater : public platform::Updater {
public:
    AppcastUpdater(UpdateSettings settings, Version running, Version system);

    platform::UpdaterDelegate* delegate() const override { return delegate_; }
    void setDelegate(platform::UpdaterDelegate* delegate) override { delegate_ = delegate; }
    void checkForUpdates() override;
    void checkForUpdatesInBackground() override;

    // True from the start of a check until its answer has been shown.
    bool isChecking() const { return checker_.isChecking(); }

private:
    void present(const CheckOutcome& outcome, CheckMode mode) const;
    void offerInBackground(const CheckOutcome& outcome) const;
    // Opens a web address from the feed; only http and https ones.
    static void openWebPage(const std::string& address);

    UpdateChecker checker_;
    platform::UpdaterDelegate* delegate_ = nullptr;
};

}  // namespace vornix::updates
