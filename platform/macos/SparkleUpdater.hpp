#pragma once

#import <Foundation/Foundation.h>

#include <memory>

#include "platform/Updater.hpp"

@class SUUpdater;
@class VXUpdaterDelegate;

namespace vornix::platform::macos {

// The updater on macOS: Sparkle's shared SUUpdater, with the core's delegate behind an object
// that conforms to SUUpdaterDelegate.
class SparkleUpdater final : public Updater {
public:
    // The shared updater, or null when Sparkle gives none (the framework is not loaded).
    static std::unique_ptr<SparkleUpdater> shared();

    explicit SparkleUpdater(SUUpdater* updater);
    ~SparkleUpdater() override;

    UpdaterDelegate* delegate() const override { return delegate_; }
    void setDelegate(UpdaterDelegate* delegate) override;
    void checkForUpdates() override;
    void checkForUpdatesInBackground() override;

private:
    SUUpdater* updater_;
    // SUUpdater holds its delegate unretained: the bridge object lives here.
    VXUpdaterDelegate* bridge_;
    UpdaterDelegate* delegate_ = nullptr;
};

}  // namespace vornix::platform::macos
