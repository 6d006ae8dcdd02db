#include "platform/linux/PopupWindow.hpp"

#include <algorithm>
#include <vector>

namespace vornix::platform::linux {

namespace {

// The popups that exist, for closeTransientPopups; all on the main thread.
std::vector<PopupWindow*>& popups() {
    static std::vector<PopupWindow*> all;
    return all;
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
    gtk_window_set_type_hint(window, GDK_WINDOW_TYPE_HINT_POPUP_MENU);
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

void PopupWindow::showRelativeTo(GdkRectangle anchor, bool below) {
    gtk_widget_realize(window_);
    gtk_widget_show_all(gtk_bin_get_child(GTK_BIN(window_)));
    int width = 0;
    int height = 0;
    gtk_window_get_default_size(GTK_WINDOW(window_), &width, &height);
    // The content's height at the popover's width: texts wrap rather than widen it.
    int minimumWidth = 0;
    gtk_widget_get_preferred_width(window_, &minimumWidth, nullptr);
    width = std::max(width, minimumWidth);
    int naturalHeight = 0;
    gtk_widget_get_preferred_height_for_width(window_, width, nullptr, &naturalHeight);
    height = std::max(height, naturalHeight);
    gtk_window_resize(GTK_WINDOW(window_), width, height);

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

void PopupWindow::close() {
    ungrab();
    gtk_widget_hide(window_);
}

bool PopupWindow::shown() const { return gtk_widget_get_visible(window_); }

void PopupWindow::focus() {
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
    if (grabbed_ || !transient_) {
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

gboolean PopupWindow::onGrabBroken(GtkWidget*, GdkEvent*, gpointer self) {
    static_cast<PopupWindow*>(self)->close();
    return FALSE;
}

}  // namespace vornix::platform::linux
