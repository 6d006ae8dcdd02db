#include "platform/linux/PopupWindow.hpp"

#include <algorithm>
#include <vector>

#include <gdk/gdkwayland.h>
#include <gtk-layer-shell.h>

#include "platform/linux/EdgePlacement.hpp"
#include "platform/linux/WaylandGlobals.hpp"

namespace vornix::platform::linux {

namespace {

// The popups that exist, for closeTransientPopups; all on the main thread.
std::vector<PopupWindow*>& popups() {
    static std::vector<PopupWindow*> all;
    return all;
}

GtkLayerShellEdge layerEdge(OutputEdge edge) {
    switch (edge) {
    case OutputEdge::top:
        return GTK_LAYER_SHELL_EDGE_TOP;
    case OutputEdge::bottom:
        return GTK_LAYER_SHELL_EDGE_BOTTOM;
    case OutputEdge::left:
        return GTK_LAYER_SHELL_EDGE_LEFT;
    case OutputEdge::right:
        return GTK_LAYER_SHELL_EDGE_RIGHT;
    }
    return GTK_LAYER_SHELL_EDGE_TOP;
}

// The X server of the Wayland session (Xwayland), opened once, or null when there is none.
GdkDisplay* xwaylandDisplay() {
    static GdkDisplay* const display = [] {
        const char* name = g_getenv("DISPLAY");
        GdkDisplay* opened = name && *name ? gdk_display_open(name) : nullptr;
        // Only an X server will do: a name that a Wayland compositor answers to is no use here.
        if (opened && GDK_IS_WAYLAND_DISPLAY(opened)) {
            gdk_display_close(opened);
            return static_cast<GdkDisplay*>(nullptr);
        }
        return opened;
    }();
    return display;
}

}  // namespace

void PopupWindow::closeTransientPopups() {
    for (PopupWindow* popup : popups()) {
        if (popup->transient_ && popup->shown()) {
            popup->close();
        }
    }
}

PopupWindow::PopupWindow() : window_(gtk_window_new(GTK_WINDOW_TOPLEVEL)) {
    popups().push_back(this);
    g_object_ref_sink(window_);
    GtkWindow* window = GTK_WINDOW(window_);
    gtk_window_set_title(window, "Vornix OS");
    gtk_window_set_decorated(window, FALSE);
    // Sized by the popover, not by the person: resizable only so that it keeps the size given.
    gtk_window_set_resizable(window, TRUE);
    gtk_window_set_skip_taskbar_hint(window, TRUE);
    gtk_window_set_skip_pager_hint(window, TRUE);
    gtk_window_set_keep_above(window, TRUE);
    GdkDisplay* display = gtk_widget_get_display(window_);
    // Asked first so that libgtk-layer-shell, which warns where the protocol is missing, is
    // only asked where it is there.
    const bool onWayland = GDK_IS_WAYLAND_DISPLAY(display);
    if (onWayland && compositorOffers(display, "zwlr_layer_shell_v1") && gtk_layer_is_supported()) {
        gtk_layer_init_for_window(window);
        gtk_layer_set_namespace(window, "vornix-popover");
        gtk_layer_set_layer(window, GTK_LAYER_SHELL_LAYER_OVERLAY);
        gtk_layer_set_keyboard_mode(window, GTK_LAYER_SHELL_KEYBOARD_MODE_EXCLUSIVE);
        makeCatcher();
    } else if (GdkDisplay* x11 = onWayland ? xwaylandDisplay() : nullptr) {
        // A Wayland compositor without layer-shell (GNOME) lets no client place a window, but
        // places an X client's window where it asks: the popover is a popup-menu window of
        // the session's X server, at the screen coordinates the panel passed, with the grab
        // of X11. A click on the compositor's own surfaces never reaches the X server, so it
        // also closes when it loses the focus.
        gtk_window_set_screen(window, gdk_display_get_default_screen(x11));
        gtk_window_set_type_hint(window, GDK_WINDOW_TYPE_HINT_POPUP_MENU);
        g_signal_connect(window_, "focus-out-event", G_CALLBACK(onFocusOut), this);
    } else if (onWayland) {
        // Without layer-shell or an X server, the compositor places the popover: an
        // undecorated toplevel (a popup-menu window is mapped only with a parent), which
        // closes when it loses the focus since a toplevel gets no grab.
        g_signal_connect(window_, "focus-out-event", G_CALLBACK(onFocusOut), this);
    } else {
        gtk_window_set_type_hint(window, GDK_WINDOW_TYPE_HINT_POPUP_MENU);
    }
    gtk_style_context_add_class(gtk_widget_get_style_context(window_), "popover-window");
    gtk_widget_add_events(window_, GDK_BUTTON_PRESS_MASK | GDK_KEY_PRESS_MASK);
    g_signal_connect(window_, "button-press-event", G_CALLBACK(onButtonPress), this);
    g_signal_connect(window_, "key-press-event", G_CALLBACK(onKeyPress), this);
    g_signal_connect(window_, "grab-broken-event", G_CALLBACK(onGrabBroken), this);
    g_signal_connect(window_, "map-event", G_CALLBACK(onMapped), this);
    // Closing the window only hides it: the popover is made once and reused.
    g_signal_connect(window_, "delete-event", G_CALLBACK(gtk_widget_hide_on_delete), nullptr);
}

PopupWindow::~PopupWindow() {
    std::erase(popups(), this);
    ungrab();
    if (catcher_) {
        gtk_widget_destroy(catcher_);
        g_object_unref(catcher_);
    }
    gtk_widget_destroy(window_);
    g_object_unref(window_);
}

void PopupWindow::setContent(GtkWidget* content) {
    if (GtkWidget* old = gtk_bin_get_child(GTK_BIN(window_))) {
        gtk_container_remove(GTK_CONTAINER(window_), old);
    }
    gtk_container_add(GTK_CONTAINER(window_), content);
}

void PopupWindow::setContentSize(int width, int height) { gtk_window_set_default_size(GTK_WINDOW(window_), width, height); }

void PopupWindow::fitContent(int& width, int& height) {
    gtk_widget_realize(window_);
    gtk_widget_show_all(gtk_bin_get_child(GTK_BIN(window_)));
    gtk_window_get_default_size(GTK_WINDOW(window_), &width, &height);
    int minimumWidth = 0;
    gtk_widget_get_preferred_width(window_, &minimumWidth, nullptr);
    width = std::max(width, minimumWidth);
    int naturalHeight = 0;
    gtk_widget_get_preferred_height_for_width(window_, width, nullptr, &naturalHeight);
    height = std::max(height, naturalHeight);
    gtk_window_resize(GTK_WINDOW(window_), width, height);
}

void PopupWindow::showRelativeTo(GdkRectangle anchor, bool below) {
    int width = 0;
    int height = 0;
    fitContent(width, height);

    GdkDisplay* display = gtk_widget_get_display(window_);
    GdkMonitor* monitor = gdk_display_get_monitor_at_point(display, anchor.x + anchor.width / 2, anchor.y);
    GdkRectangle area{};
    gdk_monitor_get_workarea(monitor, &area);
    int x = anchor.x + anchor.width / 2 - width / 2;
    const int under = anchor.y + anchor.height;
    const int over = anchor.y - height;
    const bool roomUnder = under + height <= area.y + area.height;
    const bool roomOver = over >= area.y;
    int y = (below ? roomUnder || !roomOver : !roomOver && roomUnder) ? under : over;
    x = std::clamp(x, area.x, std::max(area.x, area.x + area.width - width));
    y = std::clamp(y, area.y, std::max(area.y, area.y + area.height - height));
    gtk_window_move(GTK_WINDOW(window_), x, y);
    gtk_widget_show(window_);
}

void PopupWindow::showBeside(std::optional<GdkPoint> click) {
    int width = 0;
    int height = 0;
    fitContent(width, height);
    GdkDisplay* display = gtk_widget_get_display(window_);
    std::vector<ScreenArea> outputs;
    for (int index = 0; index < gdk_display_get_n_monitors(display); ++index) {
        GdkRectangle area{};
        gdk_monitor_get_geometry(gdk_display_get_monitor(display, index), &area);
        outputs.push_back({area.x, area.y, area.width, area.height});
    }
    const auto point = click ? std::optional<ScreenPoint>(ScreenPoint{click->x, click->y}) : std::nullopt;
    const EdgePlacement placement = placeBesideIcon(outputs, point, width, height);

    GtkWindow* window = GTK_WINDOW(window_);
    // At the click, the inset counts from the output's own edge, whatever zones other surfaces
    // reserve; in the corner, the compositor keeps it clear of the panel's zone.
    gtk_layer_set_exclusive_zone(window, placement.atClick ? -1 : 0);
    for (const auto edge : {OutputEdge::top, OutputEdge::bottom, OutputEdge::left, OutputEdge::right}) {
        const int margin = edge == placement.from ? placement.offset : edge == placement.edge ? placement.inset : 0;
        gtk_layer_set_anchor(window, layerEdge(edge), edge == placement.edge || edge == placement.from);
        gtk_layer_set_margin(window, layerEdge(edge), margin);
    }
    GdkMonitor* monitor = outputs.empty() ? nullptr : gdk_display_get_monitor(display, placement.output);
    gtk_layer_set_monitor(window, monitor);
    if (transient_) {
        gtk_layer_set_monitor(GTK_WINDOW(catcher_), monitor);
        gtk_widget_show(catcher_);
    }
    gtk_widget_show(window_);
}

void PopupWindow::makeCatcher() {
    catcher_ = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    g_object_ref_sink(catcher_);
    GtkWindow* catcher = GTK_WINDOW(catcher_);
    gtk_window_set_decorated(catcher, FALSE);
    if (GdkVisual* clear = gdk_screen_get_rgba_visual(gtk_widget_get_screen(catcher_))) {
        gtk_widget_set_visual(catcher_, clear);
    }
    gtk_widget_set_app_paintable(catcher_, TRUE);
    gtk_layer_init_for_window(catcher);
    gtk_layer_set_namespace(catcher, "vornix-popover-dismiss");
    // Below the popover, over the panels too: a click on the tray icon while the popover is
    // open closes it, as on the other desktops.
    gtk_layer_set_layer(catcher, GTK_LAYER_SHELL_LAYER_TOP);
    gtk_layer_set_exclusive_zone(catcher, -1);
    gtk_layer_set_keyboard_mode(catcher, GTK_LAYER_SHELL_KEYBOARD_MODE_NONE);
    for (const auto edge : {GTK_LAYER_SHELL_EDGE_TOP, GTK_LAYER_SHELL_EDGE_BOTTOM, GTK_LAYER_SHELL_EDGE_LEFT,
                            GTK_LAYER_SHELL_EDGE_RIGHT}) {
        gtk_layer_set_anchor(catcher, edge, TRUE);
    }
    // It closes on the release, not the press: hidden between the two, it would never see the
    // release, and GDK would keep the press's implicit grab on it and hand it the next press
    // anywhere, one on the popover's own rows included.
    gtk_widget_add_events(catcher_, GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK);
    g_signal_connect(catcher_, "button-release-event", G_CALLBACK(onCatcherRelease), this);
    g_signal_connect(catcher_, "draw", G_CALLBACK(onCatcherDraw), this);
}

gboolean PopupWindow::onCatcherRelease(GtkWidget*, GdkEventButton*, gpointer self) {
    static_cast<PopupWindow*>(self)->close();
    return TRUE;
}

gboolean PopupWindow::onCatcherDraw(GtkWidget*, cairo_t* cairo, gpointer) {
    cairo_set_source_rgba(cairo, 0, 0, 0, 0);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cairo);
    return TRUE;
}

