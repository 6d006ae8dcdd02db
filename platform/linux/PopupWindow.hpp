#pragma once

#include <optional>
#include <string>

#include <gtk/gtk.h>

namespace vornix::platform::linux {

// A popover for a tray: an undecorated window that opens beside the tray icon, takes the
// keyboard focus, and closes by itself when the user clicks anywhere else or presses Escape.
// On X11 it opens under a screen area and holds a pointer and keyboard grab while shown, as
// menus do, so this also works without a window manager. On a Wayland compositor that offers
// layer-shell, where a client can neither place nor grab, it is a layer surface over everything,
// placed against an output's edge (`EdgePlacement`) with the keyboard to itself, and a clear
// layer surface over the whole output below it catches a click anywhere else. On a Wayland
// compositor without layer-shell (GNOME) it is a window of the session's X server, placed and
// grabbing as on X11, which also closes when it loses the focus.
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
    // Whether it is a layer surface, which opens with `showBeside` instead.
    bool layered() const { return catcher_ != nullptr; }
    // Opens beside the tray icon clicked at `click`, as the panel reported the point (none when
    // no click opened it).
    void showBeside(std::optional<GdkPoint> click);
    // The activation token the panel gave with the click, which lets the compositor give the
    // popover the keyboard focus when it opens.
    void setActivationToken(std::string token) { activationToken_ = std::move(token); }
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
    static gboolean onFocusOut(GtkWidget* widget, GdkEventFocus* event, gpointer self);
    static gboolean onCatcherRelease(GtkWidget* widget, GdkEventButton* event, gpointer self);
    static gboolean onCatcherDraw(GtkWidget* widget, cairo_t* cairo, gpointer self);

    void makeCatcher();
    // Sizes the window to the content: texts wrap rather than widen it.
    void fitContent(int& width, int& height);

    void grab();
    void ungrab();

    GtkWidget* window_;
    // The clear surface under a layered popover that closes it on a click elsewhere.
    GtkWidget* catcher_ = nullptr;
    std::string activationToken_;
    bool grabbed_ = false;
    bool transient_ = true;
};

}  // namespace vornix::platform::linux
