#pragma once

#include <functional>

#include <gtk/gtk.h>

namespace vornix::platform::linux {

// A popover for a tray: an undecorated window that opens under a screen area, takes the
// keyboard focus, and closes by itself when the user clicks anywhere else or presses Escape
// (it holds a pointer and keyboard grab while shown, as menus do, so this also works without a
// window manager).
class PopupWindow {
public:
    PopupWindow();
    ~PopupWindow();
    PopupWindow(const PopupWindow&) = delete;
    PopupWindow& operator=(const PopupWindow&) = delete;

    void setContent(GtkWidget* content);
    // Whether a click elsewhere closes it (on by default).
    void setTransient(bool transient) { transient_ = transient; }
    void setContentSize(int width, int height);

    // Opens below `anchor` (screen coordinates, top-left origin), or above it when `below` is
    // false, centred on it and kept inside the work area of its monitor; on the other side when
    // there is no room on the side preferred.
    void showRelativeTo(GdkRectangle anchor, bool below = true);
    void close();
    bool shown() const;
    // Gives the popover's window the keyboard focus.
    void focus();

    GtkWidget* window() const { return window_; }

    // Closes every transient popup that is shown: a modal window of the host (an alert) takes
    // the person's attention, as a click elsewhere would.
    static void closeTransientPopups();

private:
    static gboolean onButtonPress(GtkWidget* widget, GdkEventButton* event, gpointer self);
    static gboolean onKeyPress(GtkWidget* widget, GdkEventKey* event, gpointer self);
    static gboolean onGrabBroken(GtkWidget* widget, GdkEvent* event, gpointer self);
    static gboolean onMapped(GtkWidget* widget, GdkEvent* event, gpointer self);

    void grab();
    void ungrab();

    GtkWidget* window_;
    bool grabbed_ = false;
    bool transient_ = true;
};

}  // namespace vornix::platform::linux
