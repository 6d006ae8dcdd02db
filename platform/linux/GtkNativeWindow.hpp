#pragma once

#include <memory>
#include <optional>

#include <gtk/gtk.h>

#include "engine/FlutterViewController.hpp"
#include "platform/ApplicationWindows.hpp"
#include "platform/Window.hpp"

namespace vornix::platform::linux {

// A GtkWindow as the core's window, in AppKit's terms (frames from the primary monitor's bottom
// left). The frame is the window's own area; the system's title bar, when it has one, is drawn
// outside it by the window manager, so the content fills the frame and the title bar height
// within it is 0. A custom frame (full-size content) is a window without the system title bar.
//
// Showing and hiding are applied from the main loop once the current work is done, so that a
// window that is ordered front and hidden again in the same turn (a frameless window waiting
// for the engine's permission) is never mapped at all.
class GtkNativeWindow : public Window {
public:
    GtkNativeWindow(Rect frame, StyleMask styleMask);
    ~GtkNativeWindow() override;
    GtkNativeWindow(const GtkNativeWindow&) = delete;
    GtkNativeWindow& operator=(const GtkNativeWindow&) = delete;

    Rect frame() const override;
    void setFrame(Rect frame, bool display) override;
    void setFrameAnimate(Rect frame, bool display, bool animate) override;
    void setFrameTopLeftPoint(Point point) override;
    std::shared_ptr<Screen> screen() const override;
    void setMinSize(Size size) override;
    void setMaxSize(Size size) override;

    bool isVisible() const override { return visible_; }
    void setIsVisible(bool visible) override;
    bool canBecomeKey() const override;
    void makeKeyAndOrderFront() override;
    void orderWindow(WindowOrderingMode mode, long relativeTo) override;

    bool isZoomed() const override;
    void zoom() override;
    void miniaturize() override;
    void close() override;
    void setTitle(std::string title) override;

    std::shared_ptr<Event> currentEvent() const override;
    void performWindowDrag(std::shared_ptr<Event> event) override;

    std::optional<Rect> contentViewFrame() const override;
    Rect contentLayoutRect() const override;

    StyleMask styleMask() const override { return styleMask_; }
    void setStyleMask(StyleMask mask) override;
    void setTitlebarAppearsTransparent(bool transparent) override { titlebarTransparent_ = transparent; }
    void setTitleVisibility(TitleVisibility visibility) override { titleVisibility_ = visibility; }
    void setOpaque(bool opaque) override;
    void setMovable(bool movable) override { movable_ = movable; }

    // The engine's view becomes the window's whole content; the window keeps its size. The
    // engines this backend hosts draw in processes of their own, so the view is an empty area.
    void setContentViewController(std::shared_ptr<engine::FlutterViewController> controller);
    // Called once when the window has been made as the interface file would; nothing to do here.
    virtual void awakeFromNib() {}

    GtkWindow* gtkWindow() const { return GTK_WINDOW(window_); }
    // Whether the window is on the screen now (mapped), as opposed to wanted there.
    bool mapped() const;

private:
    static gboolean onConfigure(GtkWidget* widget, GdkEventConfigure* event, gpointer self);
    static gboolean applyVisibility(gpointer self);

    void scheduleVisibility();
    void moveAndResize();
    void applyGeometryHints();

    GtkWidget* window_;
    std::shared_ptr<engine::FlutterViewController> contentViewController_;
    Rect frame_;
    StyleMask styleMask_;
    bool visible_ = false;
    bool makeKey_ = false;
    std::optional<WindowOrderingMode> ordering_;
    guint visibilitySource_ = 0;
    std::optional<Size> minSize_;
    std::optional<Size> maxSize_;
    bool titlebarTransparent_ = false;
    TitleVisibility titleVisibility_ = TitleVisibility::visible;
    bool movable_ = true;
};

// The application's windows: those the backend made, in the order they were made.
class GtkApplicationWindows : public ApplicationWindows {
public:
    void add(const std::shared_ptr<Window>& window) { windows_.push_back(window); }
    std::vector<std::shared_ptr<Window>> windows() const override;

private:
    std::vector<std::weak_ptr<Window>> windows_;
};

}  // namespace vornix::platform::linux
