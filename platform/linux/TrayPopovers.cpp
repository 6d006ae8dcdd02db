#include "platform/linux/TrayPopovers.hpp"

#include <cmath>
#include <optional>

#include "base/FatalError.hpp"
#include "platform/linux/TrayStatusBar.hpp"

namespace vornix::platform::linux {

namespace {

// Where the popover opens when the host was reached without a click on its icon (a second
// launch, or a desktop without a tray): the top right corner of the primary monitor's work
// area, where trays usually are.
GdkRectangle trayCorner() {
    GdkDisplay* display = gdk_display_get_default();
    GdkMonitor* monitor = gdk_display_get_primary_monitor(display);
    if (!monitor) {
        monitor = gdk_display_get_monitor(display, 0);
    }
    GdkRectangle area{};
    gdk_monitor_get_workarea(monitor, &area);
    return {area.x + area.width - 1, area.y, 1, 1};
}

}  // namespace

TrayPopover::TrayPopover() { window_.setContent(view_.widget()); }

void TrayPopover::setContentSize(Size size) {
    window_.setContentSize(static_cast<int>(std::lround(size.width)), static_cast<int>(std::lround(size.height)));
}

void TrayPopover::setBehavior(PopoverBehavior behavior) { window_.setTransient(behavior == PopoverBehavior::transient); }

bool TrayPopover::isShown() const { return window_.shown(); }

void TrayPopover::show(Rect relativeTo, StatusBarButton& of, RectEdge preferredEdge) {
    auto* button = dynamic_cast<TrayButton*>(&of);
    if (!button) {
        base::fatalError("a tray popover can only open at the tray's own button");
    }
    window_.setActivationToken(button->takeActivationToken());
    view_.materialize();
    const std::optional<GdkRectangle> clicked = button->screenArea();
    if (window_.layered()) {
        window_.showBeside(clicked ? std::optional<GdkPoint>(GdkPoint{clicked->x + clicked->width / 2,
                                                                      clicked->y + clicked->height / 2})
                                   : std::nullopt);
        return;
    }
    GdkRectangle anchor = clicked.value_or(trayCorner());
    // A tray that reports only the point clicked gets the button's size around that point.
    if (anchor.width <= 1 && anchor.height <= 1) {
        const int width = static_cast<int>(std::lround(relativeTo.width));
        const int height = static_cast<int>(std::lround(relativeTo.height));
        anchor = {anchor.x - width / 2, anchor.y - height / 2, width, height};
    }
    // AppKit's minimum-y edge is the bottom one: below the button.
    window_.showRelativeTo(anchor, preferredEdge != RectEdge::maxY);
}

void TrayPopover::performClose() { window_.close(); }

platform::PopoverWindow* TrayPopover::contentWindow() { return window_.shown() ? this : nullptr; }

void TrayPopover::makeKey() { window_.focus(); }

std::unique_ptr<Popover> TrayPopovers::makePopover() { return std::make_unique<TrayPopover>(); }

}  // namespace vornix::platform::linux
