#include "platform/macos/AppKitWindow.hpp"

#include "platform/macos/AppKitScreen.hpp"
#include "platform/macos/Conversions.hpp"
#include "platform/macos/FlutterMacOSViewController.hpp"

@implementation NSWindow (VXWindowItself)

- (std::shared_ptr<vornix::platform::Window>)vx_portObject {
    return std::make_shared<vornix::platform::macos::AppKitWindow>(self);
}

- (void)vx_orderWindowItself:(NSWindowOrderingMode)place relativeTo:(NSInteger)otherWin {
    [self orderWindow:place relativeTo:otherWin];
}

- (BOOL)vx_canBecomeKeyWindowItself {
    return self.canBecomeKeyWindow;
}

- (void)vx_awakeFromNibItself {
    [self awakeFromNib];
}

@end

namespace vornix::platform::macos {

namespace {

// An input event of AppKit, handed back to AppKit untouched.
class AppKitEvent final : public Event {
public:
    explicit AppKitEvent(NSEvent* event) : event(event) {}
    NSEvent* event;
};

}  // namespace

Rect AppKitWindow::frame() const { return toRect(window_.frame); }

void AppKitWindow::setFrame(Rect frame, bool display) { [window_ setFrame:toNSRect(frame) display:display]; }

void AppKitWindow::setFrameAnimate(Rect frame, bool display, bool animate) {
    [window_ setFrame:toNSRect(frame) display:display animate:animate];
}

void AppKitWindow::setFrameTopLeftPoint(Point point) { [window_ setFrameTopLeftPoint:toNSPoint(point)]; }

std::shared_ptr<Screen> AppKitWindow::screen() const {
    NSScreen* screen = window_.screen;
    return screen != nil ? std::make_shared<AppKitScreen>(screen) : nullptr;
}

void AppKitWindow::setMinSize(Size size) { window_.minSize = toNSSize(size); }

void AppKitWindow::setMaxSize(Size size) { window_.maxSize = toNSSize(size); }

bool AppKitWindow::isVisible() const { return window_.visible; }

void AppKitWindow::setIsVisible(bool visible) { [window_ setIsVisible:visible]; }

bool AppKitWindow::canBecomeKey() const { return [window_ vx_canBecomeKeyWindowItself]; }

void AppKitWindow::makeKeyAndOrderFront() { [window_ makeKeyAndOrderFront:nil]; }

void AppKitWindow::orderWindow(WindowOrderingMode mode, long relativeTo) {
    [window_ vx_orderWindowItself:static_cast<NSWindowOrderingMode>(mode) relativeTo:relativeTo];
}

bool AppKitWindow::isZoomed() const { return window_.zoomed; }

void AppKitWindow::zoom() { [window_ zoom:nil]; }

void AppKitWindow::miniaturize() { [window_ miniaturize:nil]; }

void AppKitWindow::close() { [window_ close]; }

void AppKitWindow::setTitle(std::string title) { window_.title = toNSString(title); }

std::shared_ptr<Event> AppKitWindow::currentEvent() const {
    NSEvent* event = window_.currentEvent;
    return event != nil ? std::make_shared<AppKitEvent>(event) : nullptr;
}

// The core hands back an event this window gave it, or none, which AppKit cannot drag with.
void AppKitWindow::performWindowDrag(std::shared_ptr<Event> event) {
    if (const auto* appKitEvent = dynamic_cast<const AppKitEvent*>(event.get())) {
        [window_ performWindowDragWithEvent:appKitEvent->event];
    }
}

std::optional<Rect> AppKitWindow::contentViewFrame() const {
    NSView* contentView = window_.contentView;
    return contentView != nil ? std::optional<Rect>(toRect(contentView.frame)) : std::nullopt;
}

Rect AppKitWindow::contentLayoutRect() const { return toRect(window_.contentLayoutRect); }

StyleMask AppKitWindow::styleMask() const { return window_.styleMask; }

void AppKitWindow::setStyleMask(StyleMask mask) { window_.styleMask = static_cast<NSWindowStyleMask>(mask); }

void AppKitWindow::setTitlebarAppearsTransparent(bool transparent) { window_.titlebarAppearsTransparent = transparent; }

void AppKitWindow::setTitleVisibility(TitleVisibility visibility) {
    window_.titleVisibility = static_cast<NSWindowTitleVisibility>(visibility);
}

void AppKitWindow::setOpaque(bool opaque) { window_.opaque = opaque; }

void AppKitWindow::setMovable(bool movable) { window_.movable = movable; }

void AppKitWindow::setContentViewController(std::shared_ptr<engine::FlutterViewController> controller) {
    contentViewController_ = std::move(controller);
    window_.contentViewController =
        std::static_pointer_cast<FlutterMacOSViewController>(contentViewController_)->flutterViewController();
}

void AppKitWindow::awakeFromNib() { [window_ vx_awakeFromNibItself]; }

}  // namespace vornix::platform::macos
