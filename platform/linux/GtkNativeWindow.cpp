#include "platform/linux/GtkNativeWindow.hpp"

#include <cmath>

#include "platform/linux/AppKitCoordinates.hpp"
#include "platform/linux/GdkMonitorScreen.hpp"

namespace vornix::platform::linux {

namespace {

int pixels(double points) { return static_cast<int>(std::lround(points)); }

Rect primary() { return GdkMonitorScreen::primaryGeometry(gdk_display_get_default()); }

// An input event of GDK's, kept for a window drag.
class GdkInputEvent : public Event {
public:
    explicit GdkInputEvent(GdkEvent* event) : event_(event) {}
    ~GdkInputEvent() override { gdk_event_free(event_); }
    GdkInputEvent(const GdkInputEvent&) = delete;
    GdkInputEvent& operator=(const GdkInputEvent&) = delete;

    const GdkEvent* event() const { return event_; }

private:
    GdkEvent* event_;
};

}  // namespace

GtkNativeWindow::GtkNativeWindow(Rect frame, StyleMask styleMask)
    : window_(gtk_window_new(GTK_WINDOW_TOPLEVEL)), frame_(frame), styleMask_(styleMask) {
    g_object_ref_sink(window_);
    gtk_window_set_resizable(GTK_WINDOW(window_), TRUE);
    // Closing by the window manager hides the window, as closing an NSWindow that is kept does.
    g_signal_connect(window_, "delete-event", G_CALLBACK(gtk_widget_hide_on_delete), nullptr);
    g_signal_connect(window_, "configure-event", G_CALLBACK(onConfigure), this);
    setStyleMask(styleMask);
    moveAndResize();
}

GtkNativeWindow::~GtkNativeWindow() {
    if (visibilitySource_) {
        g_source_remove(visibilitySource_);
    }
    gtk_widget_destroy(window_);
    g_object_unref(window_);
}

Rect GtkNativeWindow::frame() const { return frame_; }

void GtkNativeWindow::setFrame(Rect frame, bool) {
    frame_ = frame;
    moveAndResize();
}

void GtkNativeWindow::setFrameAnimate(Rect frame, bool display, bool) { setFrame(frame, display); }

void GtkNativeWindow::setFrameTopLeftPoint(Point point) {
    frame_.x = point.x;
    frame_.y = point.y - frame_.height;
    const Point topLeft = gdkTopLeftFromAppKit(point, primary());
    gtk_window_move(GTK_WINDOW(window_), pixels(topLeft.x), pixels(topLeft.y));
}

std::shared_ptr<Screen> GtkNativeWindow::screen() const {
    GdkDisplay* display = gtk_widget_get_display(window_);
    const Rect gdk = gdkRectFromAppKit(frame_, primary());
    GdkMonitor* monitor = gdk_display_get_monitor_at_point(display, pixels(gdk.x + gdk.width / 2),
                                                           pixels(gdk.y + gdk.height / 2));
    if (!monitor) {
        return nullptr;
    }
    return std::make_shared<GdkMonitorScreen>(monitor);
}

void GtkNativeWindow::setMinSize(Size size) {
    minSize_ = size;
    applyGeometryHints();
}

void GtkNativeWindow::setMaxSize(Size size) {
    maxSize_ = size;
    applyGeometryHints();
}

void GtkNativeWindow::applyGeometryHints() {
    GdkGeometry hints{};
    int mask = 0;
    // A GTK window that is not resizable takes its content's size and ignores the frame it is
    // given; so the window stays resizable for the program, and the person is held to its size.
    if ((styleMask_ & windowStyle::resizable) == 0) {
        hints.min_width = hints.max_width = pixels(frame_.width);
        hints.min_height = hints.max_height = pixels(frame_.height);
        gtk_window_set_geometry_hints(GTK_WINDOW(window_), nullptr, &hints,
                                      static_cast<GdkWindowHints>(GDK_HINT_MIN_SIZE | GDK_HINT_MAX_SIZE));
        return;
    }
    if (minSize_) {
        hints.min_width = pixels(minSize_->width);
        hints.min_height = pixels(minSize_->height);
        mask |= GDK_HINT_MIN_SIZE;
    }
    if (maxSize_) {
        hints.max_width = pixels(maxSize_->width);
        hints.max_height = pixels(maxSize_->height);
        mask |= GDK_HINT_MAX_SIZE;
    }
    gtk_window_set_geometry_hints(GTK_WINDOW(window_), nullptr, &hints, static_cast<GdkWindowHints>(mask));
}

void GtkNativeWindow::setIsVisible(bool visible) {
    visible_ = visible;
    scheduleVisibility();
}

bool GtkNativeWindow::canBecomeKey() const {
    return (styleMask_ & (windowStyle::titled | windowStyle::resizable)) != 0;
}

void GtkNativeWindow::makeKeyAndOrderFront() {
    orderWindow(WindowOrderingMode::above, 0);
    makeKey_ = canBecomeKey();
}

void GtkNativeWindow::orderWindow(WindowOrderingMode mode, long) {
    ordering_ = mode;
    setIsVisible(mode != WindowOrderingMode::out);
}

void GtkNativeWindow::scheduleVisibility() {
    if (!visibilitySource_) {
        visibilitySource_ = g_idle_add_full(G_PRIORITY_DEFAULT, applyVisibility, this, nullptr);
    }
}

gboolean GtkNativeWindow::applyVisibility(gpointer self) {
    auto& window = *static_cast<GtkNativeWindow*>(self);
    window.visibilitySource_ = 0;
    if (!window.visible_) {
        gtk_widget_hide(window.window_);
    } else {
        gtk_widget_show_all(window.window_);
        if (window.makeKey_) {
            gtk_window_present(GTK_WINDOW(window.window_));
        } else if (GdkWindow* surface = gtk_widget_get_window(window.window_)) {
            if (window.ordering_ == WindowOrderingMode::below) {
                gdk_window_lower(surface);
            } else {
                gdk_window_raise(surface);
            }
        }
    }
    window.makeKey_ = false;
    return G_SOURCE_REMOVE;
}

bool GtkNativeWindow::mapped() const { return gtk_widget_get_mapped(window_); }

bool GtkNativeWindow::isZoomed() const { return gtk_window_is_maximized(GTK_WINDOW(window_)); }

void GtkNativeWindow::zoom() {
    if (isZoomed()) {
        gtk_window_unmaximize(GTK_WINDOW(window_));
    } else {
        gtk_window_maximize(GTK_WINDOW(window_));
    }
}

void GtkNativeWindow::miniaturize() { gtk_window_iconify(GTK_WINDOW(window_)); }

void GtkNativeWindow::close() {
    visible_ = false;
    gtk_widget_hide(window_);
}

void GtkNativeWindow::setTitle(std::string title) { gtk_window_set_title(GTK_WINDOW(window_), title.c_str()); }

std::shared_ptr<Event> GtkNativeWindow::currentEvent() const {
    GdkEvent* event = gtk_get_current_event();
    if (!event) {
        return nullptr;
    }
    return std::make_shared<GdkInputEvent>(event);
}

void GtkNativeWindow::performWindowDrag(std::shared_ptr<Event> event) {
    const auto* input = dynamic_cast<const GdkInputEvent*>(event.get());
    if (!input || input->event()->type != GDK_BUTTON_PRESS) {
        return;
    }
    const GdkEventButton& press = input->event()->button;
    gtk_window_begin_move_drag(GTK_WINDOW(window_), static_cast<gint>(press.button), pixels(press.x_root),
                               pixels(press.y_root), press.time);
}

void GtkNativeWindow::setContentViewController(std::shared_ptr<engine::FlutterViewController> controller) {
    contentViewController_ = std::move(controller);
    if (GtkWidget* old = gtk_bin_get_child(GTK_BIN(window_))) {
        gtk_container_remove(GTK_CONTAINER(window_), old);
    }
    GtkWidget* view = gtk_drawing_area_new();
    gtk_widget_set_name(view, "engine-view");
    gtk_container_add(GTK_CONTAINER(window_), view);
}

std::optional<Rect> GtkNativeWindow::contentViewFrame() const {
    if (!gtk_bin_get_child(GTK_BIN(window_))) {
        return std::nullopt;
    }
    return Rect{0, 0, frame_.width, frame_.height};
}

Rect GtkNativeWindow::contentLayoutRect() const { return {0, 0, frame_.width, frame_.height}; }

void GtkNativeWindow::setStyleMask(StyleMask mask) {
    styleMask_ = mask;
    const bool fullSizeContent = (mask & windowStyle::fullSizeContentView) != 0;
    gtk_window_set_decorated(GTK_WINDOW(window_), (mask & windowStyle::titled) != 0 && !fullSizeContent);
    applyGeometryHints();
}

void GtkNativeWindow::setOpaque(bool opaque) {
    // A see-through window needs a visual with alpha, chosen before the window is realized.
    GdkScreen* screen = gtk_widget_get_screen(window_);
    GdkVisual* visual = opaque ? nullptr : gdk_screen_get_rgba_visual(screen);
    if (!gtk_widget_get_realized(window_)) {
        gtk_widget_set_visual(window_, visual);
    }
    gtk_widget_set_app_paintable(window_, !opaque && visual != nullptr);
}

void GtkNativeWindow::moveAndResize() {
    applyGeometryHints();
    const Rect gdk = gdkRectFromAppKit(frame_, primary());
    gtk_window_move(GTK_WINDOW(window_), pixels(gdk.x), pixels(gdk.y));
    gtk_window_resize(GTK_WINDOW(window_), std::max(1, pixels(gdk.width)), std::max(1, pixels(gdk.height)));
}

gboolean GtkNativeWindow::onConfigure(GtkWidget*, GdkEventConfigure* event, gpointer self) {
    // Where the window manager or the person put the window.
    auto& window = *static_cast<GtkNativeWindow*>(self);
    window.frame_ = appKitRectFromGdk(
        {double(event->x), double(event->y), double(event->width), double(event->height)}, primary());
    return FALSE;
}

std::vector<std::shared_ptr<Window>> GtkApplicationWindows::windows() const {
    std::vector<std::shared_ptr<Window>> alive;
    for (const auto& window : windows_) {
        if (auto strong = window.lock()) {
            alive.push_back(std::move(strong));
        }
    }
    return alive;
}

}  // namespace vornix::platform::linux
