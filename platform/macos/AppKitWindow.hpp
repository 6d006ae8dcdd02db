#pragma once

#import <AppKit/AppKit.h>

#include <memory>

#include "engine/FlutterViewController.hpp"
#include "platform/Window.hpp"

namespace vornix::platform {
class Window;
}

// What AppKit itself does for a window, reachable under names that a window class routing these
// operations through its port object overrides to call NSWindow's own implementation. For any
// other window they are the plain operations. `vx_portObject` is the window's port object: a new
// one for a plain window, its own for a window that has one.
@interface NSWindow (VXWindowItself)
- (std::shared_ptr<vornix::platform::Window>)vx_portObject;
- (void)vx_orderWindowItself:(NSWindowOrderingMode)place relativeTo:(NSInteger)otherWin;
- (BOOL)vx_canBecomeKeyWindowItself;
- (void)vx_awakeFromNibItself;
@end

namespace vornix::platform::macos {

// The window port on macOS: one NSWindow, each method one AppKit call. It does not keep its
// window alive: a window's owner (the application, its delegate) does.
class AppKitWindow : public Window {
public:
    explicit AppKitWindow(NSWindow* window) : window_(window) {}

    NSWindow* nsWindow() const { return window_; }

    Rect frame() const override;
    void setFrame(Rect frame, bool display) override;
    void setFrameAnimate(Rect frame, bool display, bool animate) override;
    void setFrameTopLeftPoint(Point point) override;
    std::shared_ptr<Screen> screen() const override;
    void setMinSize(Size size) override;
    void setMaxSize(Size size) override;

    bool isVisible() const override;
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

    StyleMask styleMask() const override;
    void setStyleMask(StyleMask mask) override;
    void setTitlebarAppearsTransparent(bool transparent) override;
    void setTitleVisibility(TitleVisibility visibility) override;
    void setOpaque(bool opaque) override;
    void setMovable(bool movable) override;

    // contentViewController: the engine's view becomes the window's whole content. The
    // controller must come from the macOS embedding.
    void setContentViewController(std::shared_ptr<engine::FlutterViewController> controller);
    // NSWindow's awakeFromNib.
    virtual void awakeFromNib();

private:
    __weak NSWindow* window_;
    // The core's side of the content view controller (its registrars) lives as long as the window shows it.
    std::shared_ptr<engine::FlutterViewController> contentViewController_;
};

}  // namespace vornix::platform::macos