void PopupWindow::close() {
    ungrab();
    gtk_widget_hide(window_);
    if (catcher_) {
        gtk_widget_hide(catcher_);
    }
}

bool PopupWindow::shown() const { return gtk_widget_get_visible(window_); }

void PopupWindow::focus() {
    GdkDisplay* display = gtk_widget_get_display(window_);
    if (!activationToken_.empty() && GDK_IS_WAYLAND_DISPLAY(display)) {
        // Presenting with the token asks the compositor for the focus through xdg-activation.
        gdk_wayland_display_set_startup_notification_id(display, activationToken_.c_str());
        activationToken_.clear();
    }
    gtk_window_present(GTK_WINDOW(window_));
    if (gtk_widget_get_mapped(window_)) {
        grab();
    }
}

gboolean PopupWindow::onMapped(GtkWidget*, GdkEvent*, gpointer self) {
    static_cast<PopupWindow*>(self)->grab();
    return FALSE;
}

void PopupWindow::grab() {
    // A layer surface has the keyboard to itself and the catcher under it: no grab needed.
    if (grabbed_ || !transient_ || layered()) {
        return;
    }
    GdkWindow* surface = gtk_widget_get_window(window_);
    GdkSeat* seat = gdk_display_get_default_seat(gtk_widget_get_display(window_));
    grabbed_ = gdk_seat_grab(seat, surface, GDK_SEAT_CAPABILITY_ALL, TRUE, nullptr, nullptr, nullptr, nullptr) ==
               GDK_GRAB_SUCCESS;
    if (grabbed_) {
        gtk_grab_add(window_);
    }
}

