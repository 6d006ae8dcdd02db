#pragma once

#include <memory>

#include <gio/gio.h>

#include "host/WebEndpoints.hpp"
#include "platform/Port.hpp"
#include "platform/HttpFetcher.hpp"
#include "platform/linux/DesktopNotifications.hpp"
#include "updates/AppcastUpdater.hpp"

namespace vornix::platform::linux {

// The Linux host's updater, which Linux lacks: the appcast updater on the configured feed, over
// the given HTTP fetcher, with desktop notifications on the session bus. While it lives it is
// the installed updater, HTTP fetcher and notifications. The feed is the endpoints'
// `updateFeed`; the environment variables VORNIX_UPDATE_FEED_URL and VORNIX_UPDATE_TIMEOUT
// override the feed and the time-out (desktop tests point the host at a local server this way).
class LinuxUpdater {
public:
    // `sessionBus` may be null when there is none; notifications then only print a line.
    LinuxUpdater(const host::WebEndpoints& endpoints, GDBusConnection* sessionBus, std::unique_ptr<HttpFetcher> fetcher);

    updates::AppcastUpdater& updater() { return updater_; }

private:
    std::unique_ptr<HttpFetcher> fetcher_;
    DesktopNotifications notifications_;
    updates::AppcastUpdater updater_;
    ScopedPort<HttpFetcher> fetcherPort_{fetcher_.get()};
    ScopedPort<Notifications> notificationsPort_{&notifications_};
    ScopedPort<Updater> updaterPort_{&updater_};
};

// The running system's version for the feed's minimum system versions: the kernel's release.
updates::Version linuxSystemVersion();

}  // namespace vornix::platform::linux
