#include "platform/linux/StatusNotifierItem.hpp"

#include <unistd.h>

#include <gdk/gdkx.h>

namespace vornix::platform::linux {

namespace {

constexpr const char* itemPath = "/StatusNotifierItem";
constexpr const char* itemInterface = "org.kde.StatusNotifierItem";
constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";

constexpr const char* itemIntrospection = R"xml(
<node>
  <interface name="org.kde.StatusNotifierItem">
    <property name="Category" type="s" access="read"/>
    <property name="Id" type="s" access="read"/>
    <property name="Title" type="s" access="read"/>
    <property name="Status" type="s" access="read"/>
    <property name="WindowId" type="i" access="read"/>
    <property name="IconThemePath" type="s" access="read"/>
    <property name="IconName" type="s" access="read"/>
    <property name="IconPixmap" type="a(iiay)" access="read"/>
    <property name="ItemIsMenu" type="b" access="read"/>
    <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
    <property name="Menu" type="o" access="read"/>
    <property name="OverlayIconName" type="s" access="read"/>
    <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
    <property name="AttentionIconName" type="s" access="read"/>
    <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
    <property name="AttentionMovieName" type="s" access="read"/>
    <method name="Activate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
    <method name="SecondaryActivate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
    <method name="ContextMenu"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
    <method name="ProvideXdgActivationToken"><arg name="token" type="s" direction="in"/></method>
    <method name="Scroll"><arg name="delta" type="i" direction="in"/><arg name="orientation" type="s" direction="in"/></method>
    <signal name="NewTitle"/>
    <signal name="NewIcon"/>
    <signal name="NewStatus"><arg name="status" type="s"/></signal>
    <signal name="NewToolTip"/>
    <signal name="NewAttentionIcon"/>
    <signal name="NewOverlayIcon"/>
  </interface>
</node>)xml";

GVariant* noPixmaps() { return g_variant_new_array(G_VARIANT_TYPE("(iiay)"), nullptr, 0); }

GDBusInterfaceInfo* itemInterfaceInfo() {
    static GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(itemIntrospection, nullptr);
    return node->interfaces[0];
}

}  // namespace

StatusNotifierItem::StatusNotifierItem(std::string id, std::string title, std::string menuPath, Click onClick)
    : id_(std::move(id)),
      title_(std::move(title)),
      menuPath_(std::move(menuPath)),
      onClick_(std::move(onClick)),
      busName_("org.kde.StatusNotifierItem-" + std::to_string(getpid()) + "-1"),
      cancellable_(g_cancellable_new()) {
    bus_ = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (!bus_) {
        showStatusIcon(true);
        return;
    }
    static const GDBusInterfaceVTable table{onBusMethod, onBusProperty, nullptr, {}};
    objectId_ = g_dbus_connection_register_object(bus_, itemPath, itemInterfaceInfo(), &table, this, nullptr, nullptr);
    nameId_ = g_bus_own_name_on_connection(bus_, busName_.c_str(), G_BUS_NAME_OWNER_FLAGS_NONE, onNameAcquired,
                                           nullptr, this, nullptr);
    watcherId_ = g_bus_watch_name_on_connection(bus_, watcherName, G_BUS_NAME_WATCHER_FLAGS_NONE, onWatcherAppeared,
                                                onWatcherVanished, this, nullptr);
}

StatusNotifierItem::~StatusNotifierItem() {
    g_cancellable_cancel(cancellable_);
    g_object_unref(cancellable_);
    if (watcherId_) {
        g_bus_unwatch_name(watcherId_);
    }
    if (nameId_) {
        g_bus_unown_name(nameId_);
    }
    if (objectId_) {
        g_dbus_connection_unregister_object(bus_, objectId_);
    }
    g_clear_object(&bus_);
    g_clear_object(&statusIcon_);
}

void StatusNotifierItem::setIcon(const std::string& name, const std::string& themePath, const std::string& file) {
    iconName_ = name;
    iconThemePath_ = themePath;
    iconFile_ = file;
    if (bus_) {
        g_dbus_connection_emit_signal(bus_, nullptr, itemPath, itemInterface, "NewIcon", nullptr, nullptr);
    }
    if (statusIcon_) {
        G_GNUC_BEGIN_IGNORE_DEPRECATIONS
        gtk_status_icon_set_from_file(statusIcon_, iconFile_.c_str());
        G_GNUC_END_IGNORE_DEPRECATIONS
    }
}

