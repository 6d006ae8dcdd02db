#pragma once

#include <string_view>

#include "platform/Port.hpp"

namespace vornix::platform {

class Updater;

// The updater's callbacks (SUUpdaterDelegate); the host implements only this one.
class UpdaterDelegate {
public:
    virtual ~UpdaterDelegate() = default;
    virtual void updaterDidRelaunchApplication(Updater& updater) = 0;
};

// The software updater's shared instance (SUUpdater.sharedUpdater). It may be missing:
// `Updater::installed()` is then null, and `Updater::current()` stops the process.
class Updater : public Port<Updater> {
public:
    static constexpr std::string_view portName = "the shared updater";

    virtual ~Updater() = default;

    virtual UpdaterDelegate* delegate() const = 0;
    // The updater does not own its delegate.
    virtual void setDelegate(UpdaterDelegate* delegate) = 0;
    // A check the user asked for, with the updater's own windows.
    virtual void checkForUpdates() = 0;
    // A quiet check that speaks up only when there is an update.
    virtual void checkForUpdatesInBackground() = 0;
};

}  // namespace vornix::platform
