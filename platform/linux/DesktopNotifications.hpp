#pragma once

#include <gio/gio.h>

#include <cstdint>
#include <map>
#include <string>

#include "platform/Notifications.hpp"

namespace vornix::platform::linux {

// Notifications through the desktop's notification server (org.freedesktop.Notifications on the
// session bus). Replies and action signals arrive in the GLib main context of the thread that made
// this object: the host's main thread.
class DesktopNotifications : public Notifications {
public:
    // Keeps its own reference to `connection`, which may be null where there is no session bus.
    DesktopNotifications(GDBusConnection* connection, std::string applicationName);
    ~DesktopNotifications() override;
    DesktopNotifications(const DesktopNotifications&) = delete;
    DesktopNotifications& operator=(const DesktopNotifications&) = delete;

    void post(const Notification& notification, ActionHandler onAction) override;

private:
    struct Pending;

    static void onNotifyReply(GObject* source, GAsyncResult* result, gpointer data);
    static void onSignal(GDBusConnection* connection, const gchar* sender, const gchar* path, const gchar* interface,
                         const gchar* signal, GVariant* parameters, gpointer data);

    GDBusConnection* connection_;
    std::string applicationName_;
    GCancellable* cancellable_;
    guint actionSubscription_ = 0;
    guint closedSubscription_ = 0;
    std::map<std::uint32_t, ActionHandler> handlers_;
};

}  // namespace vornix::platform::linux