bool StatusNotifierItem::ready() const {
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    return registered_ || (statusIcon_ && gtk_status_icon_is_embedded(statusIcon_));
    G_GNUC_END_IGNORE_DEPRECATIONS
}

void StatusNotifierItem::onBusMethod(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                                     GVariant* parameters, GDBusMethodInvocation* invocation, gpointer self) {
    auto& item = *static_cast<StatusNotifierItem*>(self);
    const std::string name = method;
    g_dbus_method_invocation_return_value(invocation, nullptr);
    // Panels on Wayland send the token just before Activate, for the popover's focus.
    if (name == "ProvideXdgActivationToken") {
        const gchar* token = nullptr;
        g_variant_get(parameters, "(&s)", &token);
        item.activationToken_ = token;
        return;
    }
    // Every click opens the popover, whichever button it was: a panel that asks for the context
    // menu instead of drawing the item's Menu gets the popover, which holds the same rows.
    if (name == "Activate" || name == "SecondaryActivate" || name == "ContextMenu") {
        gint x = 0;
        gint y = 0;
        g_variant_get(parameters, "(ii)", &x, &y);
        item.onClick_(GdkRectangle{x, y, 1, 1});
    }
}

GVariant* StatusNotifierItem::onBusProperty(GDBusConnection*, const gchar*, const gchar*, const gchar*,
                                            const gchar* property, GError**, gpointer self) {
    const auto& item = *static_cast<StatusNotifierItem*>(self);
    const std::string name = property;
    if (name == "Category") {
        return g_variant_new_string("ApplicationStatus");
    }
    if (name == "Id") {
        return g_variant_new_string(item.id_.c_str());
    }
    if (name == "Title") {
        return g_variant_new_string(item.title_.c_str());
    }
    if (name == "Status") {
        return g_variant_new_string("Active");
    }
    if (name == "WindowId") {
        return g_variant_new_int32(0);
    }
    if (name == "IconThemePath") {
        return g_variant_new_string(item.iconThemePath_.c_str());
    }
    if (name == "IconName") {
        return g_variant_new_string(item.iconName_.c_str());
    }
    if (name == "IconPixmap") {
        return item.iconPixmaps();
    }
    if (name == "ItemIsMenu") {
        return g_variant_new_boolean(FALSE);
    }
    if (name == "ToolTip") {
        return g_variant_new("(s@a(iiay)ss)", item.iconName_.c_str(), noPixmaps(), item.title_.c_str(), "");
    }
    if (name == "Menu") {
        return g_variant_new_object_path(item.menuPath_.c_str());
    }
    // The item never asks for attention nor carries an overlay: the hosts that read these get them
    // empty rather than an error.
    if (name == "OverlayIconName" || name == "AttentionIconName" || name == "AttentionMovieName") {
        return g_variant_new_string("");
    }
    if (name == "OverlayIconPixmap" || name == "AttentionIconPixmap") {
        return noPixmaps();
    }
    return nullptr;
}

// The icon drawn at the sizes panels ask for, as ARGB32 in network byte order, for the hosts
// that do not read icon themes.
GVariant* StatusNotifierItem::iconPixmaps() const {
    GVariantBuilder pixmaps;
    g_variant_builder_init(&pixmaps, G_VARIANT_TYPE("a(iiay)"));
    for (const int size : {16, 22, 32, 48}) {
        GdkPixbuf* image = gdk_pixbuf_new_from_file_at_size(iconFile_.c_str(), size, size, nullptr);
        if (!image) {
            continue;
        }
        GdkPixbuf* rgba = gdk_pixbuf_get_has_alpha(image) ? GDK_PIXBUF(g_object_ref(image))
                                                           : gdk_pixbuf_add_alpha(image, FALSE, 0, 0, 0);
        const int width = gdk_pixbuf_get_width(rgba);
        const int height = gdk_pixbuf_get_height(rgba);
        const int stride = gdk_pixbuf_get_rowstride(rgba);
        const guchar* pixels = gdk_pixbuf_read_pixels(rgba);
        GByteArray* argb = g_byte_array_sized_new(static_cast<guint>(width * height * 4));
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                const guchar* pixel = pixels + row * stride + column * 4;
                const guint8 bytes[4] = {pixel[3], pixel[0], pixel[1], pixel[2]};
                g_byte_array_append(argb, bytes, 4);
            }
        }
        GBytes* data = g_byte_array_free_to_bytes(argb);
        g_variant_builder_add(&pixmaps, "(ii@ay)", width, height,
                              g_variant_new_from_bytes(G_VARIANT_TYPE_BYTESTRING, data, TRUE));
        g_bytes_unref(data);
        g_object_unref(rgba);
        g_object_unref(image);
    }
    return g_variant_builder_end(&pixmaps);
}

