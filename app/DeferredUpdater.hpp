#pragma once

#include <memory>

#include <gio/gio.h>

#include "host/WebEndpoints.hpp"
#include "platform/Updater.hpp"
#include "platform/linux/LinuxUpdater.hpp"

namespace vornix::app {

// The host's updater port: it makes the Linux updater (its HTTP fetcher module, the desktop
// notifications) on the first check rather than at start-up, which needs neither. Until then it
// only keeps the delegate, which it hands on.
class DeferredUpdater : public platform::Updater {
public:
    DeferredUpdater(host::WebEndpoints endpoints, GDBusConnection* sessionBus);
    ~DeferredUpdater() override;

    platform::UpdaterDelegate* delegate() const override { return delegate_; }
    void setDelegate(platform::UpdaterDelegate* delegate) override;
    void checkForUpdates() override;
    void checkForUpdatesInBackground() override;

    bool made() const { return linuxUpdater_ != nullptr; }

private:
    platform::Updater& updater();

    host::WebEndpoints endpoints_;
    GDBusConnection* sessionBus_;
    platform::UpdaterDelegate* delegate_ = nullptr;
    std::unique_ptr<platform::linux::LinuxUpdater> linuxUpdater_;
};

}  // namespace vornix::app
