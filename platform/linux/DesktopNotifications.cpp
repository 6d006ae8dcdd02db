#include "platform/linux/DesktopNotifications.hpp"

#include <memory>
#include <string_view>

#include "base/Diagnostics.hpp"

namespace vornix::platform::linux {

namespace {

constexpr const char* serverName = "org.freedesktop.Notifications";
constexpr const char* serverPath = "/org/freedesktop/Notifications";
constexpr const char* serverInterface = "org.freedesktop.Notifications";

}  // namespace

struct DesktopNotifications::Pending {
    DesktopNotifications* owner;
    ActionHandler onAction;
};

DesktopNotifications::DesktopNotifications(GDBusConnection* connection, std::string applicationName)
    : connection_(connection != nullptr ? G_DBUS_CONNECTION(g_object_ref(connection)) : nullptr),
      applicationName_(std::move(applicationName)),
      cancellable_(g_cancellable_new()) {
    if (connection_ == nullptr) {
        return;
    }
    actionSubscription_ = g_dbus_connection_signal_subscribe(connection_, serverName, serverInterface, "ActionInvoked",
                                                             serverPath, nullptr, G_DBUS_SIGNAL_FLAGS_NONE, onSignal,
                                                             this, nullptr);
    closedSubscription_ = g_dbus_connection_signal_subscribe(connection_, serverName, serverInterface,
                                                             "NotificationClosed", serverPath, nullptr,
                                                             G_DBUS_SIGNAL_FLAGS_NONE, onSignal, this, nullptr);
}

DesktopNotifications::~DesktopNotifications() {
    g_cancellable_cancel(cancellable_);
    g_object_unref(cancellable_);
    if (connection_ != nullptr) {
        g_dbus_connection_signal_unsubscribe(connection_, actionSubscription_);
        g_dbus_connection_signal_unsubscribe(connection_, closedSubscription_);
        g_object_unref(connection_);
    }
}

void DesktopNotifications::post(const Notification& notification, ActionHandler onAction) {
    if (connection_ == nullptr) {
        base::printLine("The desktop notification could not be shown: there is no session bus");
        return;
    }
    GVariantBuilder actions;
    g_variant_builder_init(&actions, G_VARIANT_TYPE("as"));
    for (const NotificationAction& action : notification.actions) {
        g_variant_builder_add(&actions, "s", action.key.c_str());
        g_variant_builder_add(&actions, "s", action.label.c_str());
    }
    GVariant* parameters = g_variant_new("(susssasa{sv}i)", applicationName_.c_str(), 0u, "",
                                         notification.title.c_str(), notification.body.c_str(), &actions, nullptr, -1);
    g_dbus_connection_call(connection_, serverName, serverPath, serverInterface, "Notify", parameters,
                           G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1, cancellable_, onNotifyReply,
                           new Pending{this, std::move(onAction)});
}

void DesktopNotifications::onNotifyReply(GObject* source, GAsyncResult* result, gpointer data) {
    std::unique_ptr<Pending> pending(static_cast<Pending*>(data));
    GError* error = nullptr;
    GVariant* reply = g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, &error);
    if (reply == nullptr) {
        // After the object is gone the call ends cancelled, and there is nobody left to tell.
        if (!g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
            base::printLine(std::string("The desktop notification could not be shown: ") + error->message);
        }
        g_error_free(error);
        return;
    }
    guint32 id = 0;
    g_variant_get(reply, "(u)", &id);
    g_variant_unref(reply);
    pending->owner->handlers_[id] = std::move(pending->onAction);
}

void DesktopNotifications::onSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* signal,
                                    GVariant* parameters, gpointer data) {
    auto& self = *static_cast<DesktopNotifications*>(data);
    guint32 id = 0;
    const gchar* key = nullptr;
    const bool invoked = std::string_view(signal) == "ActionInvoked";
    if (invoked && g_variant_is_of_type(parameters, G_VARIANT_TYPE("(us)"))) {
        g_variant_get(parameters, "(u&s)", &id, &key);
    } else if (!invoked && g_variant_is_of_type(parameters, G_VARIANT_TYPE("(uu)"))) {
        g_variant_get(parameters, "(uu)", &id, nullptr);
    } else {
        return;
    }
    const auto found = self.handlers_.find(id);
    if (found == self.handlers_.end()) {
        return;
    }
    ActionHandler handler = std::move(found->second);
    self.handlers_.erase(found);
    if (invoked && handler) {
        handler(key);
    }
}

}  // namespace vornix::platform::linux