void StatusNotifierItem::onNameAcquired(GDBusConnection*, const gchar*, gpointer self) {
    auto& item = *static_cast<StatusNotifierItem*>(self);
    item.nameOwned_ = true;
    item.registerWithWatcher();
}

void StatusNotifierItem::onWatcherAppeared(GDBusConnection*, const gchar*, const gchar*, gpointer self) {
    auto& item = *static_cast<StatusNotifierItem*>(self);
    item.watcherPresent_ = true;
    item.registerWithWatcher();
}

void StatusNotifierItem::onWatcherVanished(GDBusConnection*, const gchar*, gpointer self) {
    auto& item = *static_cast<StatusNotifierItem*>(self);
    item.watcherPresent_ = false;
    item.registered_ = false;
    item.showStatusIcon(true);
}

void StatusNotifierItem::registerWithWatcher() {
    if (!nameOwned_ || !watcherPresent_) {
        return;
    }
    g_dbus_connection_call(bus_, watcherName, watcherPath, watcherName, "RegisterStatusNotifierItem",
                           g_variant_new("(s)", busName_.c_str()), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, cancellable_,
                           onRegistered, this);
}

void StatusNotifierItem::onRegistered(GObject* connection, GAsyncResult* result, gpointer self) {
    GError* error = nullptr;
    GVariant* answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &error);
    if (!answer) {
        // Cancelled at shutdown, or a watcher that went away: the vanished handler takes over.
        g_error_free(error);
        return;
    }
    g_variant_unref(answer);
    auto& item = *static_cast<StatusNotifierItem*>(self);
    item.registered_ = true;
    item.showStatusIcon(false);
}

void StatusNotifierItem::showStatusIcon(bool shown) {
    // XEmbed trays are X11 windows: on any other display there is none to embed the icon in.
    if (!GDK_IS_X11_DISPLAY(gdk_display_get_default())) {
        return;
    }
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    if (!shown) {
        if (statusIcon_) {
            gtk_status_icon_set_visible(statusIcon_, FALSE);
        }
        return;
    }
    if (!statusIcon_) {
        statusIcon_ = gtk_status_icon_new();
        gtk_status_icon_set_from_file(statusIcon_, iconFile_.c_str());
        gtk_status_icon_set_title(statusIcon_, title_.c_str());
        gtk_status_icon_set_tooltip_text(statusIcon_, title_.c_str());
        g_signal_connect(statusIcon_, "activate", G_CALLBACK(onStatusIconActivated), this);
        g_signal_connect(statusIcon_, "popup-menu", G_CALLBACK(onStatusIconMenu), this);
    }
    gtk_status_icon_set_visible(statusIcon_, TRUE);
    G_GNUC_END_IGNORE_DEPRECATIONS
}

void StatusNotifierItem::onStatusIconActivated(GtkStatusIcon* icon, gpointer self) {
    GdkRectangle area{};
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    gtk_status_icon_get_geometry(icon, nullptr, &area, nullptr);
    G_GNUC_END_IGNORE_DEPRECATIONS
    static_cast<StatusNotifierItem*>(self)->onClick_(area);
}

void StatusNotifierItem::onStatusIconMenu(GtkStatusIcon* icon, guint, guint, gpointer self) {
    onStatusIconActivated(icon, self);
}

}  // namespace vornix::platform::linux