void PopupWindow::ungrab() {
    if (!grabbed_) {
        return;
    }
    grabbed_ = false;
    gtk_grab_remove(window_);
    gdk_seat_ungrab(gdk_display_get_default_seat(gtk_widget_get_display(window_)));
}

gboolean PopupWindow::onButtonPress(GtkWidget* widget, GdkEventButton* event, gpointer self) {
    // With the grab held, presses anywhere on the screen arrive here; those outside close.
    const int width = gtk_widget_get_allocated_width(widget);
    const int height = gtk_widget_get_allocated_height(widget);
    int x = 0;
    int y = 0;
    gdk_window_get_origin(gtk_widget_get_window(widget), &x, &y);
    const double localX = event->x_root - x;
    const double localY = event->y_root - y;
    if (localX < 0 || localY < 0 || localX >= width || localY >= height) {
        static_cast<PopupWindow*>(self)->close();
        return TRUE;
    }
    return FALSE;
}

gboolean PopupWindow::onKeyPress(GtkWidget*, GdkEventKey* event, gpointer self) {
    if (event->keyval == GDK_KEY_Escape) {
        static_cast<PopupWindow*>(self)->close();
        return TRUE;
    }
    return FALSE;
}

gboolean PopupWindow::onFocusOut(GtkWidget*, GdkEventFocus*, gpointer self) {
    auto& popup = *static_cast<PopupWindow*>(self);
    if (popup.transient_ && popup.shown()) {
        popup.close();
    }
    return FALSE;
}

gboolean PopupWindow::onGrabBroken(GtkWidget*, GdkEvent*, gpointer self) {
    static_cast<PopupWindow*>(self)->close();
    return FALSE;
}

}  // namespace vornix::platform::linux
