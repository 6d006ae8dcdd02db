#pragma once

#include <functional>
#include <string>
#include <utility>

#include <gdk/gdk.h>
#include <gio/gio.h>
#include <gtk/gtk.h>

namespace vornix::platform::linux {

// The host's icon in the system tray. Desktops with a StatusNotifierWatcher on the session bus
// (KDE, GNOME with the AppIndicator extension, most panels today) get an
// org.kde.StatusNotifierItem; desktops without one get an XEmbed tray icon, which the older
// panels serve. Whichever is there, a click calls `onClick` with the screen area (top-left
// origin) under which the popover belongs. The item names its menu (a com.canonical.dbusmenu
// object at `menuPath`), which the panels draw on a right click; a host that asks the item for its
// context menu instead gets the popover, whose rows are the menu's.
class StatusNotifierItem {
public:
    using Click = std::function<void(GdkRectangle anchor)>;

    StatusNotifierItem(std::string id, std::string title, std::string menuPath, Click onClick);
    ~StatusNotifierItem();
    StatusNotifierItem(const StatusNotifierItem&) = delete;
    StatusNotifierItem& operator=(const StatusNotifierItem&) = delete;

    // True once a watcher has accepted the item, or the XEmbed icon is in a tray.
    bool ready() const;
    // Shows the icon in `file`, known to icon themes as `name` in `themePath`.
    void setIcon(const std::string& name, const std::string& themePath, const std::string& file);

    // The xdg-activation token the panel provided for the click being handled, if any; it is
    // good for one activation, so taking it clears it.
    std::string takeActivationToken() { return std::exchange(activationToken_, {}); }

    // The name the item owns on the session bus, for hosts that look it up.
    const std::string& busName() const { return busName_; }

private:
    static void onBusMethod(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                            GVariant* parameters, GDBusMethodInvocation* invocation, gpointer self);
    static GVariant* onBusProperty(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* property,
                                   GError** error, gpointer self);
    static void onNameAcquired(GDBusConnection*, const gchar*, gpointer self);
    static void onWatcherAppeared(GDBusConnection*, const gchar*, const gchar*, gpointer self);
    static void onWatcherVanished(GDBusConnection*, const gchar*, gpointer self);
    static void onRegistered(GObject* connection, GAsyncResult* result, gpointer self);
    static void onStatusIconActivated(GtkStatusIcon* icon, gpointer self);
    static void onStatusIconMenu(GtkStatusIcon* icon, guint button, guint time, gpointer self);

    void registerWithWatcher();
    void showStatusIcon(bool shown);
    GVariant* iconPixmaps() const;

    std::string id_;
    std::string title_;
    std::string menuPath_;
    std::string iconName_;
    std::string iconThemePath_;
    std::string iconFile_;
    Click onClick_;
    std::string busName_;
    std::string activationToken_;
    GDBusConnection* bus_ = nullptr;
    guint objectId_ = 0;
    guint nameId_ = 0;
    guint watcherId_ = 0;
    bool nameOwned_ = false;
    bool watcherPresent_ = false;
    bool registered_ = false;
    GCancellable* cancellable_ = nullptr;
    GtkStatusIcon* statusIcon_ = nullptr;
};

}  // namespace vornix::platform::linux
