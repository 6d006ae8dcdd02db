#pragma once

#include <memory>

#include "platform/Popover.hpp"
#include "platform/linux/GtkPopoverView.hpp"
#include "platform/linux/PopupWindow.hpp"

namespace vornix::platform::linux {

// A popover of the tray: the popup window with a GTK popover view in it.
class TrayPopover : public Popover, public platform::PopoverWindow {
public:
    TrayPopover();

    void setContentSize(Size size) override;
    void setBehavior(PopoverBehavior behavior) override;
    PopoverView& contentView() override { return view_; }
    bool isShown() const override;
    void show(Rect relativeTo, StatusBarButton& of, RectEdge preferredEdge) override;
    void performClose() override;
    platform::PopoverWindow* contentWindow() override;

    void makeKey() override;

    PopupWindow& window() { return window_; }

private:
    GtkPopoverView view_;
    PopupWindow window_;
};

class TrayPopovers : public Popovers {
public:
    std::unique_ptr<Popover> makePopover() override;
};

}  // namespace vornix::platform::linux
