#pragma once

#import <AppKit/AppKit.h>

#include <memory>

#include "platform/Popover.hpp"
#include "platform/macos/AppKitPopoverView.hpp"

namespace vornix::platform::macos {

// The window an NSPopover's content is in.
class AppKitPopoverWindow final : public PopoverWindow {
public:
    explicit AppKitPopoverWindow(NSWindow* window) : window_(window) {}
    void makeKey() override;

private:
    NSWindow* window_;
};

// One NSPopover, whose content view controller shows an AppKitPopoverView.
class AppKitPopover final : public Popover {
public:
    AppKitPopover();

    void setContentSize(Size size) override;
    void setBehavior(PopoverBehavior behavior) override;
    PopoverView& contentView() override { return view_; }
    bool isShown() const override;
    void show(Rect relativeTo, StatusBarButton& of, RectEdge preferredEdge) override;
    void performClose() override;
    PopoverWindow* contentWindow() override;

private:
    NSPopover* popover_;
    AppKitPopoverView view_;
    std::unique_ptr<AppKitPopoverWindow> window_;
};

// Makes NSPopovers.
class AppKitPopovers final : public Popovers {
public:
    std::unique_ptr<Popover> makePopover() override;
};

}  // namespace vornix::platform::macos
