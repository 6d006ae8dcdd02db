#include "platform/macos/AppKitPopovers.hpp"

#include "platform/macos/AppKitApplication.hpp"
#include "platform/macos/AppKitStatusBar.hpp"
#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

void AppKitPopoverWindow::makeKey() { [window_ makeKeyWindow]; }

AppKitPopover::AppKitPopover() : popover_([[NSPopover alloc] init]) {
    NSViewController* content = [[NSViewController alloc] initWithNibName:nil bundle:nil];
    content.view = view_.view();
    popover_.contentViewController = content;
}

void AppKitPopover::setContentSize(Size size) { popover_.contentSize = toNSSize(size); }

void AppKitPopover::setBehavior(PopoverBehavior behavior) {
    popover_.behavior = static_cast<NSPopoverBehavior>(behavior);
}

bool AppKitPopover::isShown() const { return popover_.shown; }

// The status bar's buttons are the only views the core shows a popover next to. The application is
// made active first, so that the popover's window, once key, has the keyboard.
void AppKitPopover::show(Rect relativeTo, StatusBarButton& of, RectEdge preferredEdge) {
    activateApplication();
    [popover_ showRelativeToRect:toNSRect(relativeTo)
                          ofView:static_cast<AppKitStatusBarButton&>(of).nsButton()
                   preferredEdge:static_cast<NSRectEdge>(preferredEdge)];
}

void AppKitPopover::performClose() { [popover_ performClose:nil]; }

PopoverWindow* AppKitPopover::contentWindow() {
    NSWindow* window = popover_.contentViewController.view.window;
    window_ = window != nil ? std::make_unique<AppKitPopoverWindow>(window) : nullptr;
    return window_.get();
}

std::unique_ptr<Popover> AppKitPopovers::makePopover() { return std::make_unique<AppKitPopover>(); }

}  // namespace vornix::platform::macos
