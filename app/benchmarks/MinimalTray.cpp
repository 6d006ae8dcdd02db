// The yardstick for vornix-host's start-up, memory and idle wake-ups: the least a GTK 3
// program does to put an item in the tray. A GtkApplication that, once started, owns a
// StatusNotifierItem name on the session bus and registers it with the tray's watcher.
#include <string>

#include <gtk/gtk.h>
#include <unistd.h>

namespace {

void registered(GObject* bus, GAsyncResult* result, gpointer) {
    if (GVariant* answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr)) {
        g_variant_unref(answer);
    }
}

void nameAcquired(GDBusConnection* bus, const gchar* name, gpointer) {
    g_dbus_connection_call(bus, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                           "org.kde.StatusNotifierWatcher", "RegisterStatusNotifierItem", g_variant_new("(s)", name),
                           nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, registered, nullptr);
}

void activate(GApplication* application, gpointer) {
    g_application_hold(application);
    const std::string name = "org.kde.StatusNotifierItem-" + std::to_string(getpid()) + "-1";
    g_bus_own_name_on_connection(g_application_get_dbus_connection(application), name.c_str(),
                                 G_BUS_NAME_OWNER_FLAGS_NONE, nameAcquired, nullptr, nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    GtkApplication* application = gtk_application_new("com.vornix.bench.MinimalTray", G_APPLICATION_DEFAULT_FLAGS);
    g_signal_connect(application, "activate", G_CALLBACK(activate), nullptr);
    const int status = g_application_run(G_APPLICATION(application), argc, argv);
    g_object_unref(application);
    return status;
}
