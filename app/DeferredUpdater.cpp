#include "app/DeferredUpdater.hpp"

#include "platform/linux/HttpFetcherModule.hpp"
#include "platform/linux/HttpFetcherModuleEntry.hpp"
#include "platform/linux/Resources.hpp"

namespace vornix::app {

DeferredUpdater::DeferredUpdater(host::WebEndpoints endpoints, GDBusConnection* sessionBus)
    : endpoints_(std::move(endpoints)), sessionBus_(sessionBus ? G_DBUS_CONNECTION(g_object_ref(sessionBus)) : nullptr) {}

DeferredUpdater::~DeferredUpdater() {
    linuxUpdater_.reset();
    g_clear_object(&sessionBus_);
}

void DeferredUpdater::setDelegate(platform::UpdaterDelegate* delegate) {
    delegate_ = delegate;
    if (linuxUpdater_) {
        linuxUpdater_->updater().setDelegate(delegate);
    }
}

void DeferredUpdater::checkForUpdates() { updater().checkForUpdates(); }

void DeferredUpdater::checkForUpdatesInBackground() { updater().checkForUpdatesInBackground(); }

platform::Updater& DeferredUpdater::updater() {
    if (!linuxUpdater_) {
        // While it lives the Linux updater is also the installed updater; this one stays the
        // host's handle on it.
        linuxUpdater_ = std::make_unique<platform::linux::LinuxUpdater>(
            endpoints_, sessionBus_,
            std::make_unique<platform::linux::HttpFetcherModule>(platform::linux::modulesFolder() /
                                                                 platform::linux::httpFetcherModuleFileName));
        linuxUpdater_->updater().setDelegate(delegate_);
    }
    return linuxUpdater_->updater();
}

}  // namespace vornix::app
